#include "ui/Desktop.h"

#include "ui/Platform.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>

QString UnseenTitle() { return QChar(0x200B); }

bool IsKeyHeld(int virtualKey)
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

bool OpenOnDesktop(const QString& pathOrAddress)
{
    const bool isAddress = pathOrAddress.contains(u"://") || pathOrAddress.startsWith(u"www.", Qt::CaseInsensitive);
    if (!isAddress && !QFileInfo::exists(pathOrAddress)) return false;
    return QDesktopServices::openUrl(isAddress ? QUrl::fromUserInput(pathOrAddress)
                                               : QUrl::fromLocalFile(pathOrAddress));
}
