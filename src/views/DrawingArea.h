#pragma once
// A drawing in a window: what the mouse, the wheel and the keys do to it. What is drawn is the business of each view.

#include "plot/Picture.h"

#include <QWidget>

/// Pixels of a screen that a millimetre of paper takes: a little more than it has, so that small texts can be read.
inline constexpr double kPxPerMm = 4.6;

class DrawingArea : public QWidget {
    Q_OBJECT
public:
    explicit DrawingArea(QWidget* parent = nullptr);

    virtual void showAll() = 0;
    virtual void zoomAt(QPointF where, double factor) = 0;
    virtual void moveBy(QPointF pixels) = 0;

signals:
    void hovered(QPointF where);
    void left();                  ///< the cursor went away
    void clicked(QPointF where);  ///< pressed and released without a drag
    void doubleClicked(QPointF where);

protected:
    virtual void paint(QPainter& painter) = 0;

    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    QPointF m_pressed, m_grip;
    bool m_dragging = false, m_afterDouble = false;
};
