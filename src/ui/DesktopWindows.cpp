#include "ui/Desktop.h"

#include "base/FileBytes.h"
#include "base/FilePath.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <filesystem>
#include <string>
#include <system_error>
#include <windows.h>

// After windows.h, which they need.
#include <ole2.h>
#include <shellapi.h>
#include <shlwapi.h>

namespace {

/// Also true of a program that the shell starts by what it knows of the document.
bool started(const wchar_t* document, const wchar_t* words, int show)
{
    // Above 32 is success: so ShellExecute has told it since 16 bits.
    return reinterpret_cast<INT_PTR>(ShellExecuteW(nullptr, L"open", document, words, nullptr, show)) > 32;
}

/// The program by which pages are shown, "" for none. A page's own file would be opened at its beginning: the shell
/// forgets the place behind "#".
std::wstring browser()
{
    wchar_t program[MAX_PATH] = L"";
    DWORD room = MAX_PATH;
    const auto found = AssocQueryStringW(ASSOCF_NOTRUNCATE, ASSOCSTR_EXECUTABLE, L".html", L"open", program, &room);
    return found == S_OK ? program : L"";
}

bool openPage(const QUrl& page)
{
    const std::wstring program = browser();
    if (!program.empty() && page.hasFragment() &&
        started(program.c_str(), (u'"' + page.toString(QUrl::FullyEncoded) + u'"').toStdWString().c_str(),
                SW_SHOWMAXIMIZED))
        return true;
    return OpenOnDesktop(page.toLocalFile());
}

/// Compared as places: the folder for temporary files is often told by a short name of eight letters.
bool liesBelow(std::filesystem::path place, const std::filesystem::path& folder)
{
    std::error_code error;
    for (; place.has_relative_path(); place = place.parent_path())
        if (std::filesystem::equivalent(place, folder, error)) return true;
    return false;
}

}  // namespace

// A blank stays there; not every font of captions has characters without a width.
QString UnseenTitle() { return QStringLiteral(" "); }

bool IsKeyHeld(int virtualKey) { return GetAsyncKeyState(virtualKey) < 0; }

bool OpenOnDesktop(const QString& pathOrAddress)
{
    if (const QUrl url(pathOrAddress); url.isLocalFile()) return openPage(url);
    if (pathOrAddress.contains(u"://") || pathOrAddress.startsWith(u"www.", Qt::CaseInsensitive))
        return started(L"explorer", pathOrAddress.toStdWString().c_str(), SW_SHOWNORMAL);
    const QFileInfo file(pathOrAddress);
    if (!file.exists()) return false;
    const QString path = QDir::toNativeSeparators(pathOrAddress);
    if (file.suffix().compare(u"chm", Qt::CaseInsensitive) == 0)
        return started(L"hh.exe", (u'"' + path + u'"').toStdWString().c_str(), SW_SHOWMAXIMIZED);
    return started(path.toStdWString().c_str(), nullptr, file.isDir() ? SW_SHOWNORMAL : SW_SHOWMAXIMIZED);
}

// A program that pastes is given the data when it asks; the flush gives them to Windows now.
void KeepWhatIsCopied() { OleFlushClipboard(); }

void TellWithoutWindow(const char* utf8)
{
    wchar_t text[1024] = L"";  // also where there is no memory left
    if (MultiByteToWideChar(CP_UTF8, 0, utf8, -1, text, 1024))
        MessageBoxW(nullptr, text, L"Velumark", MB_OK | MB_ICONERROR);
}

bool IsUnpackedForAMoment(const std::string& folder)
{
    wchar_t temporary[MAX_PATH + 1] = L"";
    GetTempPathW(MAX_PATH + 1, temporary);
    // Without the separator at its end, with which it is found nowhere.
    return liesBelow(filePath(folder), std::filesystem::path(temporary).parent_path()) &&
           !FolderExists(folder + "/示例") && !FileExists(folder + "/LICENSE");
}
