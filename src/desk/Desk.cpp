#include "desk/Desk.h"

#include <cstdlib>

namespace {
Desk* current = nullptr;
}

Desk& desk()
{
    if (!current) std::abort();  // a program starts by choosing its desk
    return *current;
}

void setDesk(Desk* desk) { current = desk; }
