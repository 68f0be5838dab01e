#include "base/TabText.h"

#include <optional>
#include <utility>

std::string TabText(const CellRows& rows)
{
    std::string text;
    for (const auto& row : rows) {
        for (std::size_t i = 0; i < row.size(); ++i) {
            if (i > 0) text += '\t';
            const std::string& cell = row[i];
            if (cell.find_first_of("\t\r\n\"") == std::string::npos) {
                text += cell;
                continue;
            }
            text += '"';
            for (const char c : cell) text.append(c == '"' ? 2 : 1, c);
            text += '"';
        }
        text += "\r\n";
    }
    return text;
}

namespace {

bool isLineEnd(char c) { return c == '\r' || c == '\n'; }

/// Takes a line end off the front; false where none stands there.
bool takeLineEnd(std::string_view& text)
{
    if (text.empty() || !isLineEnd(text.front())) return false;
    text.remove_prefix(text.starts_with("\r\n") ? 2 : 1);
    return true;
}

/// Takes a cell that needs its quotes off the front, without them.
std::optional<std::string> takeQuoted(std::string_view& text)
{
    std::string_view rest = text;
    if (!rest.starts_with('"')) return std::nullopt;
    rest.remove_prefix(1);
    std::string cell;
    bool needsQuotes = false;
    while (!rest.empty() && (!rest.starts_with('"') || rest.starts_with("\"\""))) {
        const char c = rest.front();
        needsQuotes = needsQuotes || c == '\t' || c == '"' || isLineEnd(c);
        cell += c;
        rest.remove_prefix(c == '"' ? 2 : 1);
    }
    if (!needsQuotes || rest.empty()) return std::nullopt;
    rest.remove_prefix(1);
    if (!rest.empty() && rest.front() != '\t' && !isLineEnd(rest.front())) return std::nullopt;
    text = rest;
    return cell;
}

std::string takeCell(std::string_view& text)
{
    if (auto quoted = takeQuoted(text)) return std::move(*quoted);
    const std::string_view taken = text.substr(0, text.find_first_of("\t\r\n"));
    text.remove_prefix(taken.size());
    return std::string(taken);
}

}  // namespace

CellRows RowsOfTabText(std::string_view text)
{
    CellRows rows;
    while (!text.empty()) {
        auto& row = rows.emplace_back();
        row.push_back(takeCell(text));
        while (text.starts_with('\t')) {
            text.remove_prefix(1);
            row.push_back(takeCell(text));
        }
        takeLineEnd(text);
    }
    return rows;
}
