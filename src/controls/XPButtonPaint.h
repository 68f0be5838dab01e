#pragma once
// How a button looks: colours as data, painting as functions of a state.

#include "controls/clsGradient.h"

#include <QFont>
#include <QImage>
#include <QPointF>
#include <QRegion>
#include <QSize>
#include <QString>

#include <array>
#include <optional>

enum class CaptionAlign { Left = 0, Right = 1, Centre = 2 };
enum class IconAlign { Left = 1, Right = 2 };

/// Everything that a button's picture depends on but its size.
struct XPButtonState {
    QString caption;
    Bgr foreColor = 0;
    int colorStyle = 1;
    bool focusDottedRect = true;
    bool enabled = true;
    QFont font;
    QImage icon, iconMask;
    int roundedValue = 5;
    CaptionAlign captionAlignment = CaptionAlign::Centre;
    IconAlign iconAlignment = IconAlign::Left;
    bool hover = false, pressed = false, hasFocus = false;
    double pixelsPerTwip = 1 / 15.0;  ///< of the surface painted on
};

/// The colours of one look: the gradient, the border, and the eight lines inside it.
struct XPButtonColors {
    Bgr top, bottom, border;
    std::array<std::optional<Bgr>, 8> lines;  ///< by number; a line without a colour is not drawn
};
enum class XPButtonLook { Normal, Hover, Focus, Pressed };
/// Nothing for a style other than 1, 2 or 3.
const XPButtonColors* xpButtonColors(int colorStyle, XPButtonLook look);
inline constexpr Bgr kDisabledFace = 15398133, kDisabledBorder = 12240841, kDisabledText = 12240841;

void paintXPButton(QPainter& painter, QSize size, const XPButtonState& state);

/// The pixels inside a rectangle from (0, 0) whose corners are quarters of an ellipse `rounded` pixels wide and high.
QRegion roundedRegion(QSize size, int rounded);
/// Top left of the caption, pixels: 20 twips above the true centre.
QPointF captionOrigin(QSize size, QSizeF text, CaptionAlign alignment, double pixelsPerTwip);
QPoint iconOrigin(QSize size, QSize icon, IconAlign alignment);
/// The grey version of an icon, black where the mask is set, so that it goes over the same mask.
QImage MakeGrayIcon(const QImage& icon, const QImage& mask);
