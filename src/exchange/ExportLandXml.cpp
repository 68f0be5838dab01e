#include "exchange/ExportLandXml.h"

#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Trig.h"
#include "engine/RoutePoint.h"
#include "exchange/ExchangeError.h"
#include "exchange/ExportProfile.h"
#include "exchange/Marks.h"
#include "exchange/NumberText.h"
#include "exchange/RoadElements.h"
#include "exchange/XmlWriter.h"
#include "project/Workspace.h"

#include <chrono>
#include <cmath>
#include <ctime>
#include <set>

namespace {

std::string pointText(double x, double y) { return ShortestText(x) + " " + ShortestText(y); }

std::string clockText(std::time_t time, const char* format)
{
    // The C library's own way has another name on each system, and one that knows no time before 1970.
    const std::chrono::sys_seconds at{std::chrono::seconds(time)};
    const auto day = std::chrono::floor<std::chrono::days>(at);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(at - day);
    std::tm utc{};
    utc.tm_year = static_cast<int>(date.year()) - 1900;
    utc.tm_mon = static_cast<int>(static_cast<unsigned>(date.month())) - 1;
    utc.tm_mday = static_cast<int>(static_cast<unsigned>(date.day()));
    utc.tm_hour = static_cast<int>(clock.hours().count());
    utc.tm_min = static_cast<int>(clock.minutes().count());
    utc.tm_sec = static_cast<int>(clock.seconds().count());
    char text[16];
    return {text, std::strftime(text, sizeof text, format, &utc)};
}

class Writer {
public:
    explicit Writer(const LandXmlRoad& road) : m_road(road), m_t(road.tables) {}

    std::string run()
    {
        const auto elements = RoadElements(m_t, m_road.files, m_road.report);
        m_xml.open("LandXML", {{"xmlns", "http://www.landxml.org/schema/LandXML-1.2"},
                               {"xmlns:xsi", "http://www.w3.org/2001/XMLSchema-instance"},
                               {"xsi:schemaLocation", "http://www.landxml.org/schema/LandXML-1.2 "
                                                      "http://www.landxml.org/schema/LandXML-1.2/LandXML-1.2.xsd"},
                               {"version", "1.2"},
                               {"date", clockText(m_road.written, "%Y-%m-%d")},
                               {"time", clockText(m_road.written, "%H:%M:%S")}});
        m_xml.open("Units");
        m_xml.leaf("Metric", {{"areaUnit", "squareMeter"},
                              {"linearUnit", "meter"},
                              {"volumeUnit", "cubicMeter"},
                              {"temperatureUnit", "celsius"},
                              {"pressureUnit", "HPA"},
                              {"angularUnit", "radians"},
                              {"directionUnit", "radians"}});
        m_xml.close();
        m_xml.leaf("Project", {{"name", m_road.name}});
        m_xml.leaf("Application", {{"name", std::string(marks::kProgram)}});
        m_xml.open("Alignments");
        alignment(elements);
        m_xml.close();
        traverse();
        m_xml.close();
        return m_xml.text();
    }

private:
    void alignment(const std::vector<RoadElement>& elements)
    {
        const double start = elements.front().stake, end = elements.back().stake + elements.back().length;
        m_xml.open("Alignment",
                   {{"name", m_road.name}, {"length", ShortestText(end - start)}, {"staStart", ShortestText(start)}});
        m_xml.open("CoordGeom");
        for (const auto& e : elements) element(e);
        m_xml.close();
        vertices();
        equations();
        profile();
        superelevation();
        typed();
        m_xml.close();
    }

    void element(const RoadElement& e)
    {
        const auto ends = [&](const char* between, double x, double y) {
            m_xml.leaf("Start", {}, pointText(e.x, e.y));
            if (between) m_xml.leaf(between, {}, pointText(x, y));
            m_xml.leaf("End", {}, pointText(e.endX, e.endY));
            m_xml.close();
        };
        const std::string length = ShortestText(e.length), station = ShortestText(e.stake);
        if (e.r1 == 0 && e.r2 == 0) {
            m_xml.open("Line", {{"length", length}, {"staStart", station}});
            return ends(nullptr, 0, 0);
        }
        const std::string rot = e.r1 > 0 || e.r2 > 0 ? "cw" : "ccw";
        const double c = trig::cos(e.az), s = trig::sin(e.az);
        if (e.r1 == e.r2) {
            m_xml.open("Curve", {{"rot", rot},
                                 {"crvType", "arc"},
                                 {"radius", ShortestText(std::abs(e.r1))},
                                 {"length", length},
                                 {"staStart", station}});
            return ends("Center", e.x - e.r1 * s, e.y + e.r1 * c);
        }
        const auto radius = [](double r) { return r == 0 ? std::string("INF") : ShortestText(std::abs(r)); };
        m_xml.open("Spiral", {{"length", length},
                              {"radiusEnd", radius(e.r2)},
                              {"radiusStart", radius(e.r1)},
                              {"rot", rot},
                              {"spiType", "clothoid"},
                              {"staStart", station}});
        // The tangents of both ends meet in PI.
        const double turn = (curvature(e.r1) + curvature(e.r2)) * e.length / 2;
        const double along = (e.endX - e.x) * c + (e.endY - e.y) * s, aside = (e.endY - e.y) * c - (e.endX - e.x) * s;
        const double tangent = std::abs(trig::tan(turn)) < 1e-9 ? along / 2 : along - aside / trig::tan(turn);
        ends("PI", e.x + tangent * c, e.y + tangent * s);
    }

