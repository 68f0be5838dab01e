#include "exchange/LandXml.h"

#include "exchange/ExchangeError.h"
#include "exchange/LandXmlNode.h"
#include "exchange/LandXmlReader.h"
#include "exchange/Marks.h"
#include "exchange/NumberText.h"
#include "exchange/XmlText.h"

#include <map>

namespace landxml {

using pugi::xml_node;

struct File::Inner {
    std::string text;  // the document points into it
    pugi::xml_document document;
    xml_node root;
    Reader read;
    std::vector<xml_node> alignments;
    std::vector<std::string> remarks;

    void collectPoints(const xml_node& groups);
};

File::~File() = default;
File::File(File&&) noexcept = default;
File& File::operator=(File&&) noexcept = default;

File::File(const std::string& path) : File(fromBytes(ReadXmlFile(path))) {}

void File::Inner::collectPoints(const xml_node& group)
{
    for (const auto& node : group.children()) {
        if (LocalName(node) == "CgPoint") read.points.try_emplace(node.attribute("name").as_string(), node);
        if (LocalName(node) == "CgPoints")
            for (const auto& inner : node.children())
                if (LocalName(inner) == "CgPoint") read.points.try_emplace(inner.attribute("name").as_string(), inner);
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
    inner.read.units = ReadUnits(inner.root);
    inner.remarks = inner.read.units.remarks;

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
AngleUnit File::directionUnit() const { return m_inner->read.units.direction.value_or(AngleUnit::Radians); }

std::vector<Summary> File::alignments() const
{
    std::vector<Summary> all;
    for (const auto& node : m_inner->alignments) {
        Summary road;
        road.name = node.attribute("name").as_string();
        attemptNumber([&] { road.staStart = m_inner->read.length(node, "staStart", ""); });
        attemptNumber([&] { road.length = m_inner->read.length(node, "length", ""); });
        for (const auto& part : node.children()) {
            if (LocalName(part) == "CoordGeom")
                for (const auto& element : part.children())
                    road.elements += !LocalName(element).empty() && LocalName(element) != "Feature";
            if (LocalName(part) == "Profile" && ChildOf(part, "ProfAlign")) road.profile = true;
        }
        all.push_back(road);
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
    const auto start = inner.read.length(node, "staStart", "Alignment");
    if (!start) throw ExchangeError("线路“" + road.name + "”缺少 staStart");
    road.staStart = *start;
    attemptNumber([&] { road.length = inner.read.length(node, "length", ""); });
    inner.read.profiles(node, road);
    for (const auto& part : node.children()) {
        const auto name = LocalName(part);
        if (name == "CoordGeom") {
            inner.read.coordGeom(part, road);
        } else if (name == "StaEquation") {
            road.equations.push_back(inner.read.equation(part, road.equations.size() + 1));
        } else if (name == "Superelevation") {
            road.superelevations.push_back(inner.read.superelevation(part, road));
        } else if (name == "AlignPIs") {
            // Only names come from here: the geometry is that of CoordGeom.
            for (const auto& vertex : part.children()) {
                if (ChildOf(vertex, "ConnSpiral"))
                    road.leftOut.emplace_back("没有用 AlignPI 里的 ConnSpiral：平面线形按 CoordGeom 导入");
                if (const auto pi = ChildOf(vertex, "PI"))
                    attemptNumber([&] {
                        road.vertices.push_back({pi.attribute("name").as_string(), inner.read.point(pi, "AlignPI")});
                    });
            }
        } else if (name == "Feature" && std::string_view(part.attribute("name").as_string()) == marks::kTyped) {
            for (const auto& property : part.children())
                if (LocalName(property) == "Property")
                    road.typed.emplace_back(property.attribute("label").as_string(),
                                            property.attribute("value").as_string());
        } else if (name == "Cant" || name == "CrossSects") {
            road.leftOut.push_back("没有导入 " + std::string(name) + "：" +
                                   (name == "Cant" ? "轨道超高不属于线路参数" : "横断面不能变成线路参数"));
        } else if (!name.empty() && name != "Start" && name != "Profile" && name != "Feature") {
            road.leftOut.push_back("没有导入 " + std::string(name));
        }
    }
    if (road.elements.empty()) throw ExchangeError("线路“" + road.name + "”没有平面线形（CoordGeom 里没有单元）");
    return road;
}

}  // namespace landxml
