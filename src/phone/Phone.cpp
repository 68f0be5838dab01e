#include "phone/Phone.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/FilePath.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "base/Utf16File.h"
#include "dialogs/Dialogs.h"
#include "dialogs/FileBox.h"
#include "dialogs/Messages.h"
#include "project/DeleteFolderTree.h"
#include "project/Workspace.h"

#include <algorithm>
#include <exception>
#include <filesystem>
#include <functional>
#include <system_error>
#include <utility>
#include <vector>

namespace {

std::string listPath() { return PhonePath() + "/XMMC.txt"; }

bool refuse(const char* text) { return dialogs().box(Notice(text)); }

/// What one press has made or replaced: taken back, newest first, unless it is kept.
class Undo {
public:
    Undo() = default;
    Undo(const Undo&) = delete;
    Undo& operator=(const Undo&) = delete;
    ~Undo() { takeBack(); }

    /// A file that is about to be written, or created empty.
    void willWrite(const std::string& path)
    {
        if (LookAt(path) == Look::Regular)
            m_steps.push_back([path, bytes = ReadBytes(path)] { WriteBytes(path, bytes); });
        else
            willMake(path);
    }
    /// A file or a folder that is about to be made where nothing stands.
    void willMake(const std::string& path)
    {
        if (LookAt(path) != Look::Missing) return;
        m_steps.push_back([path] {
            std::error_code ignored;
            std::filesystem::remove(filePath(path), ignored);  // a folder with something in it stays
        });
    }
    void keep() { m_steps.clear(); }
    void takeBack() noexcept
    {
        for (; !m_steps.empty(); m_steps.pop_back()) {
            try {
                m_steps.back()();
            } catch (const std::exception&) {  // no more can be done about that one
            }
        }
    }

private:
    std::vector<std::function<void()>> m_steps;
};

/// False: something that is no folder stands there.
bool makeFolder(const std::string& path, Undo& undo)
{
    if (FolderExists(path)) return true;
    if (LookAt(path) != Look::Missing) return false;
    undo.willMake(path);
    std::error_code error;
    std::filesystem::create_directory(filePath(path), error);
    if (error) throw FileError(path, FileError::Writing, error);
    return true;
}

/// The lines of the list; what follows the last CR LF is none.
std::vector<std::string> listed(const std::string& text)
{
    auto lines = SplitLines(text);
    if (!lines.empty()) lines.pop_back();
    return lines;
}

void copyFiles(const std::string& name, Undo& undo)
{
    for (const auto& file : kPhoneFiles) {
        const auto source = ParameterFile(file.source),
                   target = PhoneProjectPath(name) + "/" + std::string(file.target);
        undo.willMake(source);
        const auto text = Utf8FromCp936(ReadBytesCreating(source));
        undo.willWrite(target);
        WriteUtf16File(target, text);
    }
}

PhoneExport exportAs(const std::string& name, Undo& undo)
{
    // Made before the list is looked at, so a declined export leaves the folder in place.
    if (!IsPhoneProjectName(name) || !makeFolder(PhonePath(), undo) || !makeFolder(PhoneProjectPath(name), undo)) {
        undo.takeBack();
        refuse("文件夹无法建立，请输入一个英文的项目名称！");
        return PhoneExport::Stopped;
    }
    const std::string list = FileExists(listPath()) ? ReadUtf16File(listPath()) : "";
    const auto names = listed(list);
    const bool added = std::find(names.begin(), names.end(), name) == names.end();
    if (added) {
        undo.willWrite(listPath());
        WriteUtf16File(listPath(), list + name + "\r\n");
    } else if (!dialogs().box(Question("项目已存在！是否覆盖？"))) {
        return PhoneExport::Declined;
    }
    copyFiles(name, undo);
    return added ? PhoneExport::Added : PhoneExport::Replaced;
}

}  // namespace

bool IsPhoneNameKey(int keyAscii)
{
    return (keyAscii >= '0' && keyAscii <= '9') || (keyAscii >= 'a' && keyAscii <= 'z') ||
           (keyAscii >= 'A' && keyAscii <= 'Z') || keyAscii == 8;
}

PhoneExport ExportForPhone(const std::string& typedName)
{
    const std::string name(Trim(typedName));
    if (name.empty()) {
        refuse("项目名称不能为空！");
        return PhoneExport::Stopped;
    }
    Undo undo;
    auto done = PhoneExport::Stopped;
    try {
        done = exportAs(name, undo);
    } catch (const FileError& error) {
        undo.takeBack();
        dialogs().box(FileBox(error));
    }
    undo.keep();
    if (done == PhoneExport::Added || done == PhoneExport::Replaced)
        dialogs().box(
            {.text = "转换完成，请按帮助中的说明复制参数到手机！", .title = "完成", .icon = Icon::Information});
    return done;
}

Outcome RemovePhoneProject(int index, int count, const std::string& name)
{
    if (!FileExists(listPath())) throw RunTimeError(RunTimeError::FileNotFound);
    const auto before = ReadBytes(listPath());
    const auto text = ReadUtf16File(listPath());
    const auto pieces = SplitLines(text);
    for (int i = 0; i < count; ++i)
        if (i != index) at(pieces, i);

    auto names = listed(text);
    const auto line = LineOf(names, index, name);
    if (!line) return {NoLongerListed(name)};
    names.erase(names.begin() + *line);
    if (names.empty())
        WriteBytes(listPath(), "");
    else
        WriteUtf16File(listPath(), JoinLines(names));
    try {
        if (IsPhoneProjectName(name)) DeleteFolderTree(PhoneProjectPath(name));
    } catch (const FileError&) {  // what is left of the folder stays in reach
        attempt([&] { WriteBytes(listPath(), before); });
        throw;
    }
    return {};
}
