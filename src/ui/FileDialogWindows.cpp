#include "ui/FileDialog.h"

#include "ui/QtDialogs.h"

#include <QApplication>
#include <QDir>
#include <QWidget>
#include <QWindow>

#include <filesystem>
#include <string>
#include <system_error>
#include <vector>
#include <windows.h>

// After windows.h, which they need.
#include <commdlg.h>

namespace {

HWND handleOf(const QWidget& window)
{
    return window.windowHandle() ? reinterpret_cast<HWND>(window.windowHandle()->winId()) : nullptr;
}

/// Windows disables the window below its dialog alone; the program's others would go on taking clicks.
class OthersDisabled {
public:
    explicit OthersDisabled(const QWidget* over)
    {
        for (const auto* window : QApplication::topLevelWidgets()) {
            const HWND handle = window->isVisible() && window != over ? handleOf(*window) : nullptr;
            if (handle && IsWindowEnabled(handle)) m_disabled.push_back(handle);
        }
        for (const HWND handle : m_disabled) EnableWindow(handle, FALSE);
    }
    ~OthersDisabled()
    {
        for (const HWND handle : m_disabled) EnableWindow(handle, TRUE);
    }
    OthersDisabled(const OthersDisabled&) = delete;
    OthersDisabled& operator=(const OthersDisabled&) = delete;

private:
    std::vector<HWND> m_disabled;
};

/// The dialog to open a file moves the process into the folder that was chosen; relative names and the removal of that
/// folder, which it would keep from going, want it where it was.
class FolderKept {
public:
    FolderKept() : m_folder(std::filesystem::current_path(m_error)) {}
    ~FolderKept()
    {
        if (!m_error) std::filesystem::current_path(m_folder, m_error);
    }
    FolderKept(const FolderKept&) = delete;
    FolderKept& operator=(const FolderKept&) = delete;

private:
    std::error_code m_error;
    std::filesystem::path m_folder;
};

/// Caption and patterns in turn, each ended by a zero, one zero more at the end.
std::wstring pairsOf(const QString& filter)
{
    std::wstring pairs;
    const auto pieces = filter.split(u'|');
    const auto captions = nameFilters(filter);
    for (int i = 0; i < captions.size(); ++i)
        pairs += captions[i].toStdWString() + L'\0' + pieces[2 * i + 1].toStdWString() + L'\0';
    return pairs + L'\0';
}

constexpr DWORD kRoom = 32768;  // the longest path

}  // namespace

QString askForFile(QWidget* over, FileDialog kind, const QString& filter, const QString& proposed)
{
    const auto filters = pairsOf(filter);
    const auto title = titleOf(kind).toStdWString();
    std::wstring name = QDir::toNativeSeparators(proposed).toStdWString();
    name.resize(kRoom, L'\0');

    OPENFILENAMEW ask{};
    ask.lStructSize = sizeof ask;
    ask.hwndOwner = over ? handleOf(*over) : nullptr;
    ask.lpstrFilter = filters.c_str();
    ask.nFilterIndex = 1;
    ask.lpstrFile = name.data();
    ask.nMaxFile = kRoom;
    ask.lpstrTitle = title.c_str();
    // No OFN_OVERWRITEPROMPT and no default extension: whoever asks does both. OFN_NOCHANGEDIR is not heard where a
    // file is opened.
    ask.Flags = OFN_EXPLORER | OFN_HIDEREADONLY | OFN_NOCHANGEDIR |
                (kind == FileDialog::Open ? OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST : OFN_NOTESTFILECREATE);

    const FolderKept folder;
    const OthersDisabled whileItStands(over);
    const auto show = [&] { return kind == FileDialog::Open ? GetOpenFileNameW(&ask) : GetSaveFileNameW(&ask); };
    bool chosen = show();
    if (!chosen && CommDlgExtendedError() == FNERR_INVALIDFILENAME) {  // a proposal that cannot be a name
        name.assign(kRoom, L'\0');
        ask.lpstrFile = name.data();
        chosen = show();
    }
    return chosen ? QDir::fromNativeSeparators(QString::fromWCharArray(name.c_str())) : QString();
}
