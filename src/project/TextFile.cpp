// Lines and fields of text files, and the helpers that rewrite a whole file.

#include "project/TextFile.h"

#include "engine/RunTimeError.h"

#include <algorithm>
#include <limits>

namespace {

std::vector<std::string> split(std::string_view text, std::string_view separator)
{
    std::vector<std::string> pieces;
    if (text.empty()) return pieces;
    for (auto end = text.find(separator); end != std::string_view::npos; end = text.find(separator)) {
        pieces.emplace_back(text.substr(0, end));
        text.remove_prefix(end + separator.size());
    }
    pieces.emplace_back(text);
    return pieces;
}

/// Reads, lets `edit` change the lines without the piece after the last CR LF, and writes what is left.
template <class Edit>
void rewrite(const std::string& path, Edit edit)
{
    auto lines = SplitLines(ReadBytes(path));
    if (!lines.empty()) lines.pop_back();
    edit(lines);
    WriteBytes(path, JoinLines(lines));
}

/// Runs `change` with the place of line `lineNo` where there is one.
template <class Change>
void onLine(std::vector<std::string>& lines, std::int16_t lineNo, Change change)
{
    if (lineNo >= 1 && static_cast<std::size_t>(lineNo) <= lines.size()) change(lines.begin() + (lineNo - 1));
}

}  // namespace

std::vector<std::string> SplitLines(std::string_view bytes) { return split(bytes, "\r\n"); }

std::vector<std::string> SplitFields(std::string_view line) { return split(line, ","); }

std::string JoinLines(const std::vector<std::string>& lines)
{
    std::string bytes;
    for (const auto& line : lines) bytes.append(line).append("\r\n");
    return bytes;
}

std::string ReadLine(const std::string& path, std::int16_t index)
{
    const auto lines = SplitLines(ReadBytes(path));
    return at(lines, index);
}

void ReplaceLine(const std::string& path, std::int16_t lineNo, std::string_view text)
{
    rewrite(path, [&](auto& lines) { onLine(lines, lineNo, [&](auto line) { *line = text; }); });
}

void InsertLine(const std::string& path, std::int16_t lineNo, std::string_view text)
{
    rewrite(path, [&](auto& lines) { onLine(lines, lineNo, [&](auto line) { lines.emplace(line, text); }); });
}

void DeleteLine(const std::string& path, std::int16_t lineNo)
{
    rewrite(path, [&](auto& lines) { onLine(lines, lineNo, [&](auto line) { lines.erase(line); }); });
}

std::string WithoutBlankLines(const std::string& bytes)
{
    auto lines = SplitLines(bytes);
    if (std::none_of(lines.begin(), lines.end(), [](const auto& line) { return line.empty(); })) return bytes;
    // The first deletion drops the piece after the last CR LF; from then on that piece is empty, and its own deletion
    // changes nothing. So one pass leaves the same bytes as one rewrite a blank line.
    lines.pop_back();
    std::erase_if(lines, [](const auto& line) { return line.empty(); });
    return JoinLines(lines);
}

void RemoveBlankLines(const std::string& path)
{
    const auto bytes = ReadBytes(path);
    if (const auto cleaned = WithoutBlankLines(bytes); cleaned != bytes) WriteBytes(path, cleaned);
}

void RewriteWithoutBlankLines(const std::string& path)
{
    const auto bytes = ReadBytes(path);
    const auto lines = SplitLines(bytes);
    if (std::find(lines.begin(), lines.end(), "") != lines.end()) WriteBytes(path, WithoutBlankLines(bytes));
}

std::ptrdiff_t LastCommaLine(const std::vector<std::string>& lines)
{
    auto last = std::ssize(lines) - 1;
    while (last >= 0 && lines[static_cast<std::size_t>(last)].find(',') == std::string::npos) --last;
    return last;
}
