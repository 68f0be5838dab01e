#pragma once
// What failed at a file of the machine: which file, reading or writing it, and why, in Chinese. The one place that
// knows what the numbers of the operating system mean.

#include "base/RunTimeError.h"

#include <string>
#include <string_view>
#include <system_error>

class FileError : public RunTimeError {
public:
    enum Doing { Reading, Writing };

    /// @param path  UTF-8
    /// @param why   what the operating system gave. Its number: a missing file is FileNotFound while reading, a missing
    ///              folder PathNotFound, anything else PathAccess.
    FileError(std::string path, Doing doing, std::error_code why);

    const std::string& path() const noexcept { return m_path; }
    std::string name() const;  ///< the file's own name, without its folder
    bool writing() const noexcept { return m_doing == Writing; }
    /// 磁盘已满, 没有写入权限, 没有读取权限, 文件夹不存在, 文件不存在, 正被其他程序使用 (Windows) or 读写错误.
    std::string_view reason() const noexcept { return m_reason; }
    /// “<name>”无法写入！ or “<name>”无法读取！
    std::string text() const;
    /// One line that names the whole path and the reason.
    const char* what() const noexcept override { return m_what.c_str(); }

private:
    std::string m_path;
    Doing m_doing;
    std::string_view m_reason;
    std::string m_what;
};
