#pragma once
// LandXML files for tests, written here: a chain of elements from a start, its points by true geometry.

#include "exchange/NumberText.h"
#include "geometry/TrueRoad.h"

#include <cmath>
#include <functional>
#include <numbers>
#include <string>
#include <vector>

struct ChainPiece {
    double length = 0, r1 = 0, r2 = 0;  // m, positive right, 0 straight
};

class RoadXml {
public:
    TruePoint start{3000000, 500000, 30};
    double staStart = 1000;
    double unit = 1;  ///< metres of one unit of the file
    std::string units = R"(<Metric areaUnit="squareMeter" linearUnit="meter" volumeUnit="cubicMeter"
        temperatureUnit="celsius" pressureUnit="HPA"/>)";
    std::string more;                   ///< elements behind CoordGeom
    bool eastFirst = false;             ///< against the rule
    std::function<double(double)> dir;  ///< of a true azimuth in radians, as the file writes it
    std::vector<TruePoint> ends;        ///< of each element, m, filled by text()

    std::string text(const std::vector<ChainPiece>& chain)
    {
        std::string elements;
        TruePoint at = start;
        double length = 0;
        ends.clear();
        for (const auto& piece : chain) {
            const TruePoint end = TrueElementEnd(at, piece.length, piece.r1, piece.r2);
            elements += element(piece, at, end);
            ends.push_back(end);
            at = end;
            length += piece.length;
        }
        return wrapped("<Alignment name=\"K\" length=\"" + number(length) + "\" staStart=\"" + number(staStart) +
                       "\"><CoordGeom>" + elements + "</CoordGeom>" + more + "</Alignment>");
    }

    std::string wrapped(const std::string& alignments) const
    {
        return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<LandXML "
               "xmlns=\"http://www.landxml.org/schema/LandXML-1.2\" "
               "version=\"1.2\" date=\"2026-01-01\" time=\"00:00:00\"><Units>" +
               units + "</Units><Alignments>" + alignments + "</Alignments></LandXML>";
    }

    std::string number(double metres) const { return ShortestText(metres / unit); }

private:
    static constexpr double kDegree = std::numbers::pi / 180;

    std::string point(const char* name, double north, double east) const
    {
        if (eastFirst) std::swap(north, east);
        return "<" + std::string(name) + ">" + number(north) + " " + number(east) + "</" + name + ">";
    }
    std::string direction(const char* name, double azDeg) const
    {
        return dir ? " " + std::string(name) + "=\"" + ShortestText(dir(azDeg * kDegree)) + "\"" : "";
    }
    std::string element(const ChainPiece& p, const TruePoint& from, const TruePoint& to) const
    {
        const std::string begin = point("Start", from.x, from.y), end = point("End", to.x, to.y);
        const std::string length = " length=\"" + number(p.length) + "\"";
        if (p.r1 == 0 && p.r2 == 0)
            return "<Line" + length + direction("dir", from.azDeg) + ">" + begin + end + "</Line>";
        const std::string rot = p.r1 + p.r2 > 0 ? " rot=\"cw\"" : " rot=\"ccw\"";
        const double a = from.azDeg * kDegree;
        if (p.r1 == p.r2)
            return "<Curve" + length + rot + " radius=\"" + number(std::abs(p.r1)) + "\">" + begin +
                   point("Center", from.x - p.r1 * std::sin(a), from.y + p.r1 * std::cos(a)) + end + "</Curve>";
        const auto radius = [this](double r) { return r == 0 ? std::string("INF") : number(std::abs(r)); };
        const double turn = (to.azDeg - from.azDeg) * kDegree;
        const double along = (to.x - from.x) * std::cos(a) + (to.y - from.y) * std::sin(a);
        const double aside = (to.y - from.y) * std::cos(a) - (to.x - from.x) * std::sin(a);
        const double tangent = along - aside / std::tan(turn);
        return "<Spiral spiType=\"clothoid\"" + length + rot + " radiusStart=\"" + radius(p.r1) + "\" radiusEnd=\"" +
               radius(p.r2) + "\">" + begin +
               point("PI", from.x + tangent * std::cos(a), from.y + tangent * std::sin(a)) + end + "</Spiral>";
    }
};
