#include "views/SectionArea.h"

#include "views/PicturePainter.h"

#include <QKeyEvent>
#include <QPainter>
#include <QResizeEvent>

#include <algorithm>

using namespace plot;

void SectionArea::show(const Road* road, Section section, bool slopes, const Stale& stale)
{
    m_road = road;
    m_section = std::move(section);
    m_slopes = slopes;
    m_stale = stale;
    if (m_all) return showAll();
    update();
}

Picture SectionArea::picture() const
{
    return sectionPicture(*m_road, m_section,
                          {.mm = kPxPerMm / m_toScreen.scale, .slopes = m_slopes, .stale = m_stale});
}

void SectionArea::showAll()
{
    m_all = true;
    if (!m_road || width() < 2) return;
    // Texts keep their size while the road grows: twice is close enough.
    for (int round = 0; round < 3; ++round) {
        const Box box = extents(picture());
        if (box.empty()) break;
        m_toScreen.scale =
            std::clamp(m_toScreen.scale * std::min((width() - 24.0) / (box.width() * m_toScreen.scale),
                                                   (height() - 24.0) / (box.height() * m_toScreen.scale)),
                       0.5, 2000.0);
    }
    const Box box = extents(picture());
    if (box.empty()) return update();
    m_toScreen.shift = {};
    m_toScreen.shift = Point{width() / 2.0, height() / 2.0} - m_toScreen(box.centre());
    update();
}

void SectionArea::zoomAt(QPointF where, double factor)
{
    const Point fixed = m_toScreen.inverse({where.x(), where.y()});
    m_all = false;
    m_toScreen.scale = std::clamp(m_toScreen.scale * factor, 0.5, 2000.0);
    const Point now = m_toScreen(fixed);
    m_toScreen.shift = m_toScreen.shift + Point{where.x() - now.x, where.y() - now.y};
    update();
}

void SectionArea::moveBy(QPointF pixels)
{
    m_all = false;
    m_toScreen.shift = m_toScreen.shift + Point{pixels.x(), pixels.y()};
    update();
}

void SectionArea::resizeEvent(QResizeEvent* event)
{
    if (m_all) return showAll();
    const QSize by = event->size() - event->oldSize();
    m_toScreen.shift = m_toScreen.shift + Point{by.width() / 2.0, by.height() / 2.0};
}

void SectionArea::keyPressEvent(QKeyEvent* event)
{
    switch (event->key()) {
    case Qt::Key_Left:
        emit stepped(-1);
        return;
    case Qt::Key_Right:
        emit stepped(1);
        return;
    case Qt::Key_PageUp:
        emit stepped(-10);
        return;
    case Qt::Key_PageDown:
        emit stepped(10);
        return;
    default:
        DrawingArea::keyPressEvent(event);
    }
}

void SectionArea::paint(QPainter& painter)
{
    const Picture all = m_road ? picture() : Picture{};
    if (all.entities.empty()) {
        painter.setPen(QColor(0x70, 0x75, 0x7C));
        painter.drawText(rect(), Qt::AlignCenter, QStringLiteral("这个里程没有设计高程"));
        return;
    }
    const Box screen{{-40, -40}, {width() + 40.0, height() + 40.0}};
    paintPicture(painter, clipped(transformed(all, m_toScreen), screen, 0.3), kPxPerMm);
}
