#include "office/Dxf.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <utility>
#include <vector>

namespace {

using Handle = unsigned;
constexpr Handle kNone = 0;

/// A text as one line: ^J and the like stand for control characters.
std::string oneLine(const std::string& text)
{
    std::string line;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20)
            line += {'^', static_cast<char>(byte + 0x40)};
        else if (c == '^')
            line += "^ ";
        else
            line += c;
    }
    return line;
}

/// Group codes and values, a line each.
class Groups {
public:
    void text(int code, const std::string& value)
    {
        const std::string number = std::to_string(code);
        m_bytes.append(number.size() < 3 ? 3 - number.size() : 0, ' ').append(number).append("\r\n");
        m_bytes.append(value).append("\r\n");
    }
    void name(int code, const std::string& utf8) { text(code, oneLine(utf8)); }
    void integer(int code, long value) { text(code, std::to_string(value)); }
    void handle(int code, Handle value)
    {
        char buffer[16];
        const auto end = std::to_chars(buffer, buffer + sizeof buffer, value, 16).ptr;
        std::string digits(buffer, end);
        for (char& c : digits)
            if (c >= 'a') c = static_cast<char>(c - 'a' + 'A');
        text(code, digits);
    }
    void real(int code, double value)
    {
        char buffer[400];
        std::string digits(buffer,
                           std::to_chars(buffer, buffer + sizeof buffer, value + 0.0, std::chars_format::fixed).ptr);
        if (digits.find('.') == std::string::npos) digits += ".0";
        text(code, digits);
    }
    void point(int code, double x, double y)
    {
        real(code, x);
        real(code + 10, y);
    }
    void point(int code, double x, double y, double z)
    {
        point(code, x, y);
        real(code + 20, z);
    }
    std::string take() { return std::move(m_bytes); }

private:
    std::string m_bytes;
};

/// Handles are given out in this order, so that each record can name the others before they are written.
struct Handles {
    Handle next = 1;
    Handle take() { return next++; }

    Handle vportTable = take(), ltypeTable = take(), layerTable = take(), styleTable = take(), viewTable = take(),
           ucsTable = take(), appidTable = take(), dimstyleTable = take(), blockTable = take();
    Handle rootDictionary = take(), groups = take(), layouts = take(), modelLayout = take(), paperLayout = take();
    Handle modelSpace = take(), paperSpace = take();
    std::vector<Handle> blocks;  ///< records of the drawing's blocks
};

class DxfWriter {
public:
    explicit DxfWriter(const Drawing& drawing) : m_drawing(drawing), m_extents(ExtentsOf(drawing))
    {
        for (std::size_t i = 0; i < drawing.blocks.size(); ++i) m_h.blocks.push_back(m_h.take());
    }

    std::string write()
    {
        // The header names the first free handle, so it is written last and put in front.
        classes();
        tables();
        blocks();
        entities();
        objects();
        g.text(0, "EOF");
        std::string body = g.take();
        header();
        return g.take() + body;
    }

private:
    void begin(const char* section)
    {
        g.text(0, "SECTION");
        g.text(2, section);
    }
    void end() { g.text(0, "ENDSEC"); }

    DrawingExtents shown() const
    {
        DrawingExtents all = m_extents;
        if (all.empty) {
            all.add({0, 0});
            all.add({420, 297});
        }
        return all;
    }
    std::string activeStyle() const
    {
        return m_drawing.textStyle(m_drawing.activeStyle) ? m_drawing.activeStyle : "Standard";
    }

    void header()
    {
        const auto all = shown();
        begin("HEADER");
        variable("$ACADVER");
        g.text(1, "AC1021");
        variable("$DWGCODEPAGE");
        g.text(3, "ANSI_936");
        variable("$INSBASE");
        g.point(10, 0, 0, 0);
        variable("$EXTMIN");
        g.point(10, all.low.x, all.low.y, 0);
        variable("$EXTMAX");
        g.point(10, all.high.x, all.high.y, 0);
        variable("$LTSCALE");
        g.real(40, 1);
        variable("$TEXTSTYLE");
        g.name(7, activeStyle());
        variable("$CLAYER");
        g.text(8, "0");
        variable("$LUNITS");
        g.integer(70, 2);
        variable("$LUPREC");
        g.integer(70, 4);
        variable("$INSUNITS");
        g.integer(70, 0);
        variable("$MEASUREMENT");
        g.integer(70, 1);
        variable("$TILEMODE");
        g.integer(70, 1);
        variable("$HANDSEED");
        g.handle(5, m_h.next);
        end();
    }
    void variable(const char* name) { g.text(9, name); }

