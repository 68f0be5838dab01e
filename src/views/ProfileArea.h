#pragma once

#include "plot/Profile.h"
#include "views/DrawingArea.h"

#include <optional>

/// The profile in a window: the wheel stretches the road, heights fill the room by themselves or by a wish.
class ProfileArea : public DrawingArea {
    Q_OBJECT
public:
    explicit ProfileArea(QWidget* parent = nullptr) : DrawingArea(parent) {}

    /// @param road  lives as long as it is shown  @param from,to  all that there is, continuous stakes
    void setRoad(const plot::Road* road, double from, double to);
    void setStale(const plot::Stale& stale);
    void setExaggeration(double times);  ///< 0: what fits
    void setCursor(std::optional<double> stake);
    void flyTo(double stake);

    void showAll() override;
    void zoomAt(QPointF where, double factor) override;
    void moveBy(QPointF pixels) override;

    double stakeAt(QPointF where) const;
    double from() const { return m_view.from; }
    double to() const { return m_view.to; }
    double exaggeration() const { return m_view.exaggeration; }

signals:
    void stretched();  ///< other stakes, or another exaggeration

protected:
    void paint(QPainter& painter) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    double graphWidth() const;  ///< mm
    double scale() const;
    void keepInside();
    void settle();
    plot::Transform toScreen() const;

    const plot::Road* m_road = nullptr;
    double m_first = 0, m_last = 1, m_wished = 0;
    bool m_all = true;
    plot::ProfileView m_view;
    std::optional<double> m_cursor;
};
