#include "office/DxfTables.h"

#include <algorithm>
#include <utility>

namespace {

class TablesSection {
public:
    TablesSection(DxfGroups& groups, DxfHandles& handles, const Drawing& drawing, const DrawingExtents& shown)
        : g(groups), m_h(handles), m_drawing(drawing), m_shown(shown)
    {}

    void write()
    {
        g.begin("TABLES");
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
        g.end();
    }

private:
    void table(const char* name, DxfHandle handle, long records)
    {
        g.text(0, "TABLE");
        g.text(2, name);
        g.handle(5, handle);
        g.handle(330, kNoHandle);
        g.text(100, "AcDbSymbolTable");
        g.integer(70, records);
    }
    void endTable() { g.text(0, "ENDTAB"); }
    void record(const char* type, DxfHandle table, const char* subclass, const std::string& name, int handleCode = 5)
    {
        record(type, m_h.take(), table, subclass, name, handleCode);
    }
    void record(const char* type, DxfHandle own, DxfHandle table, const char* subclass, const std::string& name,
                int handleCode = 5)
    {
        g.text(0, type);
        g.handle(handleCode, own);
        g.handle(330, table);
        g.text(100, "AcDbSymbolTableRecord");
        g.text(100, subclass);
        g.name(2, name);
    }

    /// The view of the model space: everything, with a margin of a twentieth.
    void vports()
    {
        const auto all = m_shown;
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
        const auto one = [&](DxfHandle own, const std::string& name, DxfHandle layout) {
            record("BLOCK_RECORD", own, m_h.blockTable, "AcDbBlockTableRecord", name);
            g.handle(340, layout);
        };
        table("BLOCK_RECORD", m_h.blockTable, 2 + static_cast<long>(m_drawing.blocks.size()));
        one(m_h.modelSpace, "*Model_Space", m_h.modelLayout);
        one(m_h.paperSpace, "*Paper_Space", m_h.paperLayout);
        for (std::size_t i = 0; i < m_drawing.blocks.size(); ++i)
            one(m_h.blocks[i], m_drawing.blocks[i].name, kNoHandle);
        endTable();
    }

    DxfGroups& g;
    DxfHandles& m_h;
    const Drawing& m_drawing;
    const DrawingExtents& m_shown;
};

}  // namespace

void WriteDxfTables(DxfGroups& g, DxfHandles& h, const Drawing& drawing, const DrawingExtents& shown)
{
    TablesSection(g, h, drawing, shown).write();
}
