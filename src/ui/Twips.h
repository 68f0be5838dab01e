#pragma once
// Twips: 1/1440 of a logical inch, so 1/15 of a pixel at 96 dpi, whatever the scale of the desktop.

#include <QWidget>

#include <cmath>

inline int twipsToPixels(int twips, const QWidget& on)
{
    return static_cast<int>(std::lround(twips * on.logicalDpiX() / 1440.0));
}
inline int pixelsToTwips(int pixels, const QWidget& on)
{
    return static_cast<int>(std::lround(pixels * 1440.0 / on.logicalDpiX()));
}
