#include "office/windows/DrawingWindow.h"

#include "controls/FormScaling.h"
#include "office/Dxf.h"
#include "office/windows/SheetPainter.h"
#include "ui/Fields.h"
#include "ui/Paper.h"

#include <QBuffer>
#include <QDir>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPainterPath>
#include <QStatusBar>

#include <algorithm>
#include <cmath>

namespace {

QPointF at(Drawing::Point point) { return {point.x, point.y}; }

struct Ink {
    QPainter& painter;
    const Drawing& drawing;
    const QTransform& toDevice;

    void operator()(const Drawing::Polyline& polyline) const
    {
        QPolygonF points;
        for (const auto& point : polyline.points) points << toDevice.map(at(point));
        painter.drawPolyline(points);
    }
    void operator()(const Drawing::Line& line) const
    {
        painter.drawLine(toDevice.map(at(line.from)), toDevice.map(at(line.to)));
    }
    void operator()(const Drawing::Circle& circle) const
    {
        const double radius = circle.radius * std::abs(toDevice.m11());
        painter.drawEllipse(toDevice.map(at(circle.centre)), radius, radius);
    }
    void operator()(const Drawing::Text& text) const
    {
        QFont font;
        if (const auto* style = drawing.textStyle(text.style)) {
            font.setFamily(fromUtf8(style->typeface));
            font.setBold(style->bold);
            font.setItalic(style->italic);
        }
        // As an outline, so that it has its height at every zoom, also below what a font can be.
        constexpr int kSize = 100;
        font.setPixelSize(kSize);
        const double capital = std::max(1.0, QFontMetricsF(font).capHeight());
        QPainterPath outline;
        outline.addText(0, 0, font, fromUtf8(text.text));
        const double size = text.height / capital;
        painter.fillPath(
            (QTransform::fromScale(size, -size) * QTransform::fromTranslate(text.at.x, text.at.y) * toDevice)
                .map(outline),
            painter.pen().color());
    }
    void operator()(const Drawing::Insert& insert) const
    {
        const auto* block = drawing.block(insert.block);
        if (!block) return;
        const QTransform placed = QTransform::fromTranslate(-block->base.x, -block->base.y) *
                                  QTransform::fromScale(insert.scale, insert.scale) *
                                  QTransform().rotate(insert.rotation) *
                                  QTransform::fromTranslate(insert.at.x, insert.at.y) * toDevice;
        for (const auto& entity : block->entities) std::visit(Ink{painter, drawing, placed}, entity);
    }
};

}  // namespace

void paintDrawing(QPainter& painter, const Drawing& drawing, const QTransform& toDevice, double pen)
{
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(Qt::black, pen, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    for (const auto& entity : drawing.entities) std::visit(Ink{painter, drawing, toDevice}, entity);
}

QTransform fitDrawing(const Drawing& drawing, const QRectF& room)
{
    auto extents = ExtentsOf(drawing);
    if (extents.empty) extents.add({});
    const double width = extents.high.x - extents.low.x, height = extents.high.y - extents.low.y;
    double scale = std::min(width > 0 ? room.width() / width : 1e9, height > 0 ? room.height() / height : 1e9) * 0.9;
    if (!(scale > 0) || scale >= 1e8) scale = 1;
    return QTransform::fromTranslate(-(extents.low.x + width / 2), -(extents.low.y + height / 2)) *
           QTransform::fromScale(scale, -scale) * QTransform::fromTranslate(room.center().x(), room.center().y());
}

// --- The view --------------------------------------------------------------------------------------------------------

DrawingView::DrawingView(Drawing drawing, QWidget* parent) : QWidget(parent), m_drawing(std::move(drawing))
{
    substituteSheetFonts();
    setObjectName(QStringLiteral("plan"));
    setMouseTracking(true);
    setFocusPolicy(Qt::StrongFocus);
    setCursor(Qt::CrossCursor);
    setMinimumSize(240, 160);
}

void DrawingView::zoomExtents()
{
    m_all = true;
    m_toDevice = fitDrawing(m_drawing, rect());
    update();
}

void DrawingView::zoomAt(QPointF where, double factor)
{
    const double wanted = scale() * factor;
    if (!(wanted > 1e-7) || wanted > 1e7) return;
    m_all = false;
    m_toDevice = m_toDevice * QTransform::fromTranslate(-where.x(), -where.y()) *
                 QTransform::fromScale(factor, factor) * QTransform::fromTranslate(where.x(), where.y());
    update();
}

void DrawingView::moveBy(QPointF pixels)
{
    m_all = false;
    m_toDevice = m_toDevice * QTransform::fromTranslate(pixels.x(), pixels.y());
    update();
}

void DrawingView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    paintDrawing(painter, m_drawing, m_toDevice, 1.2);
}

