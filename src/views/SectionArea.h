#pragma once

#include "plot/Section.h"
#include "views/DrawingArea.h"

/// The cross-section in a window.
class SectionArea : public DrawingArea {
    Q_OBJECT
public:
    explicit SectionArea(QWidget* parent = nullptr) : DrawingArea(parent) {}

    /// @param road  lives as long as it is shown
    void show(const plot::Road* road, plot::Section section, bool slopes, const plot::Stale& stale);

    void showAll() override;
    void zoomAt(QPointF where, double factor) override;
    void moveBy(QPointF pixels) override;

signals:
    void stepped(int steps);  ///< arrow keys along the road

protected:
    void paint(QPainter& painter) override;
    void resizeEvent(QResizeEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    plot::Picture picture() const;

    const plot::Road* m_road = nullptr;
    plot::Section m_section;
    plot::Stale m_stale;
    bool m_slopes = true, m_all = true;
    plot::Transform m_toScreen{1, 0, 20, {}, true};
};
