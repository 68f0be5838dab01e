#include "views/PlanArea.h"

#include "plot/Sheets.h"
#include "views/PicturePainter.h"

#include <QPainter>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>

using namespace plot;

namespace {

constexpr double kNearest = 1000;  // pixels a metre

}  // namespace

void PlanArea::setRoad(const Road* road)
{
    m_road = road;
    m_plan.reset();
    if (road) m_plan.emplace(*road);
    m_picked.reset();
    m_pin.reset();
    if (m_all) showAll();
    update();
}

void PlanArea::setOther(const Road* other)
{
    m_other = other;
    if (m_all) showAll();
    update();
}

void PlanArea::setMarked(std::vector<Marked> marked)
{
    m_marked = std::move(marked);
    update();
}

void PlanArea::setStale(const Stale& stale)
{
    m_stale = stale;
    update();
}

void PlanArea::pick(std::optional<std::size_t> element)
{
    m_picked = element;
    update();
}

void PlanArea::pin(std::optional<Point> where)
{
    m_pin = where;
    update();
}

double PlanArea::scaleFor(const Box& box) const
{
    const double room = 60;
    return std::clamp(std::min((width() - 2 * room) / std::max(box.width(), 1.0),
                               (height() - 2 * room) / std::max(box.height(), 1.0)),
                      1e-5, kNearest);
}

void PlanArea::fit(const Box& box)
{
    if (box.empty() || width() < 2) return;
    m_toScreen.scale = scaleFor(box);
    m_toScreen.shift = {};
    const Point middle = m_toScreen(box.centre());
    m_toScreen.shift = Point{width() / 2.0, height() / 2.0} - middle;
}

void PlanArea::showAll()
{
    m_all = true;
    if (!m_road) return;
    Box box = m_road->box();
    if (m_other) {
        const Point shift = m_other->origin() - m_road->origin();
        // A road of another region would leave nothing to be seen of this one.
        const Box there{m_other->box().low + shift, m_other->box().high + shift};
        if (box.grown(std::max(box.width(), box.height()) * 3).meets(there)) box.add(there);
    }
    fit(box);
    update();
}

void PlanArea::zoomAt(QPointF where, double factor)
{
    // Farther out than this the road is a dot that nobody finds again.
    const double farthest =
        m_road && !m_road->empty() ? std::min(scaleFor(m_road->box()) / 16, m_toScreen.scale) : 1e-5;
    const double wanted = std::clamp(m_toScreen.scale * factor, farthest, kNearest);
    const Point fixed = local(where);
    m_all = false;
    m_toScreen.scale = wanted;
    const Point now = m_toScreen(fixed);
    m_toScreen.shift = m_toScreen.shift + Point{where.x() - now.x, where.y() - now.y};
    update();
}

void PlanArea::moveBy(QPointF pixels)
{
    m_all = false;
    m_toScreen.shift = m_toScreen.shift + Point{pixels.x(), pixels.y()};
    update();
}

void PlanArea::flyTo(Point where, double pxPerMetre)
{
    m_all = false;
    m_toScreen.scale = pxPerMetre;
    const Point now = m_toScreen(where);
    m_toScreen.shift = m_toScreen.shift + Point{width() / 2.0 - now.x, height() / 2.0 - now.y};
    update();
}

void PlanArea::bringIntoSight(const Box& box)
{
    const Point a = m_toScreen(box.low), b = m_toScreen(box.high);
    const QRectF seen(0, 0, width(), height());
    const QRectF there = QRectF(QPointF(a.x, a.y), QPointF(b.x, b.y)).normalized();
    if (seen.contains(there) && std::max(there.width(), there.height()) > 12) return;
    m_all = false;
    fit(box);
    update();
}

void PlanArea::resizeEvent(QResizeEvent* event)
{
    if (m_all) return showAll();
    const QSize by = event->size() - event->oldSize();
    m_toScreen.shift = m_toScreen.shift + Point{by.width() / 2.0, by.height() / 2.0};
}

PlanView PlanArea::view() const
{
    PlanView view;
    const Point corners[] = {local({0, double(height())}), local({double(width()), double(height())}),
                             local({double(width()), 0}), local({0, 0})};
    for (const Point p : corners) {
        view.window.add(p);
        view.room.push_back(p);
    }
    view.mm = kPxPerMm / m_toScreen.scale;
    view.tolerance = 0.4 / m_toScreen.scale;
    view.picked = m_picked;
    view.marked = m_marked;
    view.other = m_other;
    view.stale = m_stale;
    const auto block = [&](QRectF area) {
        view.blocked.push_back(
            {local(area.bottomLeft()), local(area.bottomRight()), local(area.topRight()), local(area.topLeft())});
    };
    block(QRectF(width() - 66, 0, 66, 100));
    block(legendRoom());
    block(QRectF(0, height() - 66, 260, 66));
    return view;
}

/// Two columns of five lines.
QRectF PlanArea::legendRoom() { return {0, 0, kPxPerMm * 56, kPxPerMm * 26.5}; }

void PlanArea::paint(QPainter& painter)
{
    if (!m_plan || m_road->empty()) {
        painter.setPen(QColor(0x70, 0x75, 0x7C));
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("没有平曲线参数"));
        return;
    }
    const PlanView shown = view();
    const Box screen{{-40, -40}, {width() + 40.0, height() + 40.0}};
    paintPicture(painter, clipped(transformed(m_plan->picture(shown), m_toScreen), screen, 0.3), kPxPerMm);

    // What belongs to the window and not to the road.
    const auto at = [&](const Picture& picture, QPointF where) {
        Transform by{1, 0, kPxPerMm, {where.x(), where.y()}, true};
        paintPicture(painter, transformed(picture, by), kPxPerMm);
    };
    painter.setPen(QColor(0xD0, 0xD5, 0xDB));
    painter.setBrush(QColor(255, 255, 255, 235));
    painter.drawRect(legendRoom().adjusted(0.5, 0.5, -0.5, -0.5));
    const Picture bar = scaleBar(shown.mm);
    const Box wide = extents(bar);  // mm; the road may run beneath its numbers
    const QPointF barAt(24, height() - 36.0);
    painter.setPen(Qt::NoPen);
    painter.drawRect(QRectF(barAt.x() + kPxPerMm * wide.low.x, barAt.y() - kPxPerMm * wide.high.y,
                            kPxPerMm * wide.width(), kPxPerMm * wide.height())
                         .adjusted(-4, -2, 4, 4));
    at(planLegend(*m_road, shown), {4, kPxPerMm * 32.5});
    at(northArrow(0), {width() - 34.0, 52});
    at(bar, barAt);
    if (m_pin) {
        const QPointF p = onScreen(*m_pin);
        painter.setPen(QPen(QColor(230, 40, 140), 1.6));
        painter.drawEllipse(p, 6, 6);
        painter.drawLine(p - QPointF(12, 0), p + QPointF(12, 0));
        painter.drawLine(p - QPointF(0, 12), p + QPointF(0, 12));
    }
}
