#include "exchange/LandXml.h"

#include "exchange/ExchangeError.h"
#include "exchange/LandXmlNode.h"
#include "exchange/LandXmlUnits.h"
#include "exchange/Marks.h"
#include "exchange/NumberText.h"
#include "exchange/XmlText.h"

#include <array>
#include <cmath>
#include <map>

namespace landxml {

using pugi::xml_node;

struct File::Inner {
    std::string text;  // the document points into it
    pugi::xml_document document;
    xml_node root;
    Units units;
    std::vector<xml_node> alignments;
    std::vector<std::string> remarks;
    std::map<std::string, xml_node, std::less<>> points;  // what pntRef can name

    double metres(double written) const
    {
        if (std::abs(written) > 1e12) throw ExchangeError("数太大：" + ShortestText(written));
        return written * units.metres;
    }
    std::optional<double> length(const xml_node& node, const char* name, const std::string& place) const
    {
        const auto value = NumberOf(node, name, place);
        return value ? std::optional(metres(*value)) : std::nullopt;
    }
    Point point(const xml_node& node, const std::string& place) const;
    std::optional<Point> child(const xml_node& node, const char* name, const std::string& place) const;
    Element element(const xml_node& node, std::string place) const;
    void coordGeom(const xml_node& node, Alignment& road) const;
    Equation equation(const xml_node& node, std::size_t number) const;
    void profile(const xml_node& node, Alignment& road) const;
    std::optional<Profile> profAlign(const xml_node& node, Alignment& road) const;
    Superelevation superelevation(const xml_node& node, Alignment& road) const;
    void collectPoints(const xml_node& groups);
};

File::~File() = default;
File::File(File&&) noexcept = default;
File& File::operator=(File&&) noexcept = default;

File::File(const std::string& path) : File(fromBytes(ReadXmlFile(path))) {}

void File::Inner::collectPoints(const xml_node& group)
{
    for (const auto& node : group.children()) {
        if (LocalName(node) == "CgPoint") points.try_emplace(node.attribute("name").as_string(), node);
        if (LocalName(node) == "CgPoints")
            for (const auto& inner : node.children())
                if (LocalName(inner) == "CgPoint") points.try_emplace(inner.attribute("name").as_string(), inner);
    }
}

File File::fromBytes(std::string bytes)
{
    File file;
    file.m_inner = std::make_unique<Inner>();
    auto& inner = *file.m_inner;
    inner.text = XmlAsUtf8(std::move(bytes));
    BlankWhatIsNotRead(inner.text);
    const auto parsed = inner.document.load_buffer_inplace(inner.text.data(), inner.text.size(), pugi::parse_default,
                                                           pugi::encoding_utf8);
    if (!parsed)
        throw ExchangeError("第" + std::to_string(LineOfOffset(inner.text, static_cast<std::size_t>(parsed.offset))) +
                            "行不是完整的 XML（" + parsed.description() + "）");
    inner.root = inner.document.document_element();
    if (LocalName(inner.root) != "LandXML") throw ExchangeError("不是 LandXML 文件");
    inner.units = ReadUnits(inner.root);
    if (!inner.units.remark.empty()) inner.remarks.push_back(inner.units.remark);

    std::map<std::string, int> others;
    for (const auto& node : inner.root.children()) {
        const auto name = LocalName(node);
        if (name == "Alignments") {
            for (const auto& road : node.children())
                if (LocalName(road) == "Alignment") inner.alignments.push_back(road);
        } else if (name == "CgPoints") {
            inner.collectPoints(node);
            if (std::string_view(node.attribute("name").as_string()) != marks::kTraverse && node.first_child())
                ++others[std::string(name)];
        } else if (name != "Units" && name != "Project" && name != "Application" && name != "CoordinateSystem" &&
                   !name.empty()) {
            ++others[std::string(name)];
        }
    }
    for (const auto& [name, count] : others) inner.remarks.push_back("没有导入 " + name + "：不属于线路参数");
    return file;
}

const std::vector<std::string>& File::remarks() const { return m_inner->remarks; }
AngleUnit File::directionUnit() const { return m_inner->units.direction; }

std::vector<Summary> File::alignments() const
{
    std::vector<Summary> all;
    for (const auto& node : m_inner->alignments) {
        Summary road{.name = node.attribute("name").as_string()};
        attemptNumber([&] { road.staStart = m_inner->length(node, "staStart", "").value_or(0); });
        attemptNumber([&] { road.length = m_inner->length(node, "length", "").value_or(0); });
        for (const auto& part : node.children()) {
            if (LocalName(part) == "CoordGeom")
                for (const auto& element : part.children()) road.elements += LocalName(element) != "Feature";
            if (LocalName(part) == "Profile") road.profile = true;
        }
        all.push_back(road);
    }
    return all;
}

Point File::Inner::point(const xml_node& node, const std::string& place) const
{
    xml_node where = node;
    if (IsBlankText(node.text().get())) {
        const std::string_view name = node.attribute("pntRef").as_string();
        const auto found = points.find(name);
        if (found == points.end())
            throw ExchangeError(place + "：" + std::string(LocalName(node)) +
                                (name.empty() ? " 没有坐标" : " 引用的点“" + std::string(name) + "”不在文件里"));
        where = found->second;
    }
    const auto numbers = NumbersOf(where.text().get(), place + "的 " + std::string(LocalName(node)));
    if (numbers.size() < 2 || numbers.size() > 3)
        throw ExchangeError(place + "：" + std::string(LocalName(node)) + " 应有北、东两个坐标");
    return {metres(numbers[0]), metres(numbers[1])};
}

std::optional<Point> File::Inner::child(const xml_node& node, const char* name, const std::string& place) const
{
    const auto found = ChildOf(node, name);
    return found ? std::optional(point(found, place)) : std::nullopt;
}

Element File::Inner::element(const xml_node& node, std::string place) const
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
    e.dirStart = NumberOf(node, e.kind == Element::Line ? "dir" : "dirStart", e.place);
    e.dirEnd = NumberOf(node, "dirEnd", e.place);
    if (e.kind == Element::Line) return e;

