#include "plot/Dxf.h"

#include "office/DxfGroups.h"
#include "plot/Angles.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <utility>

namespace plot {

namespace {

constexpr const char* kStyle = "HZ";

/// The nearest of the first seven colour numbers, for readers that know no others.
int colourNumber(Colour c)
{
    constexpr std::array<std::pair<int, Colour>, 8> kFirst{{{1, {255, 0, 0}},
                                                            {2, {255, 255, 0}},
                                                            {3, {0, 255, 0}},
                                                            {4, {0, 255, 255}},
                                                            {5, {0, 0, 255}},
                                                            {6, {255, 0, 255}},
                                                            {7, {0, 0, 0}},
                                                            {8, {128, 128, 128}}}};
    const auto far = [&](Colour o) {
        const auto square = [](int d) { return d * d; };
        return square(c.r - o.r) + square(c.g - o.g) + square(c.b - o.b);
    };
    return std::min_element(kFirst.begin(), kFirst.end(),
                            [&](const auto& a, const auto& b) { return far(a.second) < far(b.second); })
        ->first;
}

class DxfPicture {
public:
    DxfPicture(const Picture& picture, double mm) : m_picture(picture), m_mm(mm), m_box(extents(picture))
    {
        if (m_box.empty()) m_box.add(Point{});
    }

    std::string write()
    {
        // The header names the first free handle, so it is written last and put in front.
        classes();
        tables();
        blocks();
        g.begin("ENTITIES");
        for (const auto& [layer, shape] : m_picture.entities)
            std::visit([&, l = layer](const auto& each) { write(each, l); }, shape);
        g.end();
        objects();
        g.text(0, "EOF");
        const std::string body = g.take();
        header();
        return g.take() + body;
    }

private:
    Point world(Point p) const { return p + m_picture.origin; }

    void header()
    {
        const Point low = world(m_box.low), high = world(m_box.high);
        const auto variable = [&](const char* name) { g.text(9, name); };
        g.begin("HEADER");
        variable("$ACADVER");
        g.text(1, "AC1021");
        variable("$DWGCODEPAGE");
        g.text(3, "ANSI_936");
        variable("$EXTMIN");
        g.point(10, low.x, low.y, 0);
        variable("$EXTMAX");
        g.point(10, high.x, high.y, 0);
        // Paper in the drawing's unit: a reader that knows no layouts prints on A3 then, and not on 420 metres.
        variable("$PLIMMIN");
        g.point(10, 0, 0);
        variable("$PLIMMAX");
        g.point(10, 0.42, 0.297);
        variable("$LTSCALE");
        g.real(40, 1);
        variable("$INSUNITS");
        g.integer(70, 6);  // metres
        variable("$MEASUREMENT");
        g.integer(70, 1);
        variable("$LWDISPLAY");
        g.integer(290, 1);
        variable("$HANDSEED");
        g.handle(5, m_h.next);
        g.end();
    }
    void classes()
    {
        g.begin("CLASSES");
        g.end();
    }

