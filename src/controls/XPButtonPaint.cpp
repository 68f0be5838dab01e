#include "controls/XPButtonPaint.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace {

constexpr auto none = std::nullopt;

struct Style {
    XPButtonColors normal, hover, focus, pressed;
};

// Hover and focus lines lie on the normal gradient inside the normal border.
constexpr Style kStyles[] = {
    {.normal = {16514300, 15397104, 7617536, {}},
     .hover = {16514300, 15397104, 7617536, {13627647, 5817338, 38885, 6933244, 9033981, 6342907, 3191800, 6408186}},
     .focus = {16514300,
               15397104,
               7617536,
               {16771022, 15383452, 15630953, 15448988, 16176316, 15449245, 14986633, 15448989}},
     .pressed = {14542053,
                 14344930,
                 7617536,
                 {12700881, 13358295, 15659506, 14410724, 13621468, 13884381, 14936554, 14410467}}},
    {.normal = {16777215, 14140870, 7617536, {}},
     .hover = {16777215, 14140870, 7617536, {13627647, 5817338, 38885, 6933244, 9033981, 6342907, 3191800, 6408186}},
     .focus = {16777215,
               14140870,
               7617536,
               {16771022, 15515296, 15630953, 15448988, 16176316, 16777215, 14986633, 16777215}},
     .pressed = {12430252, 16777215, 7617536, {16777215, 16777215, 16777215, 16777215, none, none, none, none}}},
    {.normal = {15925246, 14413555, 418359, {}},
     .hover = {15925246, 14413555, 418359, {9815548, 7777000, 2454223, 7317223, 9879277, 7317223, 5214691, 7842791}},
     .focus = {15925246, 14413555, 418359, {9425346, 6801312, 6727592, 6866593, 8440753, 6276251, 5554576, 6144920}},
     .pressed = {13821678,
                 13559020,
                 418359,
                 {11849183, 12571875, 15004920, 13624814, 12835303, 13032680, 14216434, 13624557}}},
};

void drawBorder(QPainter& painter, QSize size, int rounded, Bgr colour)
{
    const QRegion body = roundedRegion(size, rounded);
    const QRegion inner =
        body & body.translated(1, 0) & body.translated(-1, 0) & body.translated(0, 1) & body.translated(0, -1);
    for (const QRect& piece : body - inner) painter.fillRect(piece, fromBgr(colour));
}

/// A straight line that leaves out its end point.
void drawLine(QPainter& painter, int x1, int y1, int x2, int y2, Bgr colour)
{
    painter.fillRect(y1 == y2 ? QRect(x1, y1, x2 - x1, 1) : QRect(x1, y1, 1, y2 - y1), fromBgr(colour));
}

void drawLines(QPainter& painter, QSize size, const XPButtonColors& colors)
{
    const int w = size.width(), h = size.height();
    const std::array<std::array<int, 4>, 8> lines{{{2, 1, w - 3, 1},
                                                   {1, 2, 1, h - 3},
                                                   {2, h - 3, w - 3, h - 3},
                                                   {w - 3, 2, w - 3, h - 3},
                                                   {2, 2, w - 3, 2},
                                                   {2, 2, 2, h - 3},
                                                   {2, h - 4, w - 3, h - 4},
                                                   {w - 4, 2, w - 4, h - 3}}};
    for (std::size_t i = 0; i < lines.size(); ++i)
        if (const auto colour = colors.lines[i])
            drawLine(painter, lines[i][0], lines[i][1], lines[i][2], lines[i][3], *colour);
}

void drawFocusDots(QPainter& painter, QSize size)
{
    const int w = size.width(), h = size.height();
    const auto dot = [&](int x, int y) { painter.fillRect(x, y, 1, 1, Qt::black); };
    for (int x = 3; x <= w - 5; x += 2) dot(x, 2);
    for (int y = 4; y <= h - 4; y += 2) dot(2, y);
    for (int x = 3; x <= w - 5; x += 2) dot(x, h - 4);
    for (int y = 4; y <= h - 4; y += 2) dot(w - 4, y);
}

void drawFace(QPainter& painter, QSize size, Bgr top, Bgr bottom, Bgr border, int rounded)
{
    clsGradient gradient;
    gradient.DefineRect(0, 0, size.width(), size.height());
    gradient.DrawGradient(painter, clsGradient::TopToBottom, top, bottom);
    drawBorder(painter, size - QSize(1, 1), rounded, border);
}

