#pragma once
// Whether the sanitizers watch this process. The tests' own code is compiled the same with and without them, so only
// the process itself knows. On Windows they never do.

#ifdef _WIN32
inline bool sanitized() { return false; }
#else
#include <dlfcn.h>

inline bool sanitized() { return dlsym(RTLD_DEFAULT, "__asan_init") != nullptr; }
#endif