void DrawingView::resizeEvent(QResizeEvent* event)
{
    if (m_all) return zoomExtents();
    // What is in the middle stays there.
    const QSize by = event->size() - event->oldSize();
    m_toDevice = m_toDevice * QTransform::fromTranslate(by.width() / 2.0, by.height() / 2.0);
}

void DrawingView::wheelEvent(QWheelEvent* event)
{
    zoomAt(event->position(), std::pow(1.2, event->angleDelta().y() / 120.0));
    event->accept();
}

void DrawingView::mousePressEvent(QMouseEvent* event)
{
    m_grip = event->position();
    if (event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) setCursor(Qt::ClosedHandCursor);
}

void DrawingView::mouseMoveEvent(QMouseEvent* event)
{
    if (event->buttons() & (Qt::LeftButton | Qt::MiddleButton)) {
        moveBy(event->position() - m_grip);
        m_grip = event->position();
    }
    emit hovered(drawnAt(event->position()));
}

void DrawingView::mouseReleaseEvent(QMouseEvent*) { setCursor(Qt::CrossCursor); }

void DrawingView::mouseDoubleClickEvent(QMouseEvent*) { zoomExtents(); }

void DrawingView::keyPressEvent(QKeyEvent* event)
{
    const double step = width() / 10.0;
    switch (event->key()) {
    case Qt::Key_Left:
        return moveBy({step, 0});
    case Qt::Key_Right:
        return moveBy({-step, 0});
    case Qt::Key_Up:
        return moveBy({0, step});
    case Qt::Key_Down:
        return moveBy({0, -step});
    case Qt::Key_Plus:
    case Qt::Key_Equal:
        return zoomAt(QRectF(rect()).center(), 1.2);
    case Qt::Key_Minus:
        return zoomAt(QRectF(rect()).center(), 1 / 1.2);
    case Qt::Key_Home:
        return zoomExtents();
    default:
        QWidget::keyPressEvent(event);
    }
}

// --- The window ------------------------------------------------------------------------------------------------------

DrawingWindow::DrawingWindow(Drawing drawing, const QString& title)
    : DocumentWindow(title, QStringLiteral("图形"), QStringLiteral("dxf")), m_view(new DrawingView(std::move(drawing)))
{
    setObjectName(QStringLiteral("DrawingWindow"));
    command(QStringLiteral("导出PNG"), QKeySequence(), QStringLiteral("把图形存为图片"), [this] { exportPng(); });
    separator();
    command(QStringLiteral("全图"), QKeySequence(Qt::Key_Home), QStringLiteral("显示整个图形；滚轮缩放，拖动平移"),
            [this] { m_view->zoomExtents(); });
    command(QStringLiteral("放大"), QKeySequence(QKeySequence::ZoomIn), QStringLiteral("放大"),
            [this] { m_view->zoomAt(QRectF(m_view->rect()).center(), 1.25); });
    command(QStringLiteral("缩小"), QKeySequence(QKeySequence::ZoomOut), QStringLiteral("缩小"),
            [this] { m_view->zoomAt(QRectF(m_view->rect()).center(), 0.8); });
    setCentralWidget(m_view);
    auto* place = new QLabel;
    place->setObjectName(QStringLiteral("place"));
    statusBar()->addPermanentWidget(place);
    connect(m_view, &DrawingView::hovered, place, [place](QPointF point) {
        place->setText(QStringLiteral("x %1   y %2").arg(point.x(), 0, 'f', 3).arg(point.y(), 0, 'f', 3));
    });
    say(QStringLiteral("滚轮缩放，拖动平移，双击显示全图"));
    fitToContent(*this, {960, 680});
    touched();
    m_view->setFocus();
}

std::string DrawingWindow::fileBytes() const { return DxfBytes(m_view->drawing()); }

QPageLayout DrawingWindow::page() const
{
    const auto extents = ExtentsOf(m_view->drawing());
    const bool wide = extents.high.x - extents.low.x >= extents.high.y - extents.low.y;
    return {QPageSize(QPageSize::A4), wide ? QPageLayout::Landscape : QPageLayout::Portrait, QMarginsF(10, 10, 10, 10),
            QPageLayout::Millimeter};
}

void DrawingWindow::print(QPagedPaintDevice& device) const
{
    QPainter painter(&device);
    paintDrawing(painter, m_view->drawing(), fitDrawing(m_view->drawing(), painter.viewport()),
                 device.logicalDpiX() * 0.25 / 25.4);
}

void DrawingWindow::exportPng()
{
    const QString path = askPath(QStringLiteral("png"));
    if (path.isEmpty()) return;
    QImage image(2400, 1700, QImage::Format_RGB32);
    image.fill(Qt::white);
    {
        QPainter painter(&image);
        paintDrawing(painter, m_view->drawing(), fitDrawing(m_view->drawing(), image.rect()), 3);
    }
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    if (!writeOrSay(path, bytes.toStdString())) return;
    say(QStringLiteral("已导出：") + QDir::toNativeSeparators(path));
}
