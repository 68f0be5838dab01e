#include "exchange/TakeOver.h"

#include "base/CodePage.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "exchange/ExchangeError.h"
#include "project/Workspace.h"

#include <cmath>
#include <optional>
#include <string_view>

namespace {

/// Bytes of code page 936; a character that has no place there becomes a question mark.
std::string reportBytes(const std::vector<std::string>& lines)
{
    std::string bytes;
    for (std::string_view rest : lines) {
        while (!rest.empty()) {
            std::size_t length = 1;
            while (length < rest.size() && (static_cast<unsigned char>(rest[length]) & 0xC0) == 0x80) ++length;
            if (!attempt([&] { bytes += Cp936FromUtf8(rest.substr(0, length)); })) bytes += '?';
            rest.remove_prefix(length);
        }
        bytes += "\r\n";
    }
    return bytes;
}

std::vector<std::string> pieces(std::string_view text, char separator)
{
    std::vector<std::string> all;
    while (true) {
        const auto end = text.find(separator);
        all.emplace_back(text.substr(0, end));
        if (end == std::string_view::npos) return all;
        text.remove_prefix(end + 1);
    }
}

double numberOf(const std::string& text)
{
    double value = 0;
    if (!attempt([&] { value = ParseNumber(text); })) throw ExchangeError("“" + text + "”不是数");
    return value;
}

}  // namespace

Outcome MakeProject(const std::string& name, const ImportedRoad& road)
{
    auto bytes = BytesOf(road.files);
    bytes[std::string(kImportReport)] = reportBytes(road.report);
    return AddProject(name, bytes);
}

std::size_t FindAlignment(const landxml::File& file, const std::string& name)
{
    const auto roads = file.alignments();
    if (roads.empty()) throw ExchangeError("文件里没有线路（Alignment）");
    if (name.empty() && roads.size() == 1) return 0;
    std::string list;
    std::optional<std::size_t> found;
    for (std::size_t i = 0; i < roads.size(); ++i) {
        if (roads[i].name == name && !name.empty()) {
            if (found) throw ExchangeError("文件里有几条线路都叫“" + name + "”，请先改名，或在窗口里导入");
            found = i;
        }
        list += (list.empty() ? "" : "、") + roads[i].name;
    }
    if (found) return *found;
    throw ExchangeError((name.empty() ? "文件里有几条线路，请选择一条：" : "文件里没有线路“" + name + "”，有：") +
                        list);
}

std::vector<StationBreak> BreaksOfText(const std::string& text)
{
    std::vector<StationBreak> breaks;
    if (text.empty()) return breaks;
    for (const auto& piece : pieces(text, ';')) {
        const auto numbers = pieces(piece, ',');
        if (numbers.size() != 2) throw ExchangeError("断链“" + piece + "”应是：来向里程,去向里程");
        breaks.push_back({0, numberOf(numbers[0]), numberOf(numbers[1])});
    }
    return breaks;
}

double ShiftOfText(const std::string& text)
{
    if (text.empty()) return 0;
    const double metres = numberOf(text);
    if (metres != std::floor(metres)) throw ExchangeError("“" + text + "”应是整米数");
    return metres;
}
