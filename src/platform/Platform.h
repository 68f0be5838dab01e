#pragma once
// The seams to the machine: key state, other programs, the end of the process. Tests replace them.

#include <QString>

#include <functional>

struct Platform {
    std::function<bool(int virtualKey)> keyIsDown;           ///< 17 is Ctrl
    std::function<bool(const QString& pathOrAddress)> open;  ///< viewer or browser of the desktop; false: not started
    std::function<void(int code)> endProcess;                ///< at once; does not return in the program
};
Platform& platform();

/// True while the key is held. @param virtualKey 17 is Ctrl
bool KeyIsDown(int virtualKey);

/// Runs a handler body. A RunTimeError that leaves it is fatal: its box is shown and the process ends.
void runHandler(const std::function<void()>& body);