    void classes()
    {
        begin("CLASSES");
        g.text(0, "CLASS");
        g.text(1, "LAYOUT");
        g.text(2, "AcDbLayout");
        g.text(3, "ObjectDBX Classes");
        g.integer(90, 0);
        g.integer(280, 0);
        g.integer(281, 0);
        end();
    }

    // A table and its records. ----------------------------------------------------------------------------------
    void table(const char* name, Handle handle, long records)
    {
        g.text(0, "TABLE");
        g.text(2, name);
        g.handle(5, handle);
        g.handle(330, kNone);
        g.text(100, "AcDbSymbolTable");
        g.integer(70, records);
    }
    void endTable() { g.text(0, "ENDTAB"); }
    void record(const char* type, Handle table, const char* subclass, const std::string& name, int handleCode = 5)
    {
        record(type, m_h.take(), table, subclass, name, handleCode);
    }
    void record(const char* type, Handle own, Handle table, const char* subclass, const std::string& name,
                int handleCode = 5)
    {
        g.text(0, type);
        g.handle(handleCode, own);
        g.handle(330, table);
        g.text(100, "AcDbSymbolTableRecord");
        g.text(100, subclass);
        g.name(2, name);
    }

    void tables()
    {
        begin("TABLES");
        vports();
        ltypes();
        layers();
        styles();
        table("VIEW", m_h.viewTable, 0);
        endTable();
        table("UCS", m_h.ucsTable, 0);
        endTable();
        table("APPID", m_h.appidTable, 1);
        record("APPID", m_h.appidTable, "AcDbRegAppTableRecord", "ACAD");
        g.integer(70, 0);
        endTable();
        dimstyles();
        blockRecords();
        end();
    }

    /// The view of the model space: everything, with a margin of a twentieth.
    void vports()
    {
        const auto all = shown();
        const double width = all.high.x - all.low.x, height = all.high.y - all.low.y;
        constexpr double aspect = 1.5;
        double seen = std::max(height, width / aspect) * 1.1;
        if (seen <= 0) seen = 1;
        table("VPORT", m_h.vportTable, 1);
        record("VPORT", m_h.vportTable, "AcDbViewportTableRecord", "*Active");
        g.integer(70, 0);
        g.point(10, 0, 0);
        g.point(11, 1, 1);
        g.point(12, all.low.x + width / 2, all.low.y + height / 2);
        g.point(13, 0, 0);
        g.point(14, 10, 10);
        g.point(15, 10, 10);
        g.point(16, 0, 0, 1);
        g.point(17, 0, 0, 0);
        g.real(40, seen);
        g.real(41, aspect);
        g.real(42, 50);
        g.real(43, 0);
        g.real(44, 0);
        g.real(50, 0);
        g.real(51, 0);
        g.integer(71, 0);
        g.integer(72, 100);
        g.integer(73, 1);
        g.integer(74, 3);
        g.integer(75, 0);
        g.integer(76, 0);
        g.integer(77, 0);
        g.integer(78, 0);
        endTable();
    }

    void ltypes()
    {
        const std::pair<const char*, const char*> all[] = {
            {"ByBlock", ""}, {"ByLayer", ""}, {"Continuous", "Solid line"}};
        table("LTYPE", m_h.ltypeTable, 3);
        for (const auto& [name, description] : all) {
            record("LTYPE", m_h.ltypeTable, "AcDbLinetypeTableRecord", name);
            g.integer(70, 0);
            g.text(3, description);
            g.integer(72, 65);
            g.integer(73, 0);
            g.real(40, 0);
        }
        endTable();
    }

