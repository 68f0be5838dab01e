#include "views/PicturePainter.h"

#include "plot/Angles.h"

#include <QBuffer>
#include <QFontDatabase>
#include <QPageLayout>
#include <QPageSize>
#include <QPainterPath>
#include <QPdfWriter>

#include <cmath>

namespace {

using namespace plot;

QColor colourOf(Colour c) { return {c.r, c.g, c.b}; }

class Painting {
public:
    Painting(QPainter& painter, double pxPerMm) : m_painter(painter), m_pxPerMm(pxPerMm) {}

    void all(const Picture& picture)
    {
        for (const auto& [layer, shape] : picture.entities) {
            if (!m_layer || *m_layer != layer) use(layer);
            std::visit([&](const auto& each) { paint(each); }, shape);
        }
    }

private:
    void use(Layer layer)
    {
        m_layer = layer;
        const auto& look = lookOf(layer);
        QPen pen(colourOf(look.colour), std::max(look.width * m_pxPerMm, 0.8), Qt::SolidLine, Qt::RoundCap,
                 Qt::RoundJoin);
        if (look.dashed) {
            const double unit = pen.widthF();
            pen.setCapStyle(Qt::FlatCap);
            pen.setDashPattern({2.4 * m_pxPerMm / unit, 1.2 * m_pxPerMm / unit});
        }
        m_painter.setPen(pen);
        m_painter.setBrush(Qt::NoBrush);
    }
    static QPolygonF polygon(const std::vector<Point>& points)
    {
        QPolygonF polygon;
        polygon.reserve(static_cast<qsizetype>(points.size()));
        for (const Point p : points) polygon << QPointF(p.x, p.y);
        return polygon;
    }
    void paint(const Polyline& line)
    {
        if (line.closed)
            m_painter.drawPolygon(polygon(line.points));
        else if (line.points.size() == 2)
            m_painter.drawLine(QPointF(line.points[0].x, line.points[0].y),
                               QPointF(line.points[1].x, line.points[1].y));
        else
            m_painter.drawPolyline(polygon(line.points));
    }
    void paint(const Arc& arc) { m_painter.drawPolyline(polygon(flattened(arc, 0.1))); }
    void paint(const Fill& fill)
    {
        m_painter.save();
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(colourOf(fill.colour));
        // Neighbours share an edge: smoothed, a light seam would be left between them.
        m_painter.setRenderHint(QPainter::Antialiasing, false);
        m_painter.drawConvexPolygon(polygon(fill.points));
        m_painter.restore();
    }
    void paint(const Text& text)
    {
        QFont font = m_painter.font();
        // A font of 64 pixels, scaled: sizes between whole pixels keep their width.
        const double size = text.height * kEm;
        font.setPixelSize(64);
        const QString words = QString::fromStdString(text.text);
        const QFontMetricsF metrics(font);
        const double width = metrics.horizontalAdvance(words);
        m_painter.save();
        m_painter.setFont(font);
        m_painter.translate(text.at.x, text.at.y);
        m_painter.rotate(text.rotation);  // the picture's y runs down, and so does the painter's
        // The places of texts were reckoned with; a wider font is made as narrow as they need.
        const double room = textWidth(text.text) * text.height * 64 / size;
        m_painter.scale(size / 64 * (width > room ? room / width : 1), size / 64);
        const double left = text.align == Align::Left ? 0 : text.align == Align::Centre ? -width / 2 : -width;
        m_painter.drawText(QPointF(left, text.height * 64 / size / 2), words);
        m_painter.restore();
    }

    QPainter& m_painter;
    double m_pxPerMm;
    std::optional<Layer> m_layer;
};

Transform onPage(const Sheet& sheet, double pxPerMm)
{
    Transform by;
    by.scale = pxPerMm;
    by.downwards = true;
    by.shift = {0, sheet.paper.height * pxPerMm};
    return by;
}

}  // namespace

void paintPicture(QPainter& painter, const plot::Picture& picture, double pxPerMm)
{
    painter.setRenderHint(QPainter::Antialiasing);
    Painting(painter, pxPerMm).all(picture);
}

void paintSheet(QPainter& painter, const plot::Sheet& sheet, double pxPerMm)
{
    const plot::Transform by = onPage(sheet, pxPerMm);
    for (const auto& part : sheet.parts) {
        painter.save();
        if (part.window) {
            const plot::Point a = by(part.window->low), b = by(part.window->high);
            painter.setClipRect(QRectF(QPointF(a.x, b.y), QPointF(b.x, a.y)));
        }
        const auto picture = part.window ? clipped(part.picture, part.window->grown(3), 0.005) : part.picture;
        paintPicture(painter, transformed(picture, by), pxPerMm);
        painter.restore();
    }
}

QByteArray pdfOf(const std::vector<plot::Sheet>& sheets, const QString& title)
{
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(1200);
    writer.setTitle(title);
    writer.setCreator(QStringLiteral("Velumark"));
    QPainter painter;
    for (const auto& sheet : sheets) {
        const bool a3 = sheet.paper.name == "A3";
        writer.setPageLayout({QPageSize(a3 ? QPageSize::A3 : QPageSize::A4), QPageLayout::Landscape, QMarginsF(),
                              QPageLayout::Millimeter});
        if (&sheet == sheets.data())
            painter.begin(&writer);
        else
            writer.newPage();
        paintSheet(painter, sheet, 1200 / 25.4);
    }
    painter.end();
    return bytes;
}

QImage imageOf(const plot::Sheet& sheet, double dotsPerInch)
{
    const double pxPerMm = dotsPerInch / 25.4;
    QImage image(static_cast<int>(std::lround(sheet.paper.width * pxPerMm)),
                 static_cast<int>(std::lround(sheet.paper.height * pxPerMm)), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    paintSheet(painter, sheet, pxPerMm);
    return image;
}
