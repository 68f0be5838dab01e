#pragma once
// The look that all windows share: style, palette, fonts, translations. Called once by a program or a test.

#include <QColor>

class QApplication;
class QFont;

namespace theme {

inline constexpr QColor kAmber(0xFF, 0xF3, 0xCD);       ///< a quiet warning
inline constexpr QColor kCurrentRow(0xEA, 0xF2, 0xFB);  ///< the row a grid's cursor is in
inline constexpr QColor kLocked(0xE3, 0xE5, 0xE8);      ///< a locked box
inline constexpr QColor kOpen(0xFF, 0xFF, 0xFF);        ///< an open box
inline constexpr QColor kAccent(0x1F, 0x5F, 0xA8);      ///< the one accent colour

inline constexpr int kGrid = 8;     ///< distance between controls, pixels
inline constexpr int kMargin = 12;  ///< around a window's content, pixels

}  // namespace theme

/// Fusion style, the desktop's font at 9 points or more, Chinese standard buttons and dialogs.
void applyTheme(QApplication& app);
/// True where all ten digits are equally wide, so that columns of numbers stand straight.
bool digitsOfOneWidth(const QFont& font);
/// The font, or a relative of the same size whose digits are equally wide where its own are not.
QFont numberFont(const QFont& font);
