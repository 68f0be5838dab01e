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

bool LineWalk::next()
{
    if (m_at >= m_bytes.size()) return false;
    const auto end = m_bytes.find("\r\n", m_at);
    const bool last = end == std::string_view::npos;
    const auto piece = m_bytes.substr(m_at, last ? std::string_view::npos : end - m_at);
    ++m_number;
    if (piece.empty()) {
        m_findings.add(m_name, m_number, 0, m_cleaned ? "空行，打开项目时会被删除" : "空行，在编辑窗口里占一行");
        m_summary.blanks = true;
    } else if (last && m_cleaned && m_summary.blanks) {
        m_findings.add(m_name, m_number, 0, "最后一行没有以回车换行结尾，而前面有空行，打开项目时这一行会丢失",
                       Severity::Error);
    } else {
        if (piece.find_first_of("\r\n") != std::string_view::npos)
            m_findings.add(m_name, m_number, 0, "行内有单独的回车或换行符，换行应为回车加换行");
        ++m_summary.lines;
        m_summary.unterminated = last;
        m_line(m_at, piece, m_number);
    }
    m_at = last ? m_bytes.size() : end + 2;
    return m_at < m_bytes.size();
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
