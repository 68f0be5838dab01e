#include "dialogs/Dialogs.h"

#include <cstdlib>

namespace {
Dialogs* current = nullptr;
}

Dialogs& dialogs()
{
    if (!current) std::abort();  // a program starts by choosing its dialogs
    return *current;
}

void setDialogs(Dialogs* dialogs) { current = dialogs; }
