#pragma once
// Whether the sanitizers watch this process. The tests' own code is compiled the same with and without them, so only
// the process itself knows.

#include <dlfcn.h>

inline bool sanitized() { return dlsym(RTLD_DEFAULT, "__asan_init") != nullptr; }
