#pragma once
// Windows that stretch: every control keeps its relative place and size. Fonts and grid columns stay.

#include <cstdint>

#include <QSize>

class QWidget;

/// Inner width and height of the window that called ResizeInit last; it owns the scale.
extern std::int32_t FormOldWidth, FormOldHeight;

/// The largest content that a window may have: its screen less title bar, borders and the desktop's task bar.
QSize roomFor(const QWidget& window);
/// Gives a window that has no size yet the one that its content asks for, or that much, within its screen.
void fitToContent(QWidget& window, QSize atLeast = {0, 0});

/// Remembers the window's inner size and the rectangle of each control, also of those inside frames. From here on the
/// rectangles rule: the layouts that made them are dissolved, and the window does not shrink below the size at which
/// the first of its controls would be too small for its text.
void ResizeInit(QWidget& form);
/// Moves each control to its remembered rectangle, scaled to the window's present size and rounded to whole pixels.
void ResizeForm(QWidget& form);
