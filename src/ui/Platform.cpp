#include "ui/Platform.h"

#include "ui/Desktop.h"

#include <QSettings>

#include <cstdio>
#include <cstdlib>

namespace {

/// No destructor and no handler of a half-closed window runs any more.
void endAtOnce(int code)
{
    KeepWhatIsCopied();
    std::fflush(nullptr);
    std::_Exit(code);
}

}  // namespace

Platform& platform()
{
    static Platform seams{IsKeyHeld, OpenOnDesktop, endAtOnce};
    return seams;
}

void keepNoSettings()
{
    // Nothing can be made below a file, so what the file dialog would write on closing is dropped.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

bool KeyIsDown(int virtualKey) { return platform().keyIsDown(virtualKey); }