    // Tables. ---------------------------------------------------------------------------------------------------------
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
    void record(const char* type, DxfHandle own, DxfHandle owner, const char* subclass, std::string_view name,
                int code = 5)
    {
        g.text(0, type);
        g.handle(code, own);
        g.handle(330, owner);
        g.text(100, "AcDbSymbolTableRecord");
        g.text(100, subclass);
        g.name(2, std::string(name));
    }
    void tables()
    {
        g.begin("TABLES");
        view();
        lineTypes();
        layers();
        table("STYLE", m_h.styleTable, 2);
        for (const char* name : {"Standard", kStyle}) {
            record("STYLE", m_h.take(), m_h.styleTable, "AcDbTextStyleTableRecord", name);
            g.integer(70, 0);
            g.real(40, 0);
            g.real(41, 1);
            g.real(50, 0);
            g.integer(71, 0);
            g.real(42, 2.5);
            g.text(3, name == kStyle ? "simhei.ttf" : "txt");
            g.text(4, "");
        }
        endTable();
        table("VIEW", m_h.viewTable, 0);
        endTable();
        table("UCS", m_h.ucsTable, 0);
        endTable();
        table("APPID", m_h.appidTable, 1);
        record("APPID", m_h.take(), m_h.appidTable, "AcDbRegAppTableRecord", "ACAD");
        g.integer(70, 0);
        endTable();
        table("DIMSTYLE", m_h.dimstyleTable, 1);
        g.text(100, "AcDbDimStyleTable");
        record("DIMSTYLE", m_h.take(), m_h.dimstyleTable, "AcDbDimStyleTableRecord", "Standard", 105);
        g.integer(70, 0);
        endTable();
        table("BLOCK_RECORD", m_h.blockTable, 2);
        record("BLOCK_RECORD", m_h.modelSpace, m_h.blockTable, "AcDbBlockTableRecord", "*Model_Space");
        g.handle(340, m_h.modelLayout);
        record("BLOCK_RECORD", m_h.paperSpace, m_h.blockTable, "AcDbBlockTableRecord", "*Paper_Space");
        g.handle(340, m_h.paperLayout);
        endTable();
        g.end();
    }
    void view()
    {
        const Point middle = world(m_box.centre());
        constexpr double aspect = 1.5;
        const double seen = std::max({m_box.height(), m_box.width() / aspect, 1e-3}) * 1.1;
        table("VPORT", m_h.vportTable, 1);
        record("VPORT", m_h.take(), m_h.vportTable, "AcDbViewportTableRecord", "*Active");
        g.integer(70, 0);
        g.point(10, 0, 0);
        g.point(11, 1, 1);
        g.point(12, middle.x, middle.y);
        g.point(13, 0, 0);
        g.point(14, 10, 10);
        g.point(15, 10, 10);
        g.point(16, 0, 0, 1);
        g.point(17, 0, 0, 0);
        g.real(40, seen);
        g.real(41, aspect);
        g.real(42, 50);
        for (int code : {43, 44, 50, 51}) g.real(code, 0);
        for (const auto& [code, value] :
             {std::pair{71, 0}, {72, 100}, {73, 1}, {74, 3}, {75, 0}, {76, 0}, {77, 0}, {78, 0}})
            g.integer(code, value);
        endTable();
    }
    void lineTypes()
    {
        table("LTYPE", m_h.ltypeTable, 4);
        for (const char* name : {"ByBlock", "ByLayer", "Continuous", "DASHED"}) {
            const bool dashed = std::string_view(name) == "DASHED";
            record("LTYPE", m_h.take(), m_h.ltypeTable, "AcDbLinetypeTableRecord", name);
            g.integer(70, 0);
            g.text(3, dashed ? "__ __ __" : "");
            g.integer(72, 65);
            g.integer(73, dashed ? 2 : 0);
            g.real(40, dashed ? 3.6 * m_mm : 0);
            if (!dashed) continue;
            for (const double dash : {2.4, -1.2}) {
                g.real(49, dash * m_mm);
                g.integer(74, 0);
            }
        }
        endTable();
    }
    void layers()
    {
        std::vector<LayerLook> used{};
        for (const auto& look : allLayers())
            if (std::any_of(m_picture.entities.begin(), m_picture.entities.end(),
                            [&](const Entity& e) { return e.layer == look.layer; }))
                used.push_back(look);
        table("LAYER", m_h.layerTable, static_cast<long>(used.size()) + 1);
        record("LAYER", m_h.take(), m_h.layerTable, "AcDbLayerTableRecord", "0");
        g.integer(70, 0);
        g.integer(62, 7);
        g.text(6, "Continuous");
        for (const auto& look : used) {
            record("LAYER", m_h.take(), m_h.layerTable, "AcDbLayerTableRecord", look.name);
            g.integer(70, 0);
            g.integer(62, colourNumber(look.colour));
            g.integer(420, trueColour(look.colour));
            g.text(6, look.dashed ? "DASHED" : "Continuous");
            g.integer(370, lineWeight(look.width));
        }
        endTable();
    }
    static long trueColour(Colour c) { return (static_cast<long>(c.r) << 16) | (static_cast<long>(c.g) << 8) | c.b; }
    /// The nearest weight that the format knows, in hundredths of a millimetre.
    static int lineWeight(double mm)
    {
        constexpr std::array kWeights{5, 9, 13, 15, 18, 20, 25, 30, 35, 40, 50, 53, 60, 70, 80, 90, 100};
        return *std::min_element(kWeights.begin(), kWeights.end(),
                                 [&](int a, int b) { return std::abs(a - mm * 100) < std::abs(b - mm * 100); });
    }

