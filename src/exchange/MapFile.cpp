#include "exchange/MapFile.h"

#include "engine/Route.h"
#include "engine/RoutePoint.h"
#include "exchange/NumberText.h"
#include "exchange/RoadElements.h"
#include "exchange/XmlWriter.h"

#include <algorithm>
#include <cmath>
#include <nlohmann/json.hpp>

namespace {

/// A place as a map has it: longitude and latitude, or east and north.
class Places {
public:
    explicit Places(const std::optional<GaussKrueger>& projection) : m_projection(projection) {}

    std::string text(double x, double y, const std::optional<double>& h) const
    {
        std::string place;
        if (m_projection) {
            const auto at = m_projection->reverse(x, y);
            place = FixedText(at.lon, 10) + "," + FixedText(at.lat, 10);  // a hundredth of a millimetre
        } else {
            place = FixedText(y, 4) + "," + FixedText(x, 4);
        }
        return h ? place + "," + FixedText(*h, 3) : place;
    }

private:
    const std::optional<GaussKrueger>& m_projection;
};

struct AxisPoint {
    double x = 0, y = 0;
};

std::vector<AxisPoint> axis(const MapRoad& road)
{
    std::vector<AxisPoint> points;
    for (const auto& e : RoadElements(road.tables, road.files, nullptr)) {
        const double tightest = std::min(e.r1 == 0 ? 1e9 : std::abs(e.r1), e.r2 == 0 ? 1e9 : std::abs(e.r2));
        // The height of an arc over its chord is chord squared by eight radii.
        const double chord = std::sqrt(8 * tightest * 0.001);
        const int pieces = std::clamp(static_cast<int>(std::ceil(e.length / chord)), 1, 100000);
        const auto row = elementAt(road.tables, e.stake + e.length / 2);
        points.push_back({e.x, e.y});
        for (int i = 1; i < pieces && row > 0; ++i) {
            const auto at = pointOn(road.tables, row, e.stake + e.length * i / pieces);
            points.push_back({at.x, at.y});
        }
        points.push_back({e.endX, e.endY});
    }
    const auto same = [](const AxisPoint& a, const AxisPoint& b) { return std::hypot(a.x - b.x, a.y - b.y) < 1e-4; };
    points.erase(std::unique(points.begin(), points.end(), same), points.end());
    return points;
}

std::string quoted(const std::string& text)
{
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string geoJson(const MapRoad& road, const Places& places)
{
    std::string text = "{\"type\":\"FeatureCollection\",\"name\":" + quoted(road.name) + ",\"features\":[\n";
    text += "{\"type\":\"Feature\",\"properties\":{\"name\":" + quoted(road.name) +
            ",\"kind\":\"axis\"},\"geometry\":{\"type\":\"LineString\",\"coordinates\":[";
    bool first = true;
    for (const auto& p : axis(road)) {
        text += (first ? "[" : ",[") + places.text(p.x, p.y, {}) + "]";
        first = false;
    }
    text += "]}}";
    for (const auto& p : road.points)
        text += ",\n{\"type\":\"Feature\",\"properties\":{\"name\":" + quoted(p.name) + ",\"code\":" + quoted(p.code) +
                ",\"stake\":" + FixedText(p.stake, 3) + ",\"offset\":" + FixedText(p.offset, 3) +
                (p.h ? ",\"h\":" + FixedText(*p.h, 3) : "") + "},\"geometry\":{\"type\":\"Point\",\"coordinates\":[" +
                places.text(p.x, p.y, p.h) + "]}}";
    return text + "\n]}\n";
}

std::string kml(const MapRoad& road, const Places& places)
{
    XmlWriter xml;
    xml.open("kml", {{"xmlns", "http://www.opengis.net/kml/2.2"}});
    xml.open("Document");
    xml.leaf("name", {}, road.name);
    xml.open("Placemark");
    xml.leaf("name", {}, road.name);
    xml.open("LineString");
    xml.leaf("tessellate", {}, "1");
    std::string line;
    for (const auto& p : axis(road)) line += (line.empty() ? "" : " ") + places.text(p.x, p.y, {});
    xml.leaf("coordinates", {}, line);
    xml.close();
    xml.close();
    for (const auto& p : road.points) {
        xml.open("Placemark");
        xml.leaf("name", {}, p.name);
        xml.leaf("description", {}, p.code + " " + FixedText(p.stake, 3) + " " + FixedText(p.offset, 3));
        xml.open("Point");
        xml.leaf("coordinates", {}, places.text(p.x, p.y, p.h));
        xml.close();
        xml.close();
    }
    xml.close();
    xml.close();
    return xml.text();
}

}  // namespace

std::string MapText(const MapRoad& road, MapForm form)
{
    const Places places(road.projection);
    return form == MapForm::Kml ? kml(road, places) : geoJson(road, places);
}
