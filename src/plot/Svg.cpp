#include "plot/Svg.h"

#include "plot/Angles.h"

#include <cmath>

namespace plot {

namespace {

std::string escaped(std::string_view text)
{
    std::string out;
    for (const char c : text) {
        if (c == '<')
            out += "&lt;";
        else if (c == '&')
            out += "&amp;";
        else if (c == '"')
            out += "&quot;";
        else if (static_cast<unsigned char>(c) >= 0x20)
            out += c;
    }
    return out;
}

std::string hex(Colour c)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "#";
    for (const int v : {c.r, c.g, c.b})
        text += {digits[static_cast<std::size_t>(v / 16)], digits[static_cast<std::size_t>(v % 16)]};
    return text;
}

class SvgWriter {
public:
    explicit SvgWriter(const Sheet& sheet) : m_sheet(sheet) {}

    std::string write()
    {
        const std::string w = number(m_sheet.paper.width), h = number(m_sheet.paper.height);
        m_out = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" version=\"1.1\" "
                "width=\"" +
                w + "mm\" height=\"" + h + "mm\" viewBox=\"0 0 " + w + " " + h + "\">\n<rect width=\"" + w +
                "\" height=\"" + h +
                "\" fill=\"#ffffff\"/>\n<g fill=\"none\" stroke-linecap=\"round\" stroke-linejoin=\"round\" "
                "font-family=\"'Noto Sans CJK SC','Microsoft YaHei','SimHei',sans-serif\">\n";
        int clip = 0;
        for (const auto& part : m_sheet.parts) {
            if (part.window) {
                const Box& box = *part.window;
                ++clip;
                m_out += "<clipPath id=\"window" + std::to_string(clip) + "\"><rect x=\"" + number(box.low.x) +
                         "\" y=\"" + number(m_sheet.paper.height - box.high.y) + "\" width=\"" + number(box.width()) +
                         "\" height=\"" + number(box.height()) + "\"/></clipPath>\n<g clip-path=\"url(#window" +
                         std::to_string(clip) + ")\">\n";
            }
            write(part);
            if (part.window) m_out += "</g>\n";
        }
        return m_out + "</g>\n</svg>\n";
    }

private:
    /// What lies beyond the window is left out, what crosses its edge is cut by the reader.
    void write(const SheetPart& part)
    {
        const Layer* open = nullptr;
        for (const auto& entity : part.picture.entities) {
            if (part.window && !meets(entity, *part.window)) continue;
            if (!open || *open != entity.layer) {
                if (open) m_out += "</g>\n";
                const auto& look = lookOf(entity.layer);
                m_out += "<g class=\"" + std::string(look.name) + "\" stroke=\"" + hex(look.colour) +
                         "\" stroke-width=\"" + number(look.width) + "\"" +
                         (look.dashed ? " stroke-dasharray=\"2.4 1.2\"" : "") + ">\n";
                open = &entity.layer;
            }
            std::visit([&](const auto& shape) { write(shape, entity.layer); }, entity.shape);
        }
        if (open) m_out += "</g>\n";
    }
    static bool meets(const Entity& entity, const Box& window)
    {
        Picture one;
        one.entities.push_back(entity);
        return extents(one).meets(window);
    }

    static std::string number(double v) { return shortest(v, 4); }
    std::string place(Point p) const { return number(p.x) + " " + number(m_sheet.paper.height - p.y); }
    void path(const std::string& d, const std::string& more = {}) { m_out += "<path d=\"" + d + "\"" + more + "/>\n"; }

    void write(const Polyline& line, Layer)
    {
        std::string d = "M" + place(line.points.front());
        for (std::size_t i = 1; i < line.points.size(); ++i) d += "L" + place(line.points[i]);
        path(d + (line.closed ? "Z" : ""));
    }
    void write(const Arc& arc, Layer)
    {
        if (arc.to - arc.from >= 360) {
            m_out += "<circle cx=\"" + number(arc.centre.x) + "\" cy=\"" + number(m_sheet.paper.height - arc.centre.y) +
                     "\" r=\"" + number(arc.radius) + "\"/>\n";
            return;
        }
        const std::string r = number(arc.radius), large = arc.to - arc.from > 180 ? " 1" : " 0";
        // Anticlockwise on paper, where y runs up, is the sweep flag 0 of a picture whose y runs down.
        path("M" + place(arc.centre + arc.radius * directionOf(arc.from)) + "A" + r + " " + r + " 0" + large + " 0 " +
             place(arc.centre + arc.radius * directionOf(arc.to)));
    }
    void write(const Fill& fill, Layer)
    {
        std::string d = "M" + place(fill.points.front());
        for (std::size_t i = 1; i < fill.points.size(); ++i) d += "L" + place(fill.points[i]);
        path(d + "Z", " fill=\"" + hex(fill.colour) + "\" stroke=\"none\"");
    }
    void write(const Text& text, Layer layer)
    {
        // A baseline half a digit below the middle.
        const Point at = text.at - text.height / 2 * directionOf(text.rotation + 90);
        const std::string x = number(at.x), y = number(m_sheet.paper.height - at.y);
        const char* anchor = text.align == Align::Left ? "start" : text.align == Align::Centre ? "middle" : "end";
        m_out +=
            "<text x=\"" + x + "\" y=\"" + y + "\" font-size=\"" + number(text.height * kEm) + "\" text-anchor=\"" +
            anchor + "\" fill=\"" + hex(lookOf(layer).colour) + "\" stroke=\"none\"" +
            (text.rotation != 0 ? " transform=\"rotate(" + number(-text.rotation) + " " + x + " " + y + ")\"" : "") +
            ">" + escaped(text.text) + "</text>\n";
    }

    const Sheet& m_sheet;
    std::string m_out;
};

}  // namespace

std::string svgOf(const Sheet& sheet) { return SvgWriter(sheet).write(); }

}  // namespace plot
