#pragma once
// A plan that is open beside the forms: looked at, saved, printed.

#include "office/Drawing.h"
#include "ui/DocumentWindow.h"

#include <QTransform>
#include <QWidget>

class QPainter;

/// Paints a plan. @param toDevice from the plan to the device, its y turned round; @param pen line width, device pixels
void paintDrawing(QPainter& painter, const Drawing& drawing, const QTransform& toDevice, double pen);
/// Shows everything in the middle of a rectangle, with a margin of a twentieth.
QTransform fitDrawing(const Drawing& drawing, const QRectF& room);

/// The plan under the mouse: the wheel zooms at the cursor, dragging moves, a double click shows everything.
class DrawingView : public QWidget {
    Q_OBJECT
public:
    explicit DrawingView(Drawing drawing, QWidget* parent = nullptr);

    const Drawing& drawing() const { return m_drawing; }
    void zoomExtents();
    void zoomAt(QPointF where, double factor);
    double scale() const { return m_toDevice.m11(); }  ///< pixels to a drawing unit
    QPointF shownAt(Drawing::Point point) const { return m_toDevice.map(QPointF(point.x, point.y)); }
    QPointF drawnAt(QPointF where) const { return m_toDevice.inverted().map(where); }

signals:
    void hovered(QPointF point);  ///< the place in the plan under the mouse

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void moveBy(QPointF pixels);

    Drawing m_drawing;
    QTransform m_toDevice;
    bool m_all = true;  ///< shows everything until someone zooms or moves
    QPointF m_grip;
};

class DrawingWindow : public DocumentWindow {
    Q_OBJECT
public:
    explicit DrawingWindow(Drawing drawing, const QString& title = QStringLiteral("图形"));

    DrawingView& view() { return *m_view; }

protected:
    std::string fileBytes() const override;
    QPageLayout page() const override;
    void print(QPagedPaintDevice& device) const override;

private:
    void exportPng();

    DrawingView* m_view;
};