    const std::vector<std::string>& lines(std::string_view file) const
    {
        static const std::vector<std::string> none;
        const auto found = m_road.files.find(file);
        return found == m_road.files.end() ? none : found->second;
    }

    void vertices()
    {
        const auto& settings = lines(files::settings);
        if (settings.empty() || settings[0] != model::byIntersectionPoints || m_t.jdX.size() < 2) return;
        const auto& rows = lines(files::horizontal);
        m_xml.open("AlignPIs");
        for (std::size_t i = 0; i < m_t.jdX.size(); ++i) {
            const bool inner = i > 0 && i + 1 < m_t.jdX.size() && i < rows.size();
            m_xml.open("AlignPI");
            const auto at = pointText(m_t.jdX[i], m_t.jdY[i]);
            if (inner)
                m_xml.leaf("PI", {{"name", SplitFields(rows[i]).front()}}, at);
            else
                m_xml.leaf("PI", {}, at);
            m_xml.close();
        }
        m_xml.close();
    }

    void equations()
    {
        if (!m_t.hasDl) return;
        double amount = 0;
        for (std::size_t i = 0; i <= static_cast<std::size_t>(m_t.dlCount) && i < m_t.dlBack.size(); ++i) {
            m_xml.leaf("StaEquation", {{"staBack", ShortestText(m_t.dlBack[i] + amount)},
                                       {"staInternal", ShortestText(m_t.dlBack[i])},
                                       {"staAhead", ShortestText(m_t.dlAhead[i] + amount)}});
            amount += m_t.dlCum[i];
        }
    }

    void profile()
    {
        const auto profile = ProfileOf(m_t);
        if (!profile) return;
        m_xml.open("Profile");
        m_xml.open("ProfAlign", {{"name", m_road.name}});
        for (const auto& p : profile->points) {
            const auto at = pointText(p.station, p.elevation);
            if (p.kind == landxml::GradePoint::Corner)
                m_xml.leaf("PVI", {}, at);
            else
                m_xml.leaf("ParaCurve", {{"length", ShortestText(p.length)}}, at);
        }
        m_xml.close();
        m_xml.close();
    }

    void superelevation()
    {
        const auto curves = SuperelevationsOf(m_t);
        for (const auto& s : curves) {
            m_xml.open("Superelevation",
                       {{"staStart", ShortestText(*s.beginRunout)}, {"staEnd", ShortestText(*s.endRunout)}});
            m_xml.leaf("BeginRunoutSta", {}, ShortestText(*s.beginRunout));
            m_xml.leaf("BeginRunoffSta", {}, ShortestText(*s.beginRunoff));
            m_xml.leaf("FullSuperSta", {}, ShortestText(*s.full));
            m_xml.leaf("FullSuperelev", {}, ShortestText(*s.slope));
            m_xml.leaf("RunoffSta", {}, ShortestText(*s.runoff));
            m_xml.leaf("StartofRunoutSta", {}, ShortestText(*s.startRunout));
            m_xml.leaf("EndofRunoutSta", {}, ShortestText(*s.endRunout));
            m_xml.close();
        }
        if (!m_t.cgLc.empty())
            say("超高：LandXML 只有由路拱到全超高的渐变（" + std::to_string(curves.size()) +
                " 个），左右坡度的原文随文件另存");
        if (!m_t.cgkdG.empty()) say("路基宽度：LandXML 没有位置，原文随文件另存");
    }

    void typed()
    {
        m_xml.open("Feature", {{"name", std::string(marks::kTyped)}});
        for (const auto& [file, rows] : m_road.files)
            for (const auto& row : rows) m_xml.leaf("Property", {{"label", file}, {"value", row}});
        m_xml.close();
    }

    void traverse()
    {
        if (m_t.dxdName.empty()) return;
        m_xml.open("CgPoints", {{"name", std::string(marks::kTraverse)}});
        std::set<std::string> names;
        for (std::size_t i = 0; i < m_t.dxdName.size(); ++i) {
            std::string name = m_t.dxdName[i];
            for (int n = 2; !names.insert(name).second; ++n) name = m_t.dxdName[i] + "-" + std::to_string(n);
            m_xml.leaf("CgPoint", {{"name", name}}, pointText(m_t.dxdX[i], m_t.dxdY[i]));
        }
        m_xml.close();
    }

    void say(std::string_view line)
    {
        if (m_road.report) m_road.report->emplace_back(line);
    }

    const LandXmlRoad& m_road;
    const Tables& m_t;
    XmlWriter m_xml;
};

}  // namespace

std::string LandXmlText(const LandXmlRoad& road) { return Writer(road).run(); }
