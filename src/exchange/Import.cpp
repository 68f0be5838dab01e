#include "exchange/Import.h"

#include "base/Numbers.h"
#include "exchange/ExchangeError.h"
#include "exchange/ExportProfile.h"
#include "exchange/ImportHorizontal.h"
#include "exchange/ImportProfile.h"
#include "exchange/NumberText.h"
#include "exchange/RoadElements.h"
#include "exchange/Shape.h"
#include "project/Workspace.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>

namespace {

using Lines = std::vector<std::string>;

constexpr std::string_view kLinear = "线性", kUnset = "未设置";

void shift(landxml::Alignment& road, double metres)
{
    road.staStart = TidyStation(road.staStart + metres);
    for (auto& element : road.elements)
        if (element.station) *element.station += metres;
    for (auto& equation : road.equations) {
        if (equation.internal) *equation.internal += metres;
        equation.ahead += metres;
        if (equation.back) *equation.back += metres;
    }
    if (road.profile)
        for (auto& point : road.profile->points) point.station += metres;
    for (auto& s : road.superelevations)
        for (auto* station : {&s.beginRunout, &s.beginRunoff, &s.full, &s.runoff, &s.startRunout, &s.endRunout})
            if (*station) **station += metres;
}

Lines settings(std::string_view model, bool superelevation)
{
    const std::string unset(kUnset);
    return {std::string(model), superelevation ? std::string(kLinear) : unset, unset, unset, unset};
}

Lines breakLines(const Stations& stations)
{
    Lines lines;
    for (const auto& b : stations.breaks())
        if (b.back != b.ahead) lines.push_back(ShortestText(b.back) + "," + ShortestText(b.ahead));
    return lines;
}

void set(RoadFiles& files, std::string_view file, Lines lines)
{
    if (!lines.empty()) files[std::string(file)] = std::move(lines);
}

/// The lines that this program left in the file, by their files.
RoadFiles typedLines(const landxml::Alignment& road)
{
    RoadFiles typed;
    for (const auto& [file, line] : road.typed)
        for (const auto known : {files::settings, files::horizontal, files::vertical, files::breaks, files::traverse,
                                 files::superelevation, files::widths})
            if (file == known) typed[file].push_back(line);
    return typed;
}

class Import {
public:
    Import(const landxml::File& file, std::size_t index, const ImportWishes& wishes)
        : m_file(file), m_wishes(wishes), m_road(file.alignment(index))
    {}

    ImportedRoad run()
    {
        m_report.push_back("从 LandXML 导入线路“" + m_road.name + "”");
        for (const auto& remark : m_file.remarks()) m_report.push_back(remark);
        if (m_wishes.shift != 0) {
            shift(m_road, m_wishes.shift);
            m_report.push_back("全部桩号加了 " + ShortestText(m_wishes.shift) + " 米");
        }
        if (m_road.staStart < 0)
            throw ExchangeError("线路从桩号 " + ShortestText(m_road.staStart) +
                                " 开始，小于 0 的桩号不能输入；可以用 --shift 给全部桩号加上整米数");
        if (!takeTyped()) compute();
        reportElements();
        if (m_road.length && std::abs(*m_road.length - m_length) > kMillimetre)
            m_report.push_back("线路的 length 是 " + FixedText(*m_road.length, 3) + "，各单元的长度之和是 " +
                               FixedText(m_length, 3));
        for (const auto& line : m_road.leftOut) m_report.push_back(line);
        return {std::move(m_files), std::move(m_report)};
    }

private:
    std::vector<StationBreak> wishedBreaks() const
    {
        auto breaks = m_wishes.breaks;
        for (auto& b : breaks) b.back += m_wishes.shift, b.ahead += m_wishes.shift;
        return breaks;
    }

    /// What was left in the file by this program is taken where the standard elements still say the same.
    bool takeTyped()
    {
        RoadFiles typed = typedLines(m_road);
        if (typed.empty()) return false;
        if (m_wishes.shift != 0 || !m_wishes.breaks.empty()) {
            m_report.push_back("没有用文件里保存的原参数：桩号改动了");
            return false;
        }
        std::string other;
        try {
            m_compiled = Compile(typed);
            m_shape = ShapeOf(RoadElements(m_compiled.tables, typed, nullptr), m_road);
            m_length = m_shape.end() - m_road.staStart;
            other = differenceOf(m_compiled, Stations(m_road, m_length));
        } catch (const ExchangeError& error) {
            other = error.what();
        }
        if (!other.empty()) {
            m_report.push_back("没有用文件里保存的原参数，与文件的标准内容不一致：" + other);
            m_shape = {};
            m_length = 0;
            return false;
        }
        m_files = std::move(typed);
        m_deviation = DeviationOf(m_compiled.tables, m_shape);
        m_report.push_back("参数按文件里保存的原文恢复");
        return true;
    }

