#include "ui/Desktop.h"

#include "ui/Platform.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QUrl>

#include <cstdio>

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

void KeepWhatIsCopied() {}

void TellWithoutWindow(const char* utf8) { std::fprintf(stderr, "velumark：%s\n", utf8); }

bool IsUnpackedForAMoment(const std::string&) { return false; }
