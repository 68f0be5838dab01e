#pragma once
// The wrapper around every event handler.

#include <functional>

/// Runs a handler body. A RunTimeError that leaves it is fatal: its box is shown and the process ends.
void runHandler(const std::function<void()>& body);
