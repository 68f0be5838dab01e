#include "check/CheckLines.h"

#include "base/CodePage.h"
#include "base/FileBytes.h"
#include "base/FileError.h"
#include "base/Utf8.h"

#include <algorithm>

namespace {

/// A text is quoted in a finding up to so many bytes.
constexpr std::size_t kQuoted = 60;

/// Length of the longest beginning of about `limit` bytes that splits no character of code page 936.
std::size_t wholeCharacters(std::string_view bytes, std::size_t limit)
{
    std::size_t i = 0;
    while (i < bytes.size() && i < limit) i += static_cast<unsigned char>(bytes[i]) > 0x80 ? 2 : 1;
    return std::min(i, bytes.size());
}

}  // namespace

bool LooksLikeUtf8(std::string_view bytes)
{
    return IsUtf8(bytes) && std::any_of(bytes.begin(), bytes.end(), [](char c) {
               const auto lead = static_cast<unsigned char>(c);
               return lead >= 0xE0 && lead < 0xF0;  // of three bytes, as ideographs are
           });
}

std::string QuotedText(std::string_view bytes)
{
    const std::size_t length = wholeCharacters(bytes, kQuoted);
    std::string text = Utf8FromCp936(bytes.substr(0, length));
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    return length < bytes.size() ? text + "…" : text;
}

LineSummary WalkLines(std::string_view bytes, const std::string& name, bool cleaned, Findings& findings,
                      const std::function<void(std::size_t, std::string_view, int)>& line)
{
    LineSummary summary;
    int number = 0;
    for (std::size_t at = 0; at < bytes.size();) {
        const auto end = bytes.find("\r\n", at);
        const bool last = end == std::string_view::npos;
        const auto piece = bytes.substr(at, last ? std::string_view::npos : end - at);
        ++number;
        if (piece.empty()) {
            findings.add(name, number, 0, cleaned ? "空行，打开项目时会被删除" : "空行，在编辑窗口里占一行");
            summary.blanks = true;
        } else if (last && cleaned && summary.blanks) {
            findings.add(name, number, 0, "最后一行没有以回车换行结尾，而前面有空行，打开项目时这一行会丢失",
                         Severity::Error);
        } else {
            if (piece.find_first_of("\r\n") != std::string_view::npos)
                findings.add(name, number, 0, "行内有单独的回车或换行符，换行应为回车加换行");
            ++summary.lines;
            summary.unterminated = last;
            line(at, piece, number);
        }
        at = last ? bytes.size() : end + 2;
    }
    return summary;
}

FileText ReadFile(const std::string& folder, const std::string& name, Findings& findings)
{
    const std::string path = folder + "/" + name;
    FileText file;
    file.missing = !FileExists(path);
    try {
        if (!file.missing) file.bytes = ReadBytes(path);
    } catch (const FileError& failure) {
        findings.add(name, 0, 0, "文件无法读取：" + std::string(failure.reason()), Severity::Error);
    }
    return file;
}
