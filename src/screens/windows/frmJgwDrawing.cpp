#include "screens/windows/frmJgwDrawing.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "ui/Theme.h"

#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace {

double numberOr(const std::string& text, double otherwise)
{
    try {
        const double value = ParseNumber(text);
        return std::isfinite(value) ? value : otherwise;
    } catch (const RunTimeError&) {
        return otherwise;
    }
}

/// A text that keeps clear of the line under it.
void label(QPainter& painter, QPointF at, const QString& text, const QColor& colour)
{
    const QFontMetricsF metrics(painter.font());
    QRectF place(0, 0, metrics.horizontalAdvance(text) + 4, metrics.height());
    place.moveCenter(at);
    painter.fillRect(place, QColor(255, 255, 255, 220));
    painter.setPen(colour);
    painter.drawText(place, Qt::AlignCenter, text);
}

}  // namespace

frmJgwDrawing::frmJgwDrawing(QWidget* parent) : QWidget(parent)
{
    setToolTip(u"路线向右前进。K前、K后沿路线量，Z左、Z右向两侧量。"_s);
    setAccessibleName(u"结构物示意图"_s);
}

void frmJgwDrawing::follow(const JgwInput& in)
{
    m_size = {numberOr(in.kq, 5), numberOr(in.kh, 5), numberOr(in.zz, 8), numberOr(in.zy, 8)};
    m_angle = in.skewed ? WorkingAngle(numberOr(in.skew, 60)) : 90;
    m_skewEnds = in.skewEnds;
    update();
}

void frmJgwDrawing::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), Qt::white);
    painter.setPen(QColor(0xC8, 0xCD, 0xD3));
    painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));

    // The road runs to the right: X of the plane is to the right, Y downwards.
    const auto corners = StructureCorners({0, 0}, 0, m_size, m_angle, m_skewEnds);
    double reach = 0;
    for (const auto& corner : corners) reach = std::max({reach, std::abs(corner.x) / 1.5, std::abs(corner.y)});
    if (!(reach > 0) || !std::isfinite(reach)) return label(painter, QRectF(rect()).center(), u"—"_s, Qt::gray);
    const QPointF centre = QRectF(rect()).center();
    const double scale = (height() / 2.0 - 26) / reach;
    const auto at = [&](double x, double y) { return centre + QPointF(x, y) * scale; };

    const QColor road(0x8A, 0x93, 0x9E), body(0x1F, 0x5F, 0xA8), length(0xB4, 0x53, 0x09);
    painter.setPen(QPen(road, 1.2, Qt::DashDotLine));
    painter.drawLine(QPointF(8, centre.y()), QPointF(width() - 10, centre.y()));
    QPainterPath arrow(QPointF(width() - 6, centre.y()));
    arrow.lineTo(width() - 14, centre.y() - 4);
    arrow.lineTo(width() - 14, centre.y() + 4);
    painter.fillPath(arrow, road);

    const QPolygonF outline({at(corners[0].x, corners[0].y), at(corners[1].x, corners[1].y),
                             at(corners[3].x, corners[3].y), at(corners[2].x, corners[2].y)});
    painter.setPen(QPen(body, 1.6));
    painter.setBrush(QColor(0x1F, 0x5F, 0xA8, 28));
    painter.drawPolygon(outline);

    // Half lengths to the middles of the ends, half widths to the middles of the sides.
    const auto partOf = [](double part, double whole) { return part + whole == 0 ? 0.5 : part / (part + whole); };
    const auto between = [&](std::size_t a, std::size_t b, double t) {
        return at(corners[a].x + (corners[b].x - corners[a].x) * t, corners[a].y + (corners[b].y - corners[a].y) * t);
    };
    const double leftShare = partOf(m_size.zz, m_size.zy), frontShare = partOf(m_size.kq, m_size.kh);
    const struct {
        QPointF end;
        QString name;
        bool beyond;  ///< the name stands beyond the end, clear of a narrow structure
    } lengths[] = {{between(0, 1, leftShare), u"K前"_s, true},
                   {between(2, 3, leftShare), u"K后"_s, true},
                   {between(0, 2, frontShare), u"Z左"_s, false},
                   {between(1, 3, frontShare), u"Z右"_s, false}};
    painter.setPen(QPen(length, 1.4));
    for (const auto& line : lengths) painter.drawLine(centre, line.end);
    painter.setBrush(length);
    painter.drawEllipse(centre, 2.5, 2.5);
    for (const auto& [end, name, beyond] : lengths) {
        const QPointF along = end - centre;
        const double share = beyond ? 1 + 22 / std::max(1.0, std::hypot(along.x(), along.y())) : 0.55;
        label(painter, centre + along * share, name, length);
    }

    for (std::size_t i = 0; i < corners.size(); ++i) {
        const QPointF p = at(corners[i].x, corners[i].y);
        const QPointF out = p - centre;
        const double far = std::max(1.0, std::hypot(out.x(), out.y()));
        painter.setBrush(body);
        painter.setPen(Qt::NoPen);
        painter.drawEllipse(p, 2.5, 2.5);
        label(painter, p + QPointF(out.x() / far * 30, out.y() / far * 12), QString::fromUtf8(kCornerNames[i]), body);
    }
}
