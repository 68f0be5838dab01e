#pragma once
// Windows that stretch: every control keeps its relative place and size. Fonts and grid columns stay.

#include <cstdint>

class QWidget;

/// Inner width and height of the window that called ResizeInit last; it owns the scale.
extern std::int32_t FormOldWidth, FormOldHeight;

/// Gives a window that has no size yet the one that its content asks for, within its screen.
void fitToContent(QWidget& window);

/// Remembers the window's inner size and the rectangle of each control, also of those inside frames. From here on the
/// rectangles rule: the layouts that made them are dissolved, and the window does not shrink below what they needed.
void ResizeInit(QWidget& form);
/// Moves each control to its remembered rectangle, scaled to the window's present size and rounded to whole pixels.
void ResizeForm(QWidget& form);
