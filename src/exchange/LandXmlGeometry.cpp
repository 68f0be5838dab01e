#include "exchange/LandXmlReader.h"

#include "exchange/LandXmlNode.h"
#include "exchange/NumberText.h"

#include <cmath>

namespace landxml {

using pugi::xml_node;

double Reader::metres(double written) const
{
    if (std::abs(written) > 1e12) throw ExchangeError("数太大：" + ShortestText(written));
    return written * units.metres;
}

std::optional<double> Reader::length(const xml_node& node, const char* name, const std::string& place) const
{
    const auto value = NumberOf(node, name, place);
    return value ? std::optional(metres(*value)) : std::nullopt;
}

Point Reader::point(const xml_node& node, const std::string& place) const
{
    xml_node where = node;
    if (IsBlankText(TextOf(node))) {
        const std::string_view name = node.attribute("pntRef").as_string();
        const auto found = points.find(name);
        if (found == points.end())
            throw ExchangeError(place + "：" + std::string(LocalName(node)) +
                                (name.empty() ? " 没有坐标" : " 引用的点“" + std::string(name) + "”不在文件里"));
        where = found->second;
    }
    const auto numbers = NumbersOf(TextOf(where), place + "的 " + std::string(LocalName(node)));
    if (numbers.size() < 2 || numbers.size() > 3)
        throw ExchangeError(place + "：" + std::string(LocalName(node)) + " 应有北、东两个坐标");
    return {metres(numbers[0]), metres(numbers[1])};
}

std::optional<Point> Reader::child(const xml_node& node, const char* name, const std::string& place) const
{
    const auto found = ChildOf(node, name);
    return found ? std::optional(point(found, place)) : std::nullopt;
}

Element Reader::element(const xml_node& node, std::string place, Alignment& road) const
{
    const auto name = LocalName(node);
    Element e;
    e.kind = name == "Line" ? Element::Line : name == "Curve" ? Element::Curve : Element::Spiral;
    e.place = std::move(place);
    const auto start = child(node, "Start", e.place), end = child(node, "End", e.place);
    if (!start || !end) throw ExchangeError(e.place + "：缺少 " + (start ? "End" : "Start"));
    e.start = *start;
    e.end = *end;
    e.center = child(node, "Center", e.place);
    e.pi = child(node, "PI", e.place);
    e.length = length(node, "length", e.place);
    e.station = length(node, "staStart", e.place);
    if (units.direction) {
        e.dirStart = NumberOf(node, e.kind == Element::Line ? "dir" : "dirStart", e.place);
        e.dirEnd = NumberOf(node, "dirEnd", e.place);
    }
    if (e.kind == Element::Line) return e;

    const std::string rot = WordOf(node, "rot");
    if (rot != "cw" && rot != "ccw")
        throw ExchangeError(e.place + "：rot 应为 cw 或 ccw，现在是“" + node.attribute("rot").as_string() + "”");
    e.clockwise = rot == "cw";
    if (e.kind == Element::Curve) {
        e.radius = length(node, "radius", e.place);
        if (!e.center && !e.radius) throw ExchangeError(e.place + "：缺少 Center");
        if (e.radius && *e.radius <= 0) throw ExchangeError(e.place + "：radius 不是正数，转向应由 rot 给出");
        if (WordOf(node, "crvType") == "chord")
            road.leftOut.push_back(e.place + "：曲线按弦定义（crvType=\"chord\"），桩号按弧长推算");
        return e;
    }
    const std::string type = WordOf(node, "spiType");
    if (type != "clothoid")
        throw ExchangeError(e.place + "：缓和曲线的类型是“" + node.attribute("spiType").as_string() +
                            "”，只能导入回旋线（clothoid）");
    e.radiusStart = metres(RadiusOf(node, "radiusStart", e.place));
    e.radiusEnd = metres(RadiusOf(node, "radiusEnd", e.place));
    return e;
}

void Reader::coordGeom(const xml_node& node, Alignment& road) const
{
    for (const auto& part : node.children()) {
        const auto name = std::string(LocalName(part));
        if (name.empty() || name == "Feature") continue;
        std::string place = "第" + std::to_string(road.elements.size() + 1) + "个单元（" + name + "）";
        if (name != "Line" && name != "Curve" && name != "Spiral")
            throw ExchangeError(place + "：不能导入这种单元，没有导入这条线路");
        road.elements.push_back(element(part, std::move(place), road));
    }
}

Equation Reader::equation(const xml_node& node, std::size_t number) const
{
    const std::string place = "第" + std::to_string(number) + "个断链（StaEquation）";
    if (WordOf(node, "staIncrement") == "decreasing")
        throw ExchangeError(place + "：桩号递减（staIncrement=\"decreasing\"），不能导入");
    const auto ahead = length(node, "staAhead", place);
    const Equation equation{length(node, "staInternal", place), length(node, "staBack", place), ahead.value_or(0)};
    if (!ahead) throw ExchangeError(place + "：缺少 staAhead");
    if (!equation.internal && !equation.back) throw ExchangeError(place + "：缺少 staInternal");
    return equation;
}

}  // namespace landxml
