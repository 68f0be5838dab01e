#pragma once
// Keys and mouse buttons as handlers see them.

#include <QtCore/qnamespace.h>

class QKeyEvent;

/// The character that a key press types: 13 Enter, 8 backspace, 27 Esc, 1 to 26 a letter with Ctrl; 0 for none
/// (arrows, Delete, Tab, function keys).
int keyAscii(const QKeyEvent& event);
/// The key itself: 32 Space, 13 Enter, 27 Esc, 65 to 90 letters, 48 to 57 digits, 37 to 40 arrows, 112 to 123 F1 to
/// F12.
int keyCode(const QKeyEvent& event);
/// What is held with a key or a button: 1 Shift, 2 Ctrl, 4 Alt, or a sum of them.
int shiftState(Qt::KeyboardModifiers held);
/// 1 left, 2 right, 4 middle, 0 any other.
int mouseButton(Qt::MouseButton button);
