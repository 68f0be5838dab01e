#pragma once

#include "plot/Plan.h"
#include "plot/ReadOut.h"
#include "views/DrawingArea.h"

#include <optional>
#include <vector>

/// The plan in a window.
class PlanArea : public DrawingArea {
    Q_OBJECT
public:
    explicit PlanArea(QWidget* parent = nullptr) : DrawingArea(parent) {}

    /// @param road  lives as long as it is shown; nullptr: none
    void setRoad(const plot::Road* road);
    void setOther(const plot::Road* other);
    void setMarked(std::vector<plot::Marked> marked);
    void setStale(const plot::Stale& stale);
    void pick(std::optional<std::size_t> element);
    void pin(std::optional<plot::Point> where);
    std::optional<plot::Point> pinned() const { return m_pin; }

    void showAll() override;
    void zoomAt(QPointF where, double factor) override;
    void moveBy(QPointF pixels) override;
    void flyTo(plot::Point where, double pxPerMetre);
    void bringIntoSight(const plot::Box& box);

    double scale() const { return m_toScreen.scale; }  ///< pixels a metre
    plot::Point local(QPointF where) const { return m_toScreen.inverse({where.x(), where.y()}); }
    QPointF onScreen(plot::Point p) const
    {
        const plot::Point q = m_toScreen(p);
        return {q.x, q.y};
    }

protected:
    void paint(QPainter& painter) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void fit(const plot::Box& box);
    double scaleFor(const plot::Box& box) const;
    plot::PlanView view() const;
    static QRectF legendRoom();

    const plot::Road* m_road = nullptr;
    const plot::Road* m_other = nullptr;
    std::optional<plot::Plan> m_plan;
    std::vector<plot::Marked> m_marked;
    plot::Stale m_stale;
    std::optional<std::size_t> m_picked;
    std::optional<plot::Point> m_pin;
    plot::Transform m_toScreen{1, 0, 1, {}, true};
    bool m_all = true;
};
