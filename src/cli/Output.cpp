#include "cli/Output.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cctype>
#include <utility>

Format FormatOf(const Arguments& args)
{
    const std::string name = args.value("--format");
    if (!args.has("--format") || name == "table") return Format::Table;
    if (name == "csv") return Format::Csv;
    if (name == "json") return Format::Json;
    throw WrongUsage("--format 只能是 table、csv 或 json");
}

namespace {

/// Takes one code point off the front; a damaged byte counts as one.
char32_t nextCodePoint(std::string_view& text)
{
    const auto first = static_cast<unsigned char>(text[0]);
    const std::size_t length = first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t point = length == 1 ? first : first & (0x7F >> length);
    for (std::size_t i = 1; i < length && i < text.size(); ++i)
        point = point << 6 | (static_cast<unsigned char>(text[i]) & 0x3F);
    text.remove_prefix(std::min(length, text.size()));
    return point;
}

bool isWide(char32_t c)
{
    constexpr std::array<std::pair<char32_t, char32_t>, 11> wide{{{0x1100, 0x115F},
                                                                  {0x2E80, 0x303E},
                                                                  {0x3041, 0x33FF},
                                                                  {0x3400, 0x4DBF},
                                                                  {0x4E00, 0x9FFF},
                                                                  {0xAC00, 0xD7A3},
                                                                  {0xF900, 0xFAFF},
                                                                  {0xFE30, 0xFE6F},
                                                                  {0xFF00, 0xFF60},
                                                                  {0xFFE0, 0xFFE6},
                                                                  {0x20000, 0x3FFFD}}};
    return std::any_of(wide.begin(), wide.end(), [c](const auto& r) { return r.first <= c && c <= r.second; });
}

std::string quoted(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos) return text;
    std::string result = "\"";
    for (const char c : text) result.append(c == '"' ? 2 : 1, c);
    return result + "\"";
}

}  // namespace

int DisplayWidth(std::string_view text)
{
    int width = 0;
    while (!text.empty()) width += isWide(nextCodePoint(text)) ? 2 : 1;
    return width;
}

std::string AlignedTable(const GridText& grid)
{
    std::vector<int> widths(static_cast<std::size_t>(grid.cols()));
    for (int row = 0; row < grid.rows(); ++row)
        for (int col = 0; col < grid.cols(); ++col) {
            int& width = widths[static_cast<std::size_t>(col)];
            width = std::max(width, DisplayWidth(grid.text(row, col)));
        }
    std::string table;
    for (int row = 0; row < grid.rows(); ++row) {
        std::string line;
        for (int col = 0; col < grid.cols(); ++col) {
            const std::string& text = grid.text(row, col);
            line += text +
                    std::string(
                        static_cast<std::size_t>(widths[static_cast<std::size_t>(col)] - DisplayWidth(text) + 2), ' ');
        }
        table += line.substr(0, line.find_last_not_of(' ') + 1) + "\n";
    }
    return table;
}

std::string Csv(const GridText& grid, std::string_view lineEnd)
{
    std::string csv;
    for (int row = 0; row < grid.rows(); ++row) {
        for (int col = 0; col < grid.cols(); ++col) csv += (col ? "," : "") + quoted(grid.text(row, col));
        csv += lineEnd;
    }
    return csv;
}

std::string Json(const GridText& grid, const std::vector<std::string>& warnings)
{
    std::vector<std::string> keys;
    for (int col = 0; col < grid.cols(); ++col) {
        const std::string& header = grid.text(0, col);
        int before = 0;
        for (int i = 0; i < col; ++i) before += grid.text(0, i) == header;
        keys.push_back(before ? header + std::to_string(before + 1) : header);
    }
    auto rows = nlohmann::ordered_json::array();
    for (int row = 1; row < grid.rows(); ++row) {
        nlohmann::ordered_json object;
        for (int col = 0; col < grid.cols(); ++col) object[keys[static_cast<std::size_t>(col)]] = grid.text(row, col);
        const std::string& warning = warnings[static_cast<std::size_t>(row)];
        if (!warning.empty()) object["warning"] = warning;
        rows.push_back(std::move(object));
    }
    return rows.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string Rendered(const GridText& grid, const std::vector<std::string>& warnings, Format format)
{
    switch (format) {
    case Format::Csv:
        return Csv(grid, "\n");
    case Format::Json:
        return Json(grid, warnings);
    case Format::Table:
        break;
    }
    return AlignedTable(grid);
}

bool EndsWithNoCase(std::string_view path, std::string_view ending)
{
    return path.size() >= ending.size() &&
           std::equal(ending.begin(), ending.end(), path.end() - static_cast<std::ptrdiff_t>(ending.size()),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

std::string FileBytes(const std::string& path, const GridText& grid, const std::vector<std::string>& warnings,
                      Format format)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (EndsWithNoCase(path, ".csv")) return std::string(kMark) + Csv(grid, "\r\n");
    return Rendered(grid, warnings, format);
}
