#include "ui/Platform.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSettings>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace {

bool modifierIsHeld(int virtualKey)
{
    const auto held = QGuiApplication::queryKeyboardModifiers();
    switch (virtualKey) {
    case 16:
        return held.testFlag(Qt::ShiftModifier);
    case kVirtualKeyControl:
        return held.testFlag(Qt::ControlModifier);
    case 18:
        return held.testFlag(Qt::AltModifier);
    default:
        return false;
    }
}

bool openOnDesktop(const QString& pathOrAddress)
{
    const bool isAddress = pathOrAddress.contains(u"://") || pathOrAddress.startsWith(u"www.", Qt::CaseInsensitive);
    if (!isAddress && !QFileInfo::exists(pathOrAddress)) return false;
    return QDesktopServices::openUrl(isAddress ? QUrl::fromUserInput(pathOrAddress)
                                               : QUrl::fromLocalFile(pathOrAddress));
}

/// No destructor and no handler of a half-closed window runs any more.
void endAtOnce(int code)
{
    std::fflush(nullptr);
    std::_Exit(code);
}

}  // namespace

Platform& platform()
{
    static Platform seams{modifierIsHeld, openOnDesktop, endAtOnce};
    return seams;
}

void keepNoSettings()
{
    // Nothing can be made below a file, so what the file dialog would write on closing is dropped.
    QSettings::setPath(QSettings::NativeFormat, QSettings::UserScope, QStringLiteral("/dev/null"));
}

bool KeyIsDown(int virtualKey) { return platform().keyIsDown(virtualKey); }
