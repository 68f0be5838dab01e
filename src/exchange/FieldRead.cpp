// Reading back what instruments and field programs write.

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "exchange/ExchangeError.h"
#include "exchange/FieldFile.h"

#include "base/CodePage.h"
#include "base/Lines.h"
#include <algorithm>
#include <array>
#include <cctype>
#include <map>

namespace {

struct Line {
    std::size_t number;
    std::string text;
    std::string place() const { return "第" + std::to_string(number) + "行"; }
};

/// UTF-8 with a mark or without, else code page 936.
std::string asUtf8(std::string_view bytes)
{
    constexpr std::string_view kMark = "\xEF\xBB\xBF";
    if (bytes.starts_with(kMark)) return std::string(bytes.substr(kMark.size()));
    int left = 0;  // bytes of a character still to come
    for (const unsigned char c : bytes) {
        const bool follows = (c & 0xC0) == 0x80;
        if ((left > 0) != follows) return Utf8FromCp936(bytes);
        left = follows ? left - 1 : c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
    }
    return left ? Utf8FromCp936(bytes) : std::string(bytes);
}

std::vector<Line> linesOf(std::string_view bytes)
{
    const std::string text = asUtf8(bytes);
    std::vector<Line> lines;
    std::size_t number = 0;
    for (std::string_view rest = text; !rest.empty();) {
        const auto end = std::min(rest.find_first_of("\r\n"), rest.size());
        ++number;
        const auto line = Trim(rest.substr(0, end));
        if (!line.empty()) lines.push_back({number, std::string(line)});
        rest.remove_prefix(end);
        rest.remove_prefix(rest.starts_with("\r\n") ? 2 : rest.empty() ? 0 : 1);
    }
    return lines;
}

double numberOf(const std::string& text, const Line& line)
{
    double value = 0;
    if (!attempt([&] { value = ParseNumber(text); })) throw ExchangeError(line.place() + "：“" + text + "”不是数");
    return value;
}

enum class Field { None, Name, X, Y, H };

/// The columns that a header names, none where the line is no header.
std::vector<Field> headerOf(const Line& line)
{
    static const std::map<std::string, Field, std::less<>> kNames{
        {"点号", Field::Name}, {"点名", Field::Name}, {"name", Field::Name}, {"x", Field::X},    {"北坐标", Field::X},
        {"y", Field::Y},       {"东坐标", Field::Y},  {"h", Field::H},       {"高程", Field::H}, {"z", Field::H}};
    std::vector<Field> fields;
    bool any = false;
    for (std::string text : SplitFields(line.text)) {
        text = std::string(Trim(text));
        std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
        const auto found = kNames.find(text);
        fields.push_back(found == kNames.end() ? Field::None : found->second);
        any = any || found != kNames.end();
    }
    return any ? fields : std::vector<Field>();
}

MeasuredPoint pointOf(const Line& line, const std::vector<Field>& columns)
{
    const auto texts = SplitFields(line.text);
    MeasuredPoint point;
    bool x = false, y = false;
    for (std::size_t i = 0; i < texts.size() && i < columns.size(); ++i) {
        const std::string text(Trim(texts[i]));
        switch (columns[i]) {
        case Field::Name:
            point.name = text;
            break;
        case Field::X:
            point.x = numberOf(text, line);
            x = true;
            break;
        case Field::Y:
            point.y = numberOf(text, line);
            y = true;
            break;
        case Field::H:
            if (!text.empty()) point.h = numberOf(text, line);
            break;
        case Field::None:
            break;
        }
    }
    if (!x || !y) throw ExchangeError(line.place() + "：缺少坐标");
    return point;
}

std::vector<MeasuredPoint> readLists(const std::vector<Line>& lines)
{
    using enum Field;
    static const std::vector<Field> kFour{Name, X, Y, H}, kFive{Name, None, Y, X, H};
    std::vector<MeasuredPoint> points;
    std::vector<Field> header;
    for (const auto& line : lines) {
        if (points.empty() && header.empty())
            if (header = headerOf(line); !header.empty()) continue;
        const auto fields = SplitFields(line.text).size();
        points.push_back(pointOf(line, !header.empty() ? header : fields >= 5 ? kFive : kFour));
    }
    return points;
}

/// Metres of one unit of a word's last digit, by the sixth sign of its index.
std::optional<double> unitOf(char unit)
{
    constexpr double kFoot = 0.3048;
    switch (unit) {
    case '0':
        return 0.001;
    case '1':
        return kFoot / 1000;
    case '6':
        return 0.0001;
    case '7':
        return kFoot / 10000;
    case '8':
        return 0.00001;
    default:
        return std::nullopt;
    }
}

MeasuredPoint gsiPoint(const Line& line)
{
    const bool wide = line.text.starts_with('*');
    const std::size_t size = 7 + (wide ? 16u : 8u);
    std::string_view rest = line.text;
    rest.remove_prefix(wide ? 1 : 0);
    MeasuredPoint point;
    bool x = false, y = false;
    while (!(rest = Trim(rest)).empty()) {
        const auto word = rest.substr(0, rest.find(' '));
        if (word.size() != size || (word[6] != '+' && word[6] != '-'))
            throw ExchangeError(line.place() + "：“" + std::string(word) + "”不是 " + (wide ? "GSI-16" : "GSI-8") +
                                " 的字");
        rest.remove_prefix(word.size());
        const auto data = word.substr(7);
        const auto first = std::min(data.find_first_not_of('0'), data.size() - 1);
        const auto index = word.substr(0, 2);
        if (index == "11") point.name = std::string(data.substr(first));
        if (index != "81" && index != "82" && index != "83") continue;
        const auto unit = unitOf(word[5]);
        if (!unit) throw ExchangeError(line.place() + "：不认识的单位“" + std::string(1, word[5]) + "”");
        const double value = numberOf(std::string(data), line) * *unit * (word[6] == '-' ? -1 : 1);
        if (index == "81") point.y = value, y = true;
        if (index == "82") point.x = value, x = true;
        if (index == "83") point.h = value;
    }
    if (!x || !y) throw ExchangeError(line.place() + "：缺少坐标");
    return point;
}

}  // namespace

std::vector<MeasuredPoint> ReadMeasured(std::string_view path, std::string_view bytes)
{
    const auto lines = linesOf(bytes);
    const auto format = FieldFormatOf(path);
    if (!format || format->kind != FieldFormat::Gsi16) return readLists(lines);
    std::vector<MeasuredPoint> points;
    for (const auto& line : lines) points.push_back(gsiPoint(line));
    return points;
}