    const std::string rot = node.attribute("rot").as_string();
    if (rot != "cw" && rot != "ccw") throw ExchangeError(e.place + "：rot 应为 cw 或 ccw，现在是“" + rot + "”");
    e.clockwise = rot == "cw";
    if (e.kind == Element::Curve) {
        if (!e.center) throw ExchangeError(e.place + "：缺少 Center");
        e.radius = length(node, "radius", e.place);
        return e;
    }
    const std::string type = node.attribute("spiType").as_string();
    if (type != "clothoid")
        throw ExchangeError(e.place + "：缓和曲线的类型是“" + type + "”，只能导入回旋线（clothoid）");
    const auto radius = [&](const char* attribute) {
        auto value = RadiusOf(node, attribute, e.place);
        return metres(value);
    };
    e.radiusStart = radius("radiusStart");
    e.radiusEnd = radius("radiusEnd");
    if (!e.length) throw ExchangeError(e.place + "：缺少 length");
    return e;
}

void File::Inner::coordGeom(const xml_node& node, Alignment& road) const
{
    for (const auto& part : node.children()) {
        const auto name = std::string(LocalName(part));
        if (name.empty() || name == "Feature") continue;
        std::string place = "第" + std::to_string(road.elements.size() + 1) + "个单元（" + name + "）";
        if (name != "Line" && name != "Curve" && name != "Spiral")
            throw ExchangeError(place + "：不能导入这种单元，没有导入这条线路");
        road.elements.push_back(element(part, std::move(place)));
    }
}

Equation File::Inner::equation(const xml_node& node, std::size_t number) const
{
    const std::string place = "第" + std::to_string(number) + "个断链（StaEquation）";
    if (std::string_view(node.attribute("staIncrement").as_string()) == "decreasing")
        throw ExchangeError(place + "：桩号递减（staIncrement=\"decreasing\"），不能导入");
    const auto internal = length(node, "staInternal", place), ahead = length(node, "staAhead", place);
    if (!internal || !ahead) throw ExchangeError(place + "：缺少 " + (internal ? "staAhead" : "staInternal"));
    return {*internal, length(node, "staBack", place), *ahead};
}

