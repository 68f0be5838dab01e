#include "app/Icons.h"

#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPalette>
#include <QPixmap>

#include <charconv>

namespace {

constexpr double kGrid = 24;
constexpr double kStroke = 1.6;
constexpr QRgb kAccent = 0xFFD9480F;

// Strokes in a small language, blanks between all words: M x y, L x y, C x1 y1 x2 y2 x y, Z, O cx cy r (a circle).
struct Drawing {
    std::string_view command;
    const char* ink;     ///< strokes in the colour of text
    const char* accent;  ///< strokes in the accent colour
    const char* fill;    ///< surfaces in the accent colour
};

constexpr Drawing kDrawings[] = {
    // a pencil on a winding road
    {"EditProject", "M 2.5 21 C 6 13 9.5 24 13.5 19.5 C 16 16.5 18.5 18 21.5 21",
     "M 8.5 14.5 L 9.8 10.2 L 17.5 2.5 L 20.8 5.8 L 13.1 13.5 Z M 15.2 4.8 L 18.5 8.1", ""},
    // one point between the axes of north and east
    {"ClacOne", "M 4.5 2.5 L 4.5 19.5 L 21.5 19.5 M 2.3 5 L 4.5 2.5 L 6.7 5 M 19 17.3 L 21.5 19.5 L 19 21.7",
     "M 14.5 19.5 L 14.5 9 L 4.5 9", "O 14.5 9 2.8"},
    // stakes along a line, and a second row beside it
    {"pljs", "M 3 20 C 5 11 12 5 21 4", "M 11 21 C 12.5 16.5 16.5 12.8 21.5 12",
     "O 3.2 19.6 2.1 O 6.56 12.07 2.1 O 12.78 6.59 2.1 O 20.8 4 2.1"},
    // a point dropped onto a line
    {"Fs", "M 2 20.5 L 22 12.5 M 11.2 13.6 L 13.4 12.7 L 14.3 15", "M 9 5 L 12.1 12.9", "O 9 5 2.9"},
    // a levelling staff and a height mark
    {"ClacOneGc",
     "M 13.5 2 L 20.5 2 L 20.5 22 L 13.5 22 Z M 13.5 6 L 17 6 M 13.5 10 L 18 10 M 13.5 14 L 17 14 M 13.5 18 L 18 18",
     "M 2 12.2 L 11 12.2", "M 2.8 5.5 L 9.2 5.5 L 6 11.5 Z"},
    // ordinates under a grade line
    {"pljsGc", "M 2 12.5 L 8.5 6 L 15 9.5 L 22 3 M 2 21.5 L 22 21.5",
     "M 4 21.5 L 4 10.7 M 8.5 21.5 L 8.5 6.2 M 13 21.5 L 13 8.6 M 17.5 21.5 L 17.5 7.4", ""},
    // the corners of a skew box across a road
    {"Jgwzb", "M 7.5 4.5 L 21 4.5 L 16.5 19.5 L 3 19.5 Z", "M 1.5 12 L 5 12 M 8.5 12 L 15.5 12 M 19 12 L 22.5 12",
     "O 7.5 4.5 2.2 O 21 4.5 2.2 O 16.5 19.5 2.2 O 3 19.5 2.2"},
    // there and back between two points
    {"Zbzfs", "M 4.5 14 L 14 4.5 M 9.6 4.5 L 14 4.5 L 14 8.9", "M 19.5 10 L 10 19.5 M 14.4 19.5 L 10 19.5 L 10 15.1",
     "O 4.2 19.8 2.6 O 19.8 4.2 2.6"},
    // a traverse between two known points
    {"Fhdx", "M 4.5 15.5 L 8.5 5 L 15.5 18.5 L 19.5 8",
     "M 4.5 13 L 7.8 19 L 1.2 19 Z M 19.5 5.5 L 22.8 11.5 L 16.2 11.5 Z", "O 8.5 5 2.2 O 15.5 18.5 2.2"},
    // an arc and its radius
    {"qlbjjs", "M 2 11.5 C 6 2.5 18 2.5 22 11.5", "M 12 20.5 L 17.6 7.2 M 14.2 9.2 L 17.6 7.2 L 18.6 11",
     "O 12 20.5 2.4"},
};

QPainterPath pathOf(std::string_view words)
{
    QPainterPath path;
    const auto number = [&] {
        words.remove_prefix(std::min(words.size(), words.find_first_not_of(' ')));
        double value = 0;
        const auto end = std::from_chars(words.data(), words.data() + words.size(), value).ptr;
        words.remove_prefix(static_cast<std::size_t>(end - words.data()));
        return value;
    };
    const auto point = [&] {
        const double x = number();
        return QPointF(x, number());
    };
    while (!words.empty()) {
        const char word = words.front();
        words.remove_prefix(1);
        if (word == 'M') path.moveTo(point());
        if (word == 'L') path.lineTo(point());
        if (word == 'C') {
            const QPointF first = point(), second = point();
            path.cubicTo(first, second, point());
        }
        if (word == 'Z') path.closeSubpath();
        if (word == 'O') {
            const QPointF centre = point();
            const double radius = number();
            path.addEllipse(centre, radius, radius);
        }
    }
    return path;
}

QPen pen(const QColor& color, double width = kStroke)
{
    return {color, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

/// Paints at any size; disabled in one grey.
class VectorIcon final : public QIconEngine {
public:
    using Painting = void (*)(QPainter& painter, const Drawing& drawing, bool enabled);
    VectorIcon(const Drawing& drawing, Painting painting) : m_drawing(drawing), m_painting(painting) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const double side = std::min(rect.width(), rect.height());
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.x() + (rect.width() - side) / 2, rect.y() + (rect.height() - side) / 2);
        painter->scale(side / kGrid, side / kGrid);
        m_painting(*painter, m_drawing, mode != QIcon::Disabled);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override
    {
        QPixmap map(size);
        map.fill(Qt::transparent);
        QPainter painter(&map);
        paint(&painter, map.rect(), mode, state);
        return map;
    }
    QIconEngine* clone() const override { return new VectorIcon(*this); }

private:
    Drawing m_drawing;
    Painting m_painting;
};

void paintCommand(QPainter& painter, const Drawing& drawing, bool enabled)
{
    const QColor text =
        QGuiApplication::palette().color(enabled ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    const QColor accent = enabled ? QColor(kAccent) : text;
    painter.strokePath(pathOf(drawing.ink), pen(text));
    painter.strokePath(pathOf(drawing.accent), pen(accent));
    painter.fillPath(pathOf(drawing.fill), accent);
}

/// A white road on blue with a stake in the accent colour.
void paintProgram(QPainter& painter, const Drawing& drawing, bool)
{
    QPainterPath tile;
    tile.addRoundedRect(QRectF(0.5, 0.5, kGrid - 1, kGrid - 1), 5, 5);
    painter.fillPath(tile, QColor(0xFF1F4E79));
    painter.strokePath(pathOf(drawing.ink), pen(Qt::white, 3));
    painter.strokePath(pathOf(drawing.accent), pen(QColor(0xFFFFA94D), 2));
    painter.fillPath(pathOf(drawing.fill), QColor(0xFFFFA94D));
}

}  // namespace

QIcon commandIcon(std::string_view command)
{
    for (const auto& drawing : kDrawings)
        if (drawing.command == command) return QIcon(new VectorIcon(drawing, paintCommand));
    return {};
}

QIcon programIcon()
{
    constexpr Drawing drawing{"", "M 5 20 C 6 11 10 12.5 13 9.5 C 15 7.5 15.5 6 16 4", "M 9.5 14.5 L 17.5 17.5",
                              "O 18 17.7 2.4"};
    return QIcon(new VectorIcon(drawing, paintProgram));
}
