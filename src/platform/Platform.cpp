#include "platform/Platform.h"

#include "desk/Desk.h"
#include "platform/DocumentWindow.h"
#include "project/FileError.h"

#include <QDesktopServices>
#include <QFileInfo>
#include <QGuiApplication>
#include <QSettings>
#include <QUrl>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <new>
#include <string>

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

namespace {

/// The last that the person sees: unsaved sheets go into files first, as far as that is still possible.
void endAfter(int number, const std::string& what)
{
    std::string kept;
    try {
        kept = DocumentWindow::keepUnsaved();
    } catch (const std::exception&) {
        kept = "\n\n未保存的工作表没有能存入文件";
    }
    desk().box({.text = "实时错误 '" + std::to_string(number) + "'：\n\n" + what + kept,
                .title = "Velumark",
                .icon = Icon::Critical});
    platform().endProcess(1);
}

}  // namespace

void runHandler(const std::function<void()>& body)
{
    constexpr int kOutOfMemory = 7;
    try {
        body();
    } catch (const RunTimeError& error) {
        endAfter(error.number(), error.what());
    } catch (const std::bad_alloc&) {
        endAfter(kOutOfMemory, "内存不足");
    } catch (const std::filesystem::filesystem_error& error) {
        const auto path = error.path1().u8string();
        const FileError failed({path.begin(), path.end()}, FileError::Reading, error.code());
        endAfter(failed.number(), failed.what());
    }
}
