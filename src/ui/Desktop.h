#pragma once
// What only the system that the program runs on can tell or start: behind the seams of Platform.h.

#include <QString>

#include <string>

/// The title of a window without one. The system would show the program's file name there; these characters nobody
/// sees.
QString UnseenTitle();

/// The key is held at this moment. @param virtualKey 16 is Shift, 17 Ctrl, 18 Alt
bool IsKeyHeld(int virtualKey);

/// A file or folder with what the desktop shows it by, an address (also file://…#place) with the browser.
/// False: it is not there, or nothing was started.
bool OpenOnDesktop(const QString& pathOrAddress);

/// Before the process ends without its windows: what was copied outlives it. Elsewhere the clipboard goes with the
/// program, however it ends.
void KeepWhatIsCopied();

/// Where no window can be made any more: a box of the system alone, else standard error.
void TellWithoutWindow(const char* utf8);

/// The program was started from within an archive, which some file managers show as a folder: they unpack it alone,
/// into a folder that is emptied some day. @param folder the program's, UTF-8
bool IsUnpackedForAMoment(const std::string& folder);
