#include "cli/Output.h"

#include "base/FileError.h"
#include "base/Numbers.h"
#include "base/ReplaceFile.h"
#include "base/RunTimeError.h"
#include "base/Utf8.h"
#include "cli/Command.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <iterator>
#include <optional>
#include <ostream>
#include <utility>

namespace {

constexpr std::pair<std::string_view, Format> kForms[] = {{"table", Format::Table},
                                                          {"csv", Format::Csv},
                                                          {"json", Format::Json},
                                                          {"xls", Format::Sheet},
                                                          {"xlsx", Format::Workbook}};

/// Endings of spreadsheets, of which .xls, .xlsx and .csv alone are written.
constexpr std::string_view kSpreadsheets[] = {".xls", ".xlsx", ".xlsm", ".xlsb", ".xlt", ".xltx", ".xltm",
                                              ".xlw", ".ods",  ".fods", ".ots",  ".et",  ".ett",  ".numbers"};

bool hasForm(std::string_view forms, std::string_view name)
{
    return (" " + std::string(forms) + " ").find(" " + std::string(name) + " ") != std::string::npos;
}

/// Of --format. @throws WrongUsage
Format namedForm(const std::string& name, std::string_view forms)
{
    std::vector<std::string_view> possible;
    for (const auto& [form, format] : kForms) {
        if (format == Format::Sheet || format == Format::Workbook || !hasForm(forms, form)) continue;
        if (form == name) return format;
        possible.push_back(form);
    }
    std::string list;
    for (std::size_t i = 0; i < possible.size(); ++i)
        list += (i == 0 ? "" : i + 1 == possible.size() ? " 或 " : "、") + std::string(possible[i]);
    throw WrongUsage("--format " + name + "：只能是 " + list);
}

/// The form that the ending of a file names, nothing where it names none. @throws WrongUsage
std::optional<Format> formOfEnding(const std::string& path, std::string_view forms)
{
    for (const std::string_view ending : kSpreadsheets)
        if (EndsWithNoCase(path, ending) && !hasForm(forms, ending.substr(1)))
            throw WrongUsage("-o " + path + "：这个命令不写 " + std::string(ending) + " 文件");
    for (const auto& [form, format] : kForms)
        if (format != Format::Table && EndsWithNoCase(path, "." + std::string(form))) {
            if (!hasForm(forms, form))
                throw WrongUsage("-o " + path + "：这个命令不写 ." + std::string(form) + " 文件");
            return format;
        }
    return std::nullopt;
}

}  // namespace

Format FormatOf(const Arguments& args, std::string_view forms)
{
    const std::string name = args.value("--format"), path = args.value("-o");
    std::optional<Format> named, ended;
    if (args.has("--format")) named = namedForm(name, forms);
    if (args.has("-o")) {
        if (path.empty()) throw WrongUsage("选项 -o 后面缺少文件");
        ended = formOfEnding(path, forms);
    }
    if (named && ended && *named != *ended) throw WrongUsage("--format " + name + " 和 -o " + path + " 不一致");
    return named ? *named : ended.value_or(Format::Table);
}

namespace {

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

/// The text behind the sign is what the calculation screens write below 0: a number, or an angle in degrees.
bool isNumberOrAngle(const std::string& text)
{
    if (attempt([&] { ParseNumber(text); })) return true;
    const auto digits = text.find_first_not_of("0123456789", 1);
    return digits != std::string::npos && digits > 1 &&
           (text.compare(digits, 3, "度") == 0 || text.compare(digits, 2, "°") == 0);
}

/// A spreadsheet computes a cell that begins so, quoted or not.
bool looksLikeFormula(const std::string& text)
{
    constexpr std::string_view kStarts[] = {"=", "+", "-", "@", "\t", "\r", "＝", "＋", "－", "＠"};
    return std::any_of(std::begin(kStarts), std::end(kStarts), [&](auto start) { return text.starts_with(start); }) &&
           !isNumberOrAngle(text);
}

/// Bytes that a cell of a .csv may need quotes for, or that a formula begins with.
constexpr auto kSpecial = [] {
    std::array<bool, 256> special{};
    for (const char c : std::string_view(",\"\r\n=+-@\t\xEF")) special[static_cast<unsigned char>(c)] = true;
    return special;
}();

void appendQuoted(std::string& csv, const std::string& text)
{
    const bool plain = std::none_of(text.begin(), text.end(), [](unsigned char c) { return kSpecial[c]; });
    const bool formula = !plain && looksLikeFormula(text);
    if (plain || (!formula && text.find_first_of(",\"\r\n") == std::string::npos)) {
        csv += text;
        return;
    }
    csv += formula ? "\"'" : "\"";
    for (const char c : text) csv.append(c == '"' ? 2 : 1, c);
    csv += '"';
}

}  // namespace

int DisplayWidth(std::string_view text)
{
    int width = 0;
    while (!text.empty()) width += isWide(TakeCharacter(text)) ? 2 : 1;
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
        for (int col = 0; col < grid.cols(); ++col) {
            if (col > 0) csv += ',';
            appendQuoted(csv, grid.text(row, col));
        }
        csv += lineEnd;
    }
    return csv;
}

std::string Rendered(const OutputTable& table, Format format)
{
    switch (format) {
    case Format::Csv:
        return Csv(table.grid, "\n");
    case Format::Json:
        return Json(table);
    case Format::Table:
    case Format::Sheet:
    case Format::Workbook:
        break;
    }
    return AlignedTable(table.grid);
}

bool EndsWithNoCase(std::string_view path, std::string_view ending)
{
    return path.size() >= ending.size() &&
           std::equal(ending.begin(), ending.end(), path.end() - static_cast<std::ptrdiff_t>(ending.size()),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

std::string FileBytes(const std::string& path, const OutputTable& table, Format format)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (EndsWithNoCase(path, ".csv")) return std::string(kMark) + Csv(table.grid, "\r\n");
    return Rendered(table, format);
}

bool WriteOutput(const Call& call, const std::string& path, const std::function<std::string()>& bytes)
{
    try {
        WriteResult(path, bytes());
        return true;
    } catch (const FileError& error) {
        call.err << error.what() << '\n';
    } catch (const RunTimeError& error) {  // a table that no sheet holds
        call.err << "“" << path << "”无法写入：" << error.what() << '\n';
    }
    return false;
}