void drawEnabled(QPainter& painter, QSize size, const XPButtonState& state)
{
    const bool rimmed = state.hasFocus && !state.pressed;
    const auto* colors = xpButtonColors(state.colorStyle, state.pressed ? XPButtonLook::Pressed : XPButtonLook::Normal);
    if (!colors) {
        if (state.hover && state.focusDottedRect) drawFocusDots(painter, size);
        return;
    }
    drawFace(painter, size, colors->top, colors->bottom, colors->border, state.roundedValue);
    if (state.pressed) drawLines(painter, size, *colors);
    if (state.hover && !state.pressed) drawLines(painter, size, *xpButtonColors(state.colorStyle, XPButtonLook::Hover));
    if (rimmed) drawLines(painter, size, *xpButtonColors(state.colorStyle, XPButtonLook::Focus));
    if (state.hasFocus && state.focusDottedRect) drawFocusDots(painter, size);
}

void drawIcon(QPainter& painter, QSize size, const XPButtonState& state)
{
    if (state.icon.isNull() || state.iconMask.isNull()) return;
    const QPoint at = iconOrigin(size, state.icon.size(), state.iconAlignment);
    painter.setCompositionMode(QPainter::RasterOp_SourceAndDestination);
    painter.drawImage(at, state.iconMask);
    painter.setCompositionMode(QPainter::RasterOp_SourceOrDestination);
    painter.drawImage(at, state.enabled ? state.icon : MakeGrayIcon(state.icon, state.iconMask));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

void drawCaption(QPainter& painter, QSize size, const XPButtonState& state)
{
    painter.setFont(state.font);
    painter.setPen(fromBgr(state.enabled ? state.foreColor : kDisabledText));
    const QFontMetricsF metrics(state.font, painter.device());
    const QPointF at = captionOrigin(size, QSizeF(metrics.horizontalAdvance(state.caption), metrics.height()),
                                     state.captionAlignment, state.pixelsPerTwip);
    painter.drawText(QPointF(std::round(at.x()), std::round(at.y() + metrics.ascent())), state.caption);
}

}  // namespace

const XPButtonColors* xpButtonColors(int colorStyle, XPButtonLook look)
{
    if (colorStyle < 1 || colorStyle > 3) return nullptr;
    const Style& style = kStyles[colorStyle - 1];
    switch (look) {
    case XPButtonLook::Hover:
        return &style.hover;
    case XPButtonLook::Focus:
        return &style.focus;
    case XPButtonLook::Pressed:
        return &style.pressed;
    default:
        return &style.normal;
    }
}

void paintXPButton(QPainter& painter, QSize size, const XPButtonState& state)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setClipRegion(roundedRegion(size - QSize(1, 1), state.roundedValue), Qt::IntersectClip);
    if (state.enabled)
        drawEnabled(painter, size, state);
    else
        drawFace(painter, size, kDisabledFace, kDisabledFace, kDisabledBorder, state.roundedValue);
    drawIcon(painter, size, state);
    drawCaption(painter, size, state);
    painter.restore();
}

QRegion roundedRegion(QSize size, int rounded)
{
    const double radius = std::min({rounded / 2.0, size.width() / 2.0, size.height() / 2.0});
    QRegion region;
    for (int y = 0; y < size.height(); ++y) {
        const double fromEdge = std::min(y + 0.5, size.height() - y - 0.5);
        int inset = 0;
        if (const double up = radius - fromEdge; up > 0)
            while (std::hypot(up, radius - inset - 0.5) > radius && inset + 0.5 < radius) ++inset;
        region += QRect(inset, y, size.width() - 2 * inset, 1);
    }
    return region;
}

QPointF captionOrigin(QSize size, QSizeF text, CaptionAlign alignment, double pixelsPerTwip)
{
    const double y = 0.5 * size.height() - (0.5 * text.height() + 20 * pixelsPerTwip);
    switch (alignment) {
    case CaptionAlign::Left:
        return {100 * pixelsPerTwip, y};
    case CaptionAlign::Right:
        return {size.width() - text.width() - 100 * pixelsPerTwip, y};
    default:
        return {0.5 * size.width() - 0.5 * text.width(), y};
    }
}

QPoint iconOrigin(QSize size, QSize icon, IconAlign alignment)
{
    const int y = static_cast<int>(0.5 * size.height() - 0.5 * icon.height());
    return {alignment == IconAlign::Right ? size.width() - icon.width() - 5 : 5, y};
}

QImage MakeGrayIcon(const QImage& icon, const QImage& mask)
{
    QImage gray = icon.convertToFormat(QImage::Format_RGB32);
    const QImage keepOut = mask.convertToFormat(QImage::Format_RGB32);
    for (int y = 0; y < gray.height(); ++y)
        for (int x = 0; x < gray.width(); ++x) {
            const bool outside = keepOut.valid(x, y) && qGray(keepOut.pixel(x, y)) >= 128;
            const int level = outside ? 0 : qGray(gray.pixel(x, y));
            gray.setPixel(x, y, qRgb(level, level, level));
        }
    return gray;
}