    void layers()
    {
        table("LAYER", m_h.layerTable, 1);
        record("LAYER", m_h.layerTable, "AcDbLayerTableRecord", "0");
        g.integer(70, 0);
        g.integer(62, 7);
        g.text(6, "Continuous");
        endTable();
    }

    void styles()
    {
        table("STYLE", m_h.styleTable, 1 + static_cast<long>(m_drawing.styles.size()));
        style("Standard");
        g.text(3, "txt");
        g.text(4, "");
        for (const auto& each : m_drawing.styles) {
            style(each.name);
            g.text(3, "");
            g.text(4, "");
            // An outline font: its name, then italic, bold, character set, pitch and family in one number.
            g.text(1001, "ACAD");
            g.name(1000, each.typeface);
            g.integer(1071, (each.bold ? 0x2000000 : 0) + (each.italic ? 0x1000000 : 0) + each.charSet * 0x100 +
                                each.pitchAndFamily);
        }
        endTable();
    }
    void style(const std::string& name)
    {
        record("STYLE", m_h.styleTable, "AcDbTextStyleTableRecord", name);
        g.integer(70, 0);
        g.real(40, 0);
        g.real(41, 1);
        g.real(50, 0);
        g.integer(71, 0);
        g.real(42, 2.5);
    }

    void dimstyles()
    {
        table("DIMSTYLE", m_h.dimstyleTable, 1);
        g.text(100, "AcDbDimStyleTable");
        record("DIMSTYLE", m_h.dimstyleTable, "AcDbDimStyleTableRecord", "Standard", 105);
        g.integer(70, 0);
        endTable();
    }

    void blockRecords()
    {
        const auto one = [&](Handle own, const std::string& name, Handle layout) {
            record("BLOCK_RECORD", own, m_h.blockTable, "AcDbBlockTableRecord", name);
            g.handle(340, layout);
        };
        table("BLOCK_RECORD", m_h.blockTable, 2 + static_cast<long>(m_drawing.blocks.size()));
        one(m_h.modelSpace, "*Model_Space", m_h.modelLayout);
        one(m_h.paperSpace, "*Paper_Space", m_h.paperLayout);
        for (std::size_t i = 0; i < m_drawing.blocks.size(); ++i) one(m_h.blocks[i], m_drawing.blocks[i].name, kNone);
        endTable();
    }

    // Blocks and entities. --------------------------------------------------------------------------------------
    void blocks()
    {
        begin("BLOCKS");
        block(m_h.modelSpace, {"*Model_Space", {}, {}}, false);
        block(m_h.paperSpace, {"*Paper_Space", {}, {}}, true);
        for (std::size_t i = 0; i < m_drawing.blocks.size(); ++i) block(m_h.blocks[i], m_drawing.blocks[i], false);
        end();
    }
    void block(Handle owner, const Drawing::Block& block, bool paper)
    {
        entity("BLOCK", owner, "AcDbBlockBegin", paper);
        g.name(2, block.name);
        g.integer(70, 0);
        g.point(10, block.base.x, block.base.y, 0);
        g.name(3, block.name);
        g.text(1, "");
        for (const auto& each : block.entities) write(each, owner);
        entity("ENDBLK", owner, "AcDbBlockEnd", paper);
    }

