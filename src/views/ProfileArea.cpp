#include "views/ProfileArea.h"

#include "views/PicturePainter.h"

#include <QPainter>
#include <QResizeEvent>

#include <algorithm>
#include <cmath>

using namespace plot;

namespace {

constexpr double kLargest = 4.1, kSmallest = 2.6;  // pixels a millimetre: bands take much of the height
constexpr double kLeastGraph = 32;                 // mm of height
constexpr double kLeft = kBandTitles + 1, kRight = 3, kTop = 3, kBottom = kBandsHeight + 1;  // mm around the graph

}  // namespace

/// Pixels a millimetre: a low window has smaller bands, not fewer.
double ProfileArea::scale() const { return std::clamp(height() / (kTop + kLeastGraph + kBottom), kSmallest, kLargest); }

double ProfileArea::graphWidth() const { return std::max(20.0, width() / scale() - kLeft - kRight); }

void ProfileArea::setRoad(const Road* road, double from, double to)
{
    m_road = road;
    m_first = from;
    m_last = std::max(to, from + 1);
    m_cursor.reset();
    if (m_all) return showAll();
    keepInside();
}

void ProfileArea::setStale(const Stale& stale)
{
    m_view.stale = stale;
    update();
}

void ProfileArea::setExaggeration(double times)
{
    m_wished = times;
    settle();
}

void ProfileArea::setCursor(std::optional<double> stake)
{
    m_cursor = stake;
    update();
}

void ProfileArea::showAll()
{
    m_all = true;
    m_view.from = m_first;
    m_view.to = m_last;
    settle();
}

void ProfileArea::keepInside()
{
    const double all = m_last - m_first, wide = std::clamp(m_view.to - m_view.from, 1.0, all);
    m_view.from = std::clamp(m_view.from, m_first, m_last - wide);
    m_view.to = m_view.from + wide;
    m_all = wide >= all;
    settle();
}

void ProfileArea::settle()
{
    m_view.mm = (m_view.to - m_view.from) / graphWidth();
    m_view.height = std::max(kLeastGraph, height() / scale() - kTop - kBottom);
    if (m_road) {
        fitHeights(m_road->tables(), m_view);
        if (m_wished > 0) {
            const double middle = m_view.datum + m_view.height * m_view.mm / m_view.exaggeration / 2;
            m_view.exaggeration = m_wished;
            m_view.datum = middle - m_view.height * m_view.mm / m_wished / 2;
        }
    }
    emit stretched();
    update();
}

void ProfileArea::flyTo(double stake)
{
    const double wide = std::min(m_view.to - m_view.from, 1000.0);
    m_view.from = stake - wide / 2;
    m_view.to = stake + wide / 2;
    keepInside();
}

void ProfileArea::zoomAt(QPointF where, double factor)
{
    const double stake = std::clamp(stakeAt(where), m_view.from, m_view.to);
    const double all = m_last - m_first, least = std::min(5.0, all);
    const double wide = std::clamp((m_view.to - m_view.from) / factor, least, all);
    const double share = (stake - m_view.from) / (m_view.to - m_view.from);
    m_view.from = stake - share * wide;
    m_view.to = m_view.from + wide;
    keepInside();
}

void ProfileArea::moveBy(QPointF pixels)
{
    const double by = -pixels.x() / scale() * m_view.mm;
    m_view.from += by;
    m_view.to += by;
    keepInside();
}

void ProfileArea::resizeEvent(QResizeEvent*) { settle(); }

Transform ProfileArea::toScreen() const
{
    const double px = scale();
    return {1, 0, px, {kLeft * px, (kTop + m_view.height) * px}, true};
}

double ProfileArea::stakeAt(QPointF where) const
{
    return m_view.from + toScreen().inverse({where.x(), where.y()}).x * m_view.mm;
}

void ProfileArea::paint(QPainter& painter)
{
    if (!m_road || m_road->tables().sqxLc.size() < 2) {
        painter.setPen(QColor(0x70, 0x75, 0x7C));
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("没有竖曲线参数"));
        return;
    }
    const Box screen{{-40, -40}, {width() + 40.0, height() + 40.0}};
    const Transform by = toScreen();
    paintPicture(painter, clipped(transformed(profilePicture(*m_road, m_view), by), screen, 0.3), scale());
    if (!m_cursor || *m_cursor < m_view.from || *m_cursor > m_view.to) return;
    const double x = by({(*m_cursor - m_view.from) / m_view.mm, 0}).x;
    painter.setPen(QPen(QColor(230, 40, 140), 1));
    painter.drawLine(QPointF(x, by({0, m_view.height}).y), QPointF(x, by({0, -kBandsHeight}).y));
    if (const auto e = surfaceAt(m_road->tables(), *m_cursor, 0)) {
        const Point p = by(inProfile(m_view, *m_cursor, *e));
        painter.drawEllipse(QPointF(p.x, p.y), 4, 4);
    }
}
