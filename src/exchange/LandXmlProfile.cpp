#include "exchange/LandXmlReader.h"

#include "exchange/LandXmlNode.h"

#include <array>
#include <cmath>

namespace landxml {

using pugi::xml_node;

std::optional<Profile> Reader::profAlign(const xml_node& node, Alignment& road) const
{
    Profile profile{.name = node.attribute("name").as_string(), .points = {}};
    for (const auto& part : node.children()) {
        const auto name = std::string(LocalName(part));
        if (name.empty() || name == "Feature") continue;
        const std::string place = "纵断面第" + std::to_string(profile.points.size() + 1) + "点（" + name + "）";
        if (name != "PVI" && name != "ParaCurve" && name != "CircCurve") {
            road.leftOut.push_back("没有导入纵断面“" + profile.name + "”：" + place + "不能变成本程序的竖曲线");
            return std::nullopt;
        }
        const auto numbers = NumbersOf(TextOf(part), place);
        if (numbers.size() != 2) throw ExchangeError(place + "：应有桩号和高程两个数");
        GradePoint point{.station = metres(numbers[0]), .elevation = metres(numbers[1])};
        if (name != "PVI") {
            point.kind = name == "ParaCurve" ? GradePoint::Parabola : GradePoint::Circle;
            const auto along = length(part, "length", place), radius = length(part, "radius", place);
            if (point.kind == GradePoint::Parabola && !along) throw ExchangeError(place + "：缺少 length");
            if (point.kind == GradePoint::Circle && !radius) throw ExchangeError(place + "：缺少 radius");
            point.length = along.value_or(0);
            point.radius = radius.value_or(0);
            if (point.length < 0) throw ExchangeError(place + "：length 是负数");
        }
        profile.points.push_back(point);
    }
    return profile;
}

namespace {

/// A profile that begins where the one before ends is its next piece.
bool goesOn(const Profile& profile, const Profile& next)
{
    if (profile.points.empty() || next.points.empty()) return false;
    const auto &end = profile.points.back(), &begin = next.points.front();
    return end.kind == GradePoint::Corner && begin.kind == GradePoint::Corner &&
           std::abs(end.station - begin.station) < 0.001 && std::abs(end.elevation - begin.elevation) < 0.001;
}

/// What a file marks as no design: the state of a ProfAlign, or of the Profile around it.
bool isDesign(const xml_node& node)
{
    const auto state = WordOf(node, "state"), around = WordOf(node.parent(), "state");
    for (const std::string_view other : {"existing", "abandoned", "destroyed"})
        if (state == other || (state.empty() && around == other)) return false;
    return true;
}

}  // namespace

void Reader::profiles(const xml_node& alignment, Alignment& road) const
{
    std::vector<xml_node> designs, others;
    for (const auto& node : alignment.children()) {
        if (LocalName(node) != "Profile") continue;
        for (const auto& part : node.children()) {
            if (LocalName(part) == "ProfSurf")
                road.leftOut.push_back("没有导入 ProfSurf“" + std::string(part.attribute("name").as_string()) +
                                       "”：地面线不属于线路参数");
            if (LocalName(part) == "ProfAlign") (isDesign(part) ? designs : others).push_back(part);
        }
    }
    designs.insert(designs.end(), others.begin(), others.end());
    for (const auto& part : designs) {
        auto read = profAlign(part, road);
        if (!read) continue;
        if (!road.profile)
            road.profile = std::move(read);
        else if (!goesOn(*road.profile, *read))
            road.leftOut.push_back("没有导入纵断面“" + read->name + "”：一条线路只有一个设计纵断面，已导入“" +
                                   road.profile->name + "”");
        else
            road.profile->points.insert(road.profile->points.end(), read->points.begin() + 1, read->points.end());
    }
}

Superelevation Reader::superelevation(const xml_node& node, Alignment& road) const
{
    Superelevation all;
    struct Station {
        std::string_view name;
        std::optional<double> Superelevation::*member;
    };
    static constexpr std::array kStations{Station{"BeginRunoutSta", &Superelevation::beginRunout},
                                          Station{"BeginRunoffSta", &Superelevation::beginRunoff},
                                          Station{"FullSuperSta", &Superelevation::full},
                                          Station{"FullSuperelev", &Superelevation::slope},
                                          Station{"RunoffSta", &Superelevation::runoff},
                                          Station{"StartofRunoutSta", &Superelevation::startRunout},
                                          Station{"EndofRunoutSta", &Superelevation::endRunout}};
    for (const auto& part : node.children())
        for (const auto& station : kStations) {
            if (LocalName(part) != station.name || IsBlankText(TextOf(part))) continue;
            const auto numbers = NumbersOf(TextOf(part), "超高的 " + std::string(station.name));
            if (numbers.size() != 1) throw ExchangeError("超高的 " + std::string(station.name) + "：应是一个数");
            if (all.*station.member)
                road.leftOut.push_back("超高的 " + std::string(station.name) + " 给了不止一个，用了第一个");
            else
                all.*station.member = station.name == "FullSuperelev" ? numbers[0] : metres(numbers[0]);
        }
    return all;
}

}  // namespace landxml
