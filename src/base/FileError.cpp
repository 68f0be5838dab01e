#include "base/FileError.h"

#include "base/FilePath.h"

#include <cerrno>
#include <string_view>
#include <utility>

namespace {

bool diskIsFull(std::error_code why)
{
#ifdef EDQUOT
    if (why == std::error_code(EDQUOT, std::generic_category()) ||
        why == std::error_code(EDQUOT, std::system_category()))
        return true;
#endif
    return why == std::errc::no_space_on_device;
}

bool notAllowed(std::error_code why)
{
    return why == std::errc::permission_denied || why == std::errc::operation_not_permitted ||
           why == std::errc::read_only_file_system;
}

/// A spreadsheet or a viewer holds the file; only Windows keeps others out then.
bool heldByAnother([[maybe_unused]] std::error_code why)
{
#ifdef _WIN32
    return why == std::errc::device_or_resource_busy;
#else
    return false;
#endif
}

bool folderIsThere(const std::string& path)
{
    const auto folder = filePath(path).parent_path();
    std::error_code error;
    return std::filesystem::is_directory(folder.empty() ? "." : folder, error);
}

enum class Kind { DiskFull, NotAllowed, NoFile, NoFolder, InUse, Other };

Kind kindOf(const std::string& path, FileError::Doing doing, std::error_code why)
{
    if (diskIsFull(why)) return Kind::DiskFull;
    if (heldByAnother(why)) return Kind::InUse;
    if (notAllowed(why)) return Kind::NotAllowed;
    if (why == std::errc::not_a_directory) return Kind::NoFolder;
    if (why != std::errc::no_such_file_or_directory) return Kind::Other;
    // A file that is not there yet is no reason why it cannot be written.
    return doing == FileError::Reading && folderIsThere(path) ? Kind::NoFile : Kind::NoFolder;
}

RunTimeError::Number numberOf(Kind kind)
{
    return kind == Kind::NoFile     ? RunTimeError::FileNotFound
           : kind == Kind::NoFolder ? RunTimeError::PathNotFound
                                    : RunTimeError::PathAccess;
}

std::string_view reasonOf(Kind kind, FileError::Doing doing)
{
    switch (kind) {
    case Kind::DiskFull:
        return "磁盘已满";
    case Kind::NotAllowed:
        return doing == FileError::Writing ? "没有写入权限" : "没有读取权限";
    case Kind::NoFile:
        return "文件不存在";
    case Kind::NoFolder:
        return "文件夹不存在";
    case Kind::InUse:
        return "正被其他程序使用";
    case Kind::Other:
        break;
    }
    return "读写错误";
}

}  // namespace

FileError::FileError(std::string path, Doing doing, std::error_code why)
    : RunTimeError(numberOf(kindOf(path, doing, why))), m_path(std::move(path)), m_doing(doing),
      m_reason(reasonOf(kindOf(m_path, doing, why), doing)),
      m_what("“" + m_path + "”" + (writing() ? "无法写入：" : "无法读取：") + std::string(m_reason))
{}

std::string FileError::name() const
{
    const auto path = m_path.substr(0, m_path.find_last_not_of(kSeparators) + 1);
    return path.substr(path.find_last_of(kSeparators) + 1);  // the whole of it where there is no folder
}

std::string FileError::text() const { return "“" + name() + (writing() ? "”无法写入！" : "”无法读取！"); }
