#include "phone/Phone.h"

#include "desk/Desk.h"
#include "engine/Numbers.h"
#include "engine/RunTimeError.h"
#include "project/FilePath.h"
#include "project/TextFile.h"
#include "project/Workspace.h"

#include <algorithm>
#include <system_error>
#include <vector>

namespace {

std::string listPath() { return PhonePath() + "/XMMC.txt"; }

bool refuse(const char* text) { return desk().box({.text = text, .title = "注意", .icon = Icon::Exclamation}); }

bool makeFolder(const std::string& path)
{
    std::error_code error;
    std::filesystem::create_directory(filePath(path), error);
    return FolderExists(path);
}

/// The lines of the list; what follows the last CR LF is none.
std::vector<std::string> listed(const std::string& text)
{
    auto lines = SplitLines(text);
    if (!lines.empty()) lines.pop_back();
    return lines;
}

void copyFiles(const std::string& name)
{
    for (const auto& file : kPhoneFiles)
        WriteUtf16File(PhoneProjectPath(name) + "/" + file.target,
                       Utf8FromCp936(ReadBytesCreating(ParameterFile(file.source))));
}

PhoneExport exportAs(const std::string& name)
{
    const std::string list = FileExists(listPath()) ? ReadUtf16File(listPath()) : "";
    const auto names = listed(list);
    if (std::find(names.begin(), names.end(), name) == names.end()) {
        WriteUtf16File(listPath(), list + name + "\r\n");
        copyFiles(name);
        return PhoneExport::Added;
    }
    if (!desk().box({"项目已存在！是否覆盖？", "注意", Icon::Question, Msg::YesNo, Msg::No}))
        return PhoneExport::Declined;
    copyFiles(name);
    return PhoneExport::Replaced;
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
    if (!FolderExists(ParameterFile(""))) {
        refuse("项目的参数文件夹不存在！");
        return PhoneExport::Stopped;
    }
    // Made before the list is looked at, so a declined export leaves the folder in place.
    if (!IsFolderName(name) || !makeFolder(PhonePath()) || !makeFolder(PhoneProjectPath(name))) {
        refuse("文件夹无法建立，请输入一个英文的项目名称！");
        return PhoneExport::Stopped;
    }
    const auto done = exportAs(name);
    if (done != PhoneExport::Declined)
        desk().box({.text = "转换完成，请按帮助中的说明复制参数到手机！", .title = "完成", .icon = Icon::Information});
    return done;
}

void RemovePhoneProject(int index, int count, const std::string& name)
{
    const auto lines = SplitLines(ReadUtf16File(listPath()));
    std::string rest;
    for (int i = 0; i < count; ++i)
        if (i != index) rest += at(lines, i) + "\r\n";
    if (IsFolderName(name)) DeleteFolderTree(PhoneProjectPath(name));
    if (rest.empty())
        WriteBytes(listPath(), "");
    else
        WriteUtf16File(listPath(), rest);
}
