#pragma once
// The seams to the machine: key state, other programs, the end of the process. Tests replace them.

#include "ui/RunHandler.h"

#include <QString>

#include <functional>

struct Platform {
    std::function<bool(int virtualKey)> keyIsDown;           ///< 17 is Ctrl
    std::function<bool(const QString& pathOrAddress)> open;  ///< viewer or browser of the desktop; false: not started
    std::function<void(int code)> endProcess;                ///< at once; does not return in the program
};
Platform& platform();

inline constexpr int kVirtualKeyControl = 17;

/// Before the first window: nothing that dialogs remember goes to disk. All that the program keeps lies beside it.
void keepNoSettings();

/// True while the key is held. @param virtualKey 16 is Shift, 17 Ctrl, 18 Alt; any other is never down
bool KeyIsDown(int virtualKey);
