#include "base/Lines.h"

#include <algorithm>

std::vector<std::string> Split(std::string_view text, std::string_view separator)
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

std::vector<std::string> SplitLines(std::string_view bytes) { return Split(bytes, "\r\n"); }

std::vector<std::string> SplitFields(std::string_view line) { return Split(line, ","); }

std::string JoinLines(const std::vector<std::string>& lines)
{
    std::string bytes;
    for (const auto& line : lines) bytes.append(line).append("\r\n");
    return bytes;
}

std::vector<std::string> AnyLines(std::string_view text)
{
    auto lines = Split(text, "\n");
    if (!lines.empty() && lines.back().empty()) lines.pop_back();
    for (auto& line : lines)
        if (line.ends_with('\r')) line.pop_back();
    return lines;
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

std::ptrdiff_t LastCommaLine(const std::vector<std::string>& lines)
{
    auto last = std::ssize(lines) - 1;
    while (last >= 0 && lines[static_cast<std::size_t>(last)].find(',') == std::string::npos) --last;
    return last;
}