    void entities()
    {
        begin("ENTITIES");
        for (const auto& each : m_drawing.entities) write(each, m_h.modelSpace);
        end();
    }
    void entity(const char* type, Handle owner, const char* subclass, bool paper = false)
    {
        g.text(0, type);
        g.handle(5, m_h.take());
        g.handle(330, owner);
        g.text(100, "AcDbEntity");
        if (paper) g.integer(67, 1);
        g.text(8, "0");
        g.text(100, subclass);
    }
    void write(const Drawing::Entity& each, Handle owner)
    {
        std::visit([&](const auto& shape) { write(shape, owner); }, each);
    }
    void write(const Drawing::Polyline& polyline, Handle owner)
    {
        entity("LWPOLYLINE", owner, "AcDbPolyline");
        g.integer(90, static_cast<long>(polyline.points.size()));
        g.integer(70, 0);
        g.real(43, 0);
        for (const auto& [x, y] : polyline.points) g.point(10, x, y);
    }
    void write(const Drawing::Line& line, Handle owner)
    {
        entity("LINE", owner, "AcDbLine");
        g.point(10, line.from.x, line.from.y, 0);
        g.point(11, line.to.x, line.to.y, 0);
    }
    void write(const Drawing::Circle& circle, Handle owner)
    {
        entity("CIRCLE", owner, "AcDbCircle");
        g.point(10, circle.centre.x, circle.centre.y, 0);
        g.real(40, circle.radius);
    }
    void write(const Drawing::Text& text, Handle owner)
    {
        entity("TEXT", owner, "AcDbText");
        g.point(10, text.at.x, text.at.y, 0);
        g.real(40, text.height);
        g.name(1, text.text);
        g.name(7, m_drawing.textStyle(text.style) ? text.style : "Standard");
        g.text(100, "AcDbText");
    }
    void write(const Drawing::Insert& insert, Handle owner)
    {
        entity("INSERT", owner, "AcDbBlockReference");
        g.name(2, insert.block);
        g.point(10, insert.at.x, insert.at.y, 0);
        g.real(41, insert.scale);
        g.real(42, insert.scale);
        g.real(43, insert.scale);
        g.real(50, insert.rotation);
    }

    // Dictionaries and layouts. ---------------------------------------------------------------------------------
    void objects()
    {
        begin("OBJECTS");
        dictionary(m_h.rootDictionary, kNone, {{"ACAD_GROUP", m_h.groups}, {"ACAD_LAYOUT", m_h.layouts}});
        dictionary(m_h.groups, m_h.rootDictionary, {});
        dictionary(m_h.layouts, m_h.rootDictionary, {{"Layout1", m_h.paperLayout}, {"Model", m_h.modelLayout}});
        layout(m_h.modelLayout, "Model", 0, 1024, m_h.modelSpace);
        layout(m_h.paperLayout, "Layout1", 1, 688, m_h.paperSpace);
        end();
    }
    void dictionary(Handle own, Handle owner, const std::map<std::string, Handle>& entries)
    {
        g.text(0, "DICTIONARY");
        g.handle(5, own);
        g.handle(330, owner);
        g.text(100, "AcDbDictionary");
        g.integer(281, 1);
        for (const auto& [name, handle] : entries) {
            g.text(3, name);
            g.handle(350, handle);
        }
    }
    void layout(Handle own, const char* name, int tab, int plotFlags, Handle record)
    {
        const auto all = shown();
        g.text(0, "LAYOUT");
        g.handle(5, own);
        g.handle(330, m_h.layouts);
        g.text(100, "AcDbPlotSettings");
        g.text(1, "");
        g.text(2, "none_device");
        g.text(4, "ISO_A3_(420.00_x_297.00_MM)");
        g.text(6, "");
        for (int code = 40; code <= 43; ++code) g.real(code, 7.5);  // margins, mm
        g.real(44, 420);
        g.real(45, 297);
        for (int code : {46, 47, 48, 49, 140, 141}) g.real(code, 0);
        g.real(142, 1);
        g.real(143, 1);
        g.integer(70, plotFlags);
        g.integer(72, 1);
        g.integer(73, 0);
        g.integer(74, 1);
        g.text(7, "");
        g.integer(75, 0);
        g.real(147, 1);
        g.real(148, 0);
        g.real(149, 0);
        g.text(100, "AcDbLayout");
        g.text(1, name);
        g.integer(70, 1);
        g.integer(71, tab);
        g.point(10, 0, 0);
        g.point(11, 420, 297);
        g.point(12, 0, 0, 0);
        g.point(14, all.low.x, all.low.y, 0);
        g.point(15, all.high.x, all.high.y, 0);
        g.real(146, 0);
        g.point(13, 0, 0, 0);
        g.point(16, 1, 0, 0);
        g.point(17, 0, 1, 0);
        g.integer(76, 0);
        g.handle(330, record);
    }

    const Drawing& m_drawing;
    DrawingExtents m_extents;
    Handles m_h;
    Groups g;
};

}  // namespace

std::string DxfBytes(const Drawing& drawing) { return DxfWriter(drawing).write(); }