std::optional<Profile> File::Inner::profAlign(const xml_node& node, Alignment& road) const
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
        const auto numbers = NumbersOf(part.text().get(), place);
        if (numbers.size() != 2) throw ExchangeError(place + "：应有桩号和高程两个数");
        GradePoint point{.station = metres(numbers[0]), .elevation = metres(numbers[1])};
        if (name != "PVI") {
            point.kind = name == "ParaCurve" ? GradePoint::Parabola : GradePoint::Circle;
            point.length = length(part, "length", place).value_or(0);
            const auto radius = length(part, "radius", place);
            if (point.kind == GradePoint::Circle && !radius) throw ExchangeError(place + "：缺少 radius");
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

}  // namespace

void File::Inner::profile(const xml_node& node, Alignment& road) const
{
    for (const auto& part : node.children()) {
        if (LocalName(part) == "ProfSurf")
            road.leftOut.push_back("没有导入 ProfSurf“" + std::string(part.attribute("name").as_string()) +
                                   "”：地面线不属于线路参数");
        if (LocalName(part) != "ProfAlign") continue;
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

Superelevation File::Inner::superelevation(const xml_node& node, Alignment& road) const
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
            if (LocalName(part) != station.name || IsBlankText(part.text().get())) continue;
            const auto numbers = NumbersOf(part.text().get(), "超高的 " + std::string(station.name));
            if (numbers.size() != 1) throw ExchangeError("超高的 " + std::string(station.name) + "：应是一个数");
            if (all.*station.member)
                road.leftOut.push_back("超高的 " + std::string(station.name) + " 给了不止一个，用了第一个");
            else
                all.*station.member = station.name == "FullSuperelev" ? numbers[0] : metres(numbers[0]);
        }
    return all;
}

Alignment File::alignment(std::size_t index) const
{
    const auto& inner = *m_inner;
    const xml_node node = inner.alignments.at(index);
    Alignment road;
    road.name = node.attribute("name").as_string();
    road.own = std::string_view(ChildOf(inner.root, "Application").attribute("name").as_string()) == marks::kProgram;
    const auto start = inner.length(node, "staStart", "Alignment");
    if (!start) throw ExchangeError("线路“" + road.name + "”缺少 staStart");
    road.staStart = *start;
    for (const auto& part : node.children()) {
        const auto name = LocalName(part);
        if (name == "CoordGeom") {
            inner.coordGeom(part, road);
        } else if (name == "StaEquation") {
            road.equations.push_back(inner.equation(part, road.equations.size() + 1));
        } else if (name == "Profile") {
            inner.profile(part, road);
        } else if (name == "Superelevation") {
            road.superelevations.push_back(inner.superelevation(part, road));
        } else if (name == "AlignPIs") {
            for (const auto& vertex : part.children())
                if (const auto pi = ChildOf(vertex, "PI"))
                    road.vertices.push_back({pi.attribute("name").as_string(), inner.point(pi, "AlignPI")});
        } else if (name == "Feature" && std::string_view(part.attribute("name").as_string()) == marks::kTyped) {
            for (const auto& property : part.children())
                if (LocalName(property) == "Property")
                    road.typed.emplace_back(property.attribute("label").as_string(),
                                            property.attribute("value").as_string());
        } else if (name == "Cant" || name == "CrossSects") {
            road.leftOut.push_back("没有导入 " + std::string(name) + "：" +
                                   (name == "Cant" ? "轨道超高不属于线路参数" : "横断面不能变成线路参数"));
        } else if (!name.empty() && name != "Start" && name != "Feature") {
            road.leftOut.push_back("没有导入 " + std::string(name));
        }
    }
    if (road.elements.empty()) throw ExchangeError("线路“" + road.name + "”没有平面线形（CoordGeom 里没有单元）");
    return road;
}

}  // namespace landxml