    // Blocks and entities. --------------------------------------------------------------------------------------------
    void blocks()
    {
        g.begin("BLOCKS");
        for (const bool paper : {false, true}) {
            const char* name = paper ? "*Paper_Space" : "*Model_Space";
            const DxfHandle owner = paper ? m_h.paperSpace : m_h.modelSpace;
            entity("BLOCK", "0", "AcDbBlockBegin", owner, paper);
            g.text(2, name);
            g.integer(70, 0);
            g.point(10, 0, 0, 0);
            g.text(3, name);
            g.text(1, "");
            entity("ENDBLK", "0", "AcDbBlockEnd", owner, paper);
        }
        g.end();
    }
    void entity(const char* type, std::string_view layer, const char* subclass, DxfHandle owner, bool paper = false)
    {
        g.text(0, type);
        g.handle(5, m_h.take());
        g.handle(330, owner);
        g.text(100, "AcDbEntity");
        if (paper) g.integer(67, 1);
        g.name(8, std::string(layer));
        if (subclass) g.text(100, subclass);
    }
    void entity(const char* type, Layer layer, const char* subclass)
    {
        entity(type, lookOf(layer).name, subclass, m_h.modelSpace);
    }
    void point(int code, Point p) { g.point(code, world(p).x, world(p).y, 0); }
    void write(const Polyline& line, Layer layer)
    {
        if (line.points.size() < 2) return;
        if (line.points.size() == 2) {
            entity("LINE", layer, "AcDbLine");
            point(10, line.points[0]);
            point(11, line.points[1]);
            return;
        }
        entity("LWPOLYLINE", layer, "AcDbPolyline");
        g.integer(90, static_cast<long>(line.points.size()));
        g.integer(70, line.closed ? 1 : 0);
        g.real(43, 0);
        for (const Point p : line.points) g.point(10, world(p).x, world(p).y);
    }
    void write(const Arc& arc, Layer layer)
    {
        const bool whole = arc.to - arc.from >= 360;
        entity(whole ? "CIRCLE" : "ARC", layer, "AcDbCircle");
        point(10, arc.centre);
        g.real(40, arc.radius);
        if (whole) return;
        g.text(100, "AcDbArc");
        // A reader's degrees are of the true circle, ours of the program's own pi.
        const auto degrees = [](double ours) {
            const double reader = std::remainder(ours, 360) * (kPi / std::numbers::pi);
            return reader < 0 ? reader + 360 : reader;
        };
        g.real(50, degrees(arc.from));
        g.real(51, degrees(arc.to));
    }
    void write(const Fill& fill, Layer layer)
    {
        entity("SOLID", layer, nullptr);
        g.integer(62, colourNumber(fill.colour));
        g.integer(420, trueColour(fill.colour));
        g.text(100, "AcDbTrace");
        const auto& p = fill.points;
        point(10, p[0]);
        point(11, p[1]);
        point(12, p.size() > 3 ? p[3] : p[2]);  // the corners cross over
        point(13, p[2]);
    }
    void write(const Text& text, Layer layer)
    {
        entity("TEXT", layer, "AcDbText");
        point(10, text.at);
        g.real(40, text.height);
        g.name(1, text.text);
        g.real(50, text.rotation);
        g.text(7, kStyle);
        g.integer(72, text.align == Align::Left ? 0 : text.align == Align::Centre ? 1 : 2);
        point(11, text.at);
        g.text(100, "AcDbText");
        g.integer(73, 2);  // the middle of the line
    }

    // Dictionaries and layouts. ---------------------------------------------------------------------------------------
    void dictionary(DxfHandle own, DxfHandle owner, std::initializer_list<std::pair<const char*, DxfHandle>> entries)
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
    void layout(DxfHandle own, const char* name, int tab, int flags, DxfHandle block)
    {
        g.text(0, "LAYOUT");
        g.handle(5, own);
        g.handle(330, m_h.layouts);
        g.text(100, "AcDbPlotSettings");
        g.text(1, "");
        g.text(2, "none_device");
        g.text(4, "ISO_A3_(420.00_x_297.00_MM)");
        g.text(6, "");
        for (int code = 40; code <= 43; ++code) g.real(code, 7.5);
        g.real(44, 420);
        g.real(45, 297);
        for (int code : {46, 47, 48, 49, 140, 141}) g.real(code, 0);
        g.real(142, 1);
        g.real(143, 1);
        for (const auto& [code, value] : {std::pair{70, flags}, {72, 1}, {73, 0}, {74, 1}}) g.integer(code, value);
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
        g.point(14, world(m_box.low).x, world(m_box.low).y, 0);
        g.point(15, world(m_box.high).x, world(m_box.high).y, 0);
        g.real(146, 0);
        g.point(13, 0, 0, 0);
        g.point(16, 1, 0, 0);
        g.point(17, 0, 1, 0);
        g.integer(76, 0);
        g.handle(330, block);
    }

    const Picture& m_picture;
    double m_mm;
    Box m_box;
    DxfHandles m_h;
    DxfGroups g;
};

}  // namespace

std::string dxfOf(const Picture& picture, double mm) { return DxfPicture(picture, mm).write(); }

}  // namespace plot
