#include "base/TextFile.h"

#include "base/FileBytes.h"
#include "base/Lines.h"
#include "base/Numbers.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"

#include <algorithm>
#include <limits>

namespace {

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

void RemoveBlankLines(const std::string& path, const std::function<void(const std::string& bytes)>& losing)
{
    const auto bytes = ReadBytes(path);
    const auto cleaned = WithoutBlankLines(bytes);
    if (cleaned == bytes) return;
    if (losing && !Trim(SplitLines(bytes).back()).empty()) losing(bytes);  // only what follows the last CR LF can go
    WriteBytes(path, cleaned);
}

void RewriteWithoutBlankLines(const std::string& path)
{
    const auto bytes = ReadBytes(path);
    const auto lines = SplitLines(bytes);
    if (std::find(lines.begin(), lines.end(), "") != lines.end()) WriteBytes(path, WithoutBlankLines(bytes));
}
