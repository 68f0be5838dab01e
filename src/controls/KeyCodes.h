#pragma once
// Key events as handlers see them: a key code for every key, a character code for those that type one.

class QKeyEvent;

/// The character that a key press types: 13 Enter, 8 backspace, 27 Esc, 1 to 26 a letter with Ctrl; 0 for none
/// (arrows, Delete, Tab, function keys).
int keyAscii(const QKeyEvent& event);
/// The key itself: 32 Space, 13 Enter, 27 Esc, 65 to 90 letters, 48 to 57 digits, 37 to 40 arrows, 112 to 123 F1 to
/// F12.
int keyCode(const QKeyEvent& event);
