#include "ui/Desktop.h"

#include <QDir>
#include <QFileInfo>
#include <QUrl>

#include <string>
#include <windows.h>

// After windows.h, which they need.
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
