#include "exchange/FieldFile.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include "exchange/ExchangeError.h"
#include "exchange/NumberText.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <utility>

namespace {

bool endsWith(std::string_view path, std::string_view ending)
{
    return path.size() >= ending.size() &&
           std::equal(ending.begin(), ending.end(), path.end() - static_cast<std::ptrdiff_t>(ending.size()),
                      [](unsigned char a, unsigned char b) { return std::tolower(a) == std::tolower(b); });
}

struct ColumnName {
    FieldColumn column;
    std::string_view key, header;
};
constexpr std::array kColumns{ColumnName{FieldColumn::Name, "name", "点号"},
                              ColumnName{FieldColumn::Code, "code", "编码"},
                              ColumnName{FieldColumn::Stake, "stake", "里程"},
                              ColumnName{FieldColumn::Offset, "offset", "偏距"},
                              ColumnName{FieldColumn::X, "x", "X"},
                              ColumnName{FieldColumn::Y, "y", "Y"},
                              ColumnName{FieldColumn::H, "h", "H"}};

std::string cell(const FieldPoint& p, FieldColumn column)
{
    switch (column) {
    case FieldColumn::Name:
        return p.name;
    case FieldColumn::Code:
        return p.code;
    case FieldColumn::Stake:
        return FixedText(p.stake, 3);
    case FieldColumn::Offset:
        return FixedText(p.offset, 3);
    case FieldColumn::X:
        return FixedText(p.x, 3);
    case FieldColumn::Y:
        return FixedText(p.y, 3);
    case FieldColumn::H:
        break;
    }
    return p.h ? FixedText(*p.h, 3) : "";
}

/// One word: index and its four signs, sign of the number, the number with zeros in front.
std::string word(std::string_view index, bool negative, const std::string& data, std::size_t width)
{
    return std::string(index) + (negative ? "-" : "+") + std::string(width - data.size(), '0') + data + " ";
}

}  // namespace

std::optional<FieldFormat> FieldFormatOf(std::string_view path)
{
    using enum FieldColumn;
    if (endsWith(path, ".dat")) return FieldFormat{FieldFormat::Dat, {Name, Code, Y, X, H}, ",", true};
    if (endsWith(path, ".csv")) return FieldFormat{FieldFormat::Csv, {Name, Code, Stake, Offset, X, Y, H}, ",", false};
    if (endsWith(path, ".txt")) return FieldFormat{FieldFormat::Txt, {Name, X, Y, H}, ",", false};
    if (endsWith(path, ".gsi")) return FieldFormat{FieldFormat::Gsi16, {}, " ", false};
    return std::nullopt;
}

std::vector<FieldColumn> FieldColumnsOf(const std::string& list)
{
    std::vector<FieldColumn> columns;
    for (const auto& piece : SplitFields(list)) {
        const auto found = std::find_if(kColumns.begin(), kColumns.end(),
                                        [&](const ColumnName& c) { return c.key == piece || c.header == piece; });
        if (found == kColumns.end()) throw ExchangeError("没有列“" + piece + "”，有：name,code,stake,offset,x,y,h");
        columns.push_back(found->column);
    }
    return columns;
}

std::string FieldWriter::begin() const
{
    if (m_format.kind != FieldFormat::Csv) return {};
    std::string header;
    for (const auto column : m_format.columns)
        for (const auto& name : kColumns)
            if (name.column == column) header += (header.empty() ? "" : m_format.separator) + std::string(name.header);
    header += "\r\n";
    return m_format.codePage936 ? Cp936FromUtf8(header) : "\xEF\xBB\xBF" + header;
}

std::string FieldWriter::line(const FieldPoint& point)
{
    if (m_format.kind == FieldFormat::Gsi16 || m_format.kind == FieldFormat::Gsi8) return gsi(point);
    std::string text;
    bool first = true;
    for (const auto column : m_format.columns) {
        const std::string value = cell(point, column);
        if (value.find(m_format.separator) != std::string::npos)
            throw ExchangeError("点 " + point.name + "：“" + value + "”里有分隔符");
        if (!first) text += m_format.separator;
        text += value;
        first = false;
    }
    text += "\r\n";
    return m_format.codePage936 ? Cp936FromUtf8(text) : text;
}

std::string FieldWriter::gsi(const FieldPoint& point)
{
    const bool wide = m_format.kind == FieldFormat::Gsi16;
    const std::size_t width = wide ? 16 : 8;
    const auto fitting = [&](const std::string& data, const char* what) {
        if (data.size() > width)
            throw ExchangeError("点 " + point.name + "：" + what + " " + data + " 超过 " + std::to_string(width) +
                                " 位" + (wide ? "" : "，请用 GSI-16"));
        if (std::any_of(data.begin(), data.end(), [](unsigned char c) { return c < 0x21 || c > 0x7E; }))
            throw ExchangeError("点 " + point.name + "：" + what + "里有 GSI 不能写的字符");
        return data;
    };
    const auto millimetres = [&](const char* index, double metres, const char* what) {
        const auto value = std::llround(metres * 1000);
        return word(index, value < 0, fitting(std::to_string(std::llabs(value)), what), width);
    };
    m_number = m_number % 9999 + 1;
    std::string number = std::to_string(m_number);
    number.insert(0, 4 - number.size(), '0');
    std::string text = (wide ? "*" : "") + word("11" + number, false, fitting(point.name, "点号"), width);
    if (!point.code.empty()) text += word("71....", false, fitting(point.code, "编码"), width);
    text += millimetres("81..40", point.y, "Y 坐标") + millimetres("82..40", point.x, "X 坐标");
    if (point.h) text += millimetres("83..40", *point.h, "高程");
    return text + "\r\n";
}
