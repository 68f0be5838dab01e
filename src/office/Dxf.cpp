#include "office/Dxf.h"

#include "office/DxfGroups.h"
#include "office/DxfTables.h"

#include <map>
#include <variant>

namespace {

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
        WriteDxfTables(g, m_h, m_drawing, shown());
        blocks();
        entities();
        objects();
        g.text(0, "EOF");
        std::string body = g.take();
        header();
        return g.take() + body;
    }

private:
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
        g.begin("HEADER");
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
        g.end();
    }
    void variable(const char* name) { g.text(9, name); }

    void classes()
    {
        g.begin("CLASSES");
        g.text(0, "CLASS");
        g.text(1, "LAYOUT");
        g.text(2, "AcDbLayout");
        g.text(3, "ObjectDBX Classes");
        g.integer(90, 0);
        g.integer(280, 0);
        g.integer(281, 0);
        g.end();
    }

    // Blocks and entities. --------------------------------------------------------------------------------------
    void blocks()
    {
        g.begin("BLOCKS");
        block(m_h.modelSpace, {"*Model_Space", {}, {}}, false);
        block(m_h.paperSpace, {"*Paper_Space", {}, {}}, true);
        for (std::size_t i = 0; i < m_drawing.blocks.size(); ++i) block(m_h.blocks[i], m_drawing.blocks[i], false);
        g.end();
    }
    void block(DxfHandle owner, const Drawing::Block& block, bool paper)
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
        g.begin("ENTITIES");
        for (const auto& each : m_drawing.entities) write(each, m_h.modelSpace);
        g.end();
    }
    void entity(const char* type, DxfHandle owner, const char* subclass, bool paper = false)
    {
        g.text(0, type);
        g.handle(5, m_h.take());
        g.handle(330, owner);
        g.text(100, "AcDbEntity");
        if (paper) g.integer(67, 1);
        g.text(8, "0");
        g.text(100, subclass);
    }
    void write(const Drawing::Entity& each, DxfHandle owner)
    {
        std::visit([&](const auto& shape) { write(shape, owner); }, each);
    }
    void write(const Drawing::Polyline& polyline, DxfHandle owner)
    {
        entity("LWPOLYLINE", owner, "AcDbPolyline");
        g.integer(90, static_cast<long>(polyline.points.size()));
        g.integer(70, 0);
        g.real(43, 0);
        for (const auto& [x, y] : polyline.points) g.point(10, x, y);
    }
    void write(const Drawing::Line& line, DxfHandle owner)
    {
        entity("LINE", owner, "AcDbLine");
        g.point(10, line.from.x, line.from.y, 0);
        g.point(11, line.to.x, line.to.y, 0);
    }
    void write(const Drawing::Circle& circle, DxfHandle owner)
    {
        entity("CIRCLE", owner, "AcDbCircle");
        g.point(10, circle.centre.x, circle.centre.y, 0);
        g.real(40, circle.radius);
    }
    void write(const Drawing::Text& text, DxfHandle owner)
    {
        entity("TEXT", owner, "AcDbText");
        g.point(10, text.at.x, text.at.y, 0);
        g.real(40, text.height);
        g.name(1, text.text);
        g.name(7, m_drawing.textStyle(text.style) ? text.style : "Standard");
        g.text(100, "AcDbText");
    }
    void write(const Drawing::Insert& insert, DxfHandle owner)
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
        g.begin("OBJECTS");
        dictionary(m_h.rootDictionary, kNoHandle, {{"ACAD_GROUP", m_h.groups}, {"ACAD_LAYOUT", m_h.layouts}});
        dictionary(m_h.groups, m_h.rootDictionary, {});
        dictionary(m_h.layouts, m_h.rootDictionary, {{"Layout1", m_h.paperLayout}, {"Model", m_h.modelLayout}});
        layout(m_h.modelLayout, "Model", 0, 1024, m_h.modelSpace);
        layout(m_h.paperLayout, "Layout1", 1, 688, m_h.paperSpace);
        g.end();
    }
    void dictionary(DxfHandle own, DxfHandle owner, const std::map<std::string, DxfHandle>& entries)
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
    void layout(DxfHandle own, const char* name, int tab, int plotFlags, DxfHandle record)
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
    DxfHandles m_h;
    DxfGroups g;
};

}  // namespace

std::string DxfBytes(const Drawing& drawing) { return DxfWriter(drawing).write(); }
