#pragma once
// The wrapper around every event handler.

#include <functional>

/// Runs a handler body. A RunTimeError that leaves it is fatal, and so is memory that is not there or a failure of the
/// file system: unsaved sheets and drawings go into files, its box is
/// shown and names them, and the process ends.
void runHandler(const std::function<void()>& body);
