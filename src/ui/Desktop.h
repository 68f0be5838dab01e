#pragma once
// What only the system that the program runs on can tell or start: behind the seams of Platform.h.

#include <QString>

/// The title of a window without one. The system would show the program's file name there; these characters nobody
/// sees.
QString UnseenTitle();

/// The key is held at this moment. @param virtualKey 16 is Shift, 17 Ctrl, 18 Alt
bool IsKeyHeld(int virtualKey);

/// A file or folder with what the desktop shows it by, an address (also file://…#place) with the browser.
/// False: it is not there, or nothing was started.
bool OpenOnDesktop(const QString& pathOrAddress);
