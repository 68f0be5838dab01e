#pragma once
// Windows that stretch: every named control keeps its relative place and size. Fonts and grid columns stay.

class QWidget;

/// Remembers the window's inner size and the rectangle of each of its named direct controls.
void ResizeInit(QWidget& form);
/// Moves each control to its remembered rectangle, scaled to the window's present size.
void ResizeForm(QWidget& form);