    /// What of the typed lines is not what the standard elements say; "" where all agrees.
    std::string differenceOf(const CompiledRoad& compiled, const Stations& stations) const
    {
        const Tables& t = compiled.tables;
        if (!compiled.whole || !SameElements(m_shape, m_road)) return "平曲线";
        const bool breaks = t.hasDl != 0;
        if (stations.breaks().size() != (breaks ? static_cast<std::size_t>(t.dlCount) + 1 : 0)) return "断链";
        for (std::size_t i = 0; i < stations.breaks().size(); ++i) {
            const auto& b = stations.breaks()[i];
            if (std::abs(b.internal - t.dlBack[i]) > kMillimetre ||
                std::abs(b.ahead - b.back - t.dlCum[i]) > kMillimetre)
                return "断链";
        }
        if (!SameProfiles(m_road.profile, ProfileOf(t))) return "纵断面";
        if (!SameSuperelevations(m_road.superelevations, SuperelevationsOf(t))) return "超高";
        return {};
    }

    void compute()
    {
        // A road of this program may not quite meet at its joints: each curve is laid out afresh from its vertex.
        m_shape = SolveShape(m_road, m_file.directionUnit(), m_road.own ? kMostMisfit : kMostGap);
        if (m_shape.elements.size() >= INT16_MAX)
            throw ExchangeError("有 " + std::to_string(m_shape.elements.size()) + " 个单元，一个项目最多 " +
                                std::to_string(INT16_MAX - 1) + " 个");
        m_length = m_shape.end() - m_road.staStart;
        const Stations stations(m_road, m_length, wishedBreaks(), &m_report);
        set(m_files, files::breaks, breakLines(stations));
        auto typed = typedLines(m_road);
        set(m_files, files::traverse, typed[std::string(files::traverse)]);
        Lines slopes = SuperelevationLines(m_road, m_shape, stations, m_report);
        const bool sloped = !slopes.empty();
        set(m_files, files::superelevation, std::move(slopes));
        Lines grades;
        if (m_road.profile)
            grades = ProfileLines(*m_road.profile, stations, m_report);
        else
            m_report.push_back("文件里没有可以导入的纵断面");
        const bool graded = !grades.empty();
        set(m_files, files::vertical, std::move(grades));
        chooseModel(stations, sloped);
        if (graded) checkProfile();
    }

    void chooseModel(const Stations& stations, bool sloped)
    {
        if (auto lines = VertexLines(m_road, m_shape)) {
            m_files[std::string(files::settings)] = settings(model::byIntersectionPoints, sloped);
            m_files[std::string(files::horizontal)] = std::move(*lines);
            m_compiled = Compile(m_files);
            m_deviation = DeviationOf(m_compiled.tables, m_shape);
            const double end = m_compiled.tables.elemLc.empty() ? 0 : m_compiled.tables.elemLc.back() - 0.01;
            if (m_compiled.whole && m_deviation.largest <= kMillimetre &&
                std::abs(end - m_road.staStart - m_length) <= kMillimetre) {
                m_report.push_back("平曲线：交点法，" + std::to_string(m_compiled.tables.zdCount) + " 个交点");
                return;
            }
        }
        m_files[std::string(files::settings)] = settings(model::byBlocks, sloped);
        m_files[std::string(files::horizontal)] = BlockLines(m_shape, stations);
        m_compiled = Compile(m_files);
        m_deviation = DeviationOf(m_compiled.tables, m_shape);
        if (!m_compiled.whole) throw ExchangeError("有桩号落在断链跳过的里程里，没有导入；请检查断链");
        m_report.push_back("平曲线：积木法，" + std::to_string(m_shape.elements.size()) + " 个单元");
    }

    void checkProfile()
    {
        double where = m_road.staStart;
        const double off = ProfileDeviation(m_compiled.tables, *m_road.profile, where);
        m_report.push_back("纵断面“" + m_road.profile->name + "”：与文件最大相差 " + MetresText(off) + " 米" +
                           (off > kMillimetre ? "，在 " + FixedText(where, 3) : ""));
        const auto& points = m_road.profile->points;
        if (points.front().station > m_road.staStart + kMillimetre ||
            points.back().station < m_road.staStart + m_length - kMillimetre)
            m_report.push_back("纵断面从 " + FixedText(points.front().station, 3) + " 到 " +
                               FixedText(points.back().station, 3) + "，没有盖住全线");
    }

    void reportElements()
    {
        for (std::size_t i = 0; i < m_shape.elements.size(); ++i) {
            const auto& e = m_shape.elements[i];
            const double off = m_deviation.ends[i];
            m_report.push_back(e.place + "：" + FixedText(e.from, 3) + " 起，长 " + FixedText(e.length, 3) +
                               "，终点与文件相差 " + MetresText(off) + " 米" +
                               (off > kMillimetre ? "，超过 1 毫米" : ""));
        }
        m_report.push_back("相邻单元的最大转角：" + FixedText(m_shape.largestTurn * 180 / kPi * 3600, 2) + " 秒" +
                           (m_shape.turnAt.empty() ? "" : "，在" + m_shape.turnAt + "的起点"));
        for (const auto& finding : m_shape.findings) m_report.push_back(finding);
    }

    const landxml::File& m_file;
    const ImportWishes& m_wishes;
    landxml::Alignment m_road;
    Shape m_shape;
    double m_length = 0;
    RoadFiles m_files;
    CompiledRoad m_compiled;
    Deviation m_deviation;
    Lines m_report;
};

}  // namespace

ImportedRoad ImportRoad(const landxml::File& file, std::size_t index, const ImportWishes& wishes)
{
    return Import(file, index, wishes).run();
}
