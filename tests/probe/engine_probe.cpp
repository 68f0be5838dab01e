// Reads one request a line from standard input, answers one line each (`tables`: several, closed by a point). Doubles
// are printed as %.17g, texts as UTF-8, yes and no as 1 and 0.
//
//     start                                ok: nothing is loaded, as after the start of a program
//     load FOLDER                          ok, or gap; the rest of the line is the project's folder, anywhere
//     tables                               a line a table: name, count, values; strings have %-escapes for blanks
//     StakeToXY stake skew offset          gOutX gOutY gOutFwj gOutDist
//     XYToStake x y                        gOutLcText <tab> gOutOffsetText <tab> gInLc
//     ElementEnd len k1 k2 az x0 y0 total  gOutX gOutY gOutFwj
//     ForwardElement len r1 r2 az x0 y0    end x, end y, end azimuth
//     ElevationAt stake offset             elevation
//     ResolveStake VARIANT stake           continuous stake, or gap; the variants are those of engine/Chainage.h
//     ToNominal stake                      nominal stake, 1 on the second pass of an overlap
//     Azimuth, NumText, FormatStake, ...   every function of engine/Numbers.h by its name
//
// An unknown or failing request answers `error <number> <text>`, with the number of the run-time error or 0.

#include "base/FileBytes.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "dialogs/Dialogs.h"
#include "engine/Chainage.h"
#include "engine/Element.h"
#include "engine/Elevation.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "project/LoadProject.h"
#include "project/Workspace.h"
#include "tables/TableList.h"

#include <algorithm>
#include <concepts>
#include <cstdio>
#include <exception>
#include <functional>
#include <iostream>
#include <map>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

/// Nobody sits before the probe.
struct NoDialogs final : Dialogs {
    bool box(const Msg&) override { return true; }
    void turn() override {}
    std::optional<std::string> openFile(std::string_view) override { return std::nullopt; }
    std::optional<std::string> saveFile(std::string_view) override { return std::nullopt; }
};

struct BadRequest : std::runtime_error {
    using runtime_error::runtime_error;
};

std::string show(double value)
{
    char text[32];
    return {text, static_cast<std::size_t>(std::snprintf(text, sizeof text, "%.17g", value))};
}
std::string show(const std::string& text) { return text; }
std::string show(std::string_view text) { return std::string(text); }

template <class... More>
std::string show(double first, double second, More... more)
{
    return show(first) + ' ' + show(second, more...);
}

std::string escaped(const std::string& text)
{
    std::string result;
    for (const char c : text) {
        if (static_cast<unsigned char>(c) > ' ' && c != '%' && c != 127) {
            result += c;
        } else {
            char escape[4];
            std::snprintf(escape, sizeof escape, "%%%02X", static_cast<unsigned char>(c));
            result += escape;
        }
    }
    return result;
}

std::string load(std::string_view folder)
{
    if (!FolderExists(std::string(folder))) throw RunTimeError(RunTimeError::PathNotFound);
    gProjectFolder = folder;
    gProject = gProjectFolder.substr(gProjectFolder.find_last_of('/') + 1);
    const Loaded loaded = loadOpenProject();
    if (const auto& place = loaded.neverEnds)
        throw BadRequest(place->file + ", line " + std::to_string(place->line) + ": no line of the file has a comma");
    return loaded.cutAtGap ? "gap" : "ok";
}

/// One line each; a scalar is a table of one value.
class TableLines {
public:
    std::string text;

    void add(std::string_view name, const std::vector<double>& values)
    {
        line(name, values, [](double v) { return show(v); });
    }
    void add(std::string_view name, const std::vector<std::string>& values) { line(name, values, escaped); }
    void add(std::string_view name, const std::string& value) { add(name, std::vector{value}); }
    void add(std::string_view name, std::integral auto value) { add(name, std::vector{static_cast<double>(value)}); }
    void add(std::string_view name, double value) { add(name, std::vector{value}); }

private:
    template <class Values, class Print>
    void line(std::string_view name, const Values& values, Print print)
    {
        text.append(name).append(" ").append(std::to_string(values.size()));
        for (const auto& value : values) text.append(" ").append(print(value));
        text += '\n';
    }
};

std::string tables(std::string_view)
{
    TableLines lines;
    forEachMember([&lines](std::string_view name, const auto& member) { lines.add(name, member); }, shared.tables);
    return lines.text + '.';
}

std::vector<std::string_view> words(std::string_view line)
{
    std::vector<std::string_view> found;
    while (!(line = Trim(line)).empty()) {
        const auto end = std::min(line.find(' '), line.size());
        found.push_back(line.substr(0, end));
        line.remove_prefix(end);
    }
    return found;
}

std::string resolve(std::string_view rest)
{
    const auto arguments = words(rest);
    if (arguments.size() != 2) throw BadRequest("a variant and a stake are wanted");
    const auto variant = std::find_if(kResolveVariants.begin(), kResolveVariants.end(),
                                      [&](const auto& v) { return v.name == arguments[0]; });
    if (variant == kResolveVariants.end()) throw BadRequest("no such variant");
    const auto stake = ResolveStake(ParseNumber(arguments[1]), variant->rule);
    return stake ? show(*stake) : "gap";
}

using Answer = std::function<std::string(std::string_view rest)>;

/// A request whose arguments are all numbers.
template <class... Numbers>
Answer numbers(std::string (*answer)(Numbers...))
{
    return [answer](std::string_view rest) {
        const auto arguments = words(rest);
        if (arguments.size() != sizeof...(Numbers))
            throw BadRequest(std::to_string(sizeof...(Numbers)) + " numbers are wanted");
        return [&]<std::size_t... I>(std::index_sequence<I...>) { return answer(ParseNumber(arguments[I])...); }
        (std::index_sequence_for<Numbers...>());
    };
}
using One = std::string (*)(double);
using Two = std::string (*)(double, double);

const std::map<std::string_view, Answer> answers{
    {"start",
     [](std::string_view) {
         shared = {};
         return std::string("ok");
     }},
    {"load", load},
    {"tables", tables},
    {"ResolveStake", resolve},
    {"ToNominal", numbers(One([](double k) {
         const NominalStake n = ToNominal(k);
         return show(n.value, n.secondPass);
     }))},
    {"StakeToXY", numbers(+[](double stake, double skew, double offset) {
         StakeToXY(stake, skew, offset);
         return show(gOutX, gOutY, gOutFwj, gOutDist);
     })},
    {"XYToStake", numbers(Two([](double x, double y) {
         gInX = x;
         gInY = y;
         XYToStakeFromStart();
         return gOutLcText + '\t' + gOutOffsetText + '\t' + show(gInLc);
     }))},
    {"ElementEnd", numbers(+[](double len, double k1, double k2, double az, double x0, double y0, double total) {
         ElementEnd(len, k1, k2, az, x0, y0, total);
         return show(gOutX, gOutY, gOutFwj);
     })},
    {"ForwardElement", numbers(+[](double len, double r1, double r2, double az, double x0, double y0) {
         const ElementPoint end = ForwardElement(len, r1, r2, az, x0, y0);
         return show(end.x, end.y, end.fwj);
     })},
    {"ElevationAt", numbers(Two([](double stake, double offset) { return show(ElevationAt(stake, offset)); }))},
    {"RoundHalfUp3", numbers(One([](double v) { return show(RoundHalfUp3(v)); }))},
    {"Azimuth", numbers(Two([](double dx, double dy) { return show(Azimuth(dx, dy)); }))},
    {"Distance", numbers(Two([](double dx, double dy) { return show(Distance(dx, dy)); }))},
    {"DegToDms", numbers(One([](double v) { return show(DegToDms(v)); }))},
    {"DegToDms4", numbers(One([](double v) { return show(DegToDms4(v)); }))},
    {"DmsToDeg", numbers(One([](double v) { return show(DmsToDeg(v)); }))},
    {"NumText", numbers(One([](double v) { return show(NumText(v)); }))},
    {"LeadingZeroText", numbers(One([](double v) { return show(LeadingZeroText(v)); }))},
    {"FormatFixed3", numbers(One([](double v) { return show(FormatFixed3(v)); }))},
    {"Fixed3", numbers(One([](double v) { return show(Fixed3(v)); }))},
    {"FormatStake", numbers(One([](double v) { return show(FormatStake(v)); }))},
    {"FormatDms", numbers(One([](double v) { return show(FormatDms(v)); }))},
    {"FormatDmsSeconds", numbers(One([](double v) { return show(FormatDmsSeconds(v)); }))},
    {"Round", numbers(Two([](double v, double decimals) { return show(Round(v, static_cast<int>(decimals))); }))},
    {"IsIntegerKey", numbers(One([](double key) { return show(IsIntegerKey(static_cast<int>(key))); }))},
    {"IsSignedDecimalKey", numbers(One([](double key) { return show(IsSignedDecimalKey(static_cast<int>(key))); }))},
    {"IsUnsignedDecimalKey",
     numbers(One([](double key) { return show(IsUnsignedDecimalKey(static_cast<int>(key))); }))},
    {"ParseNumber", [](std::string_view rest) { return show(ParseNumber(rest)); }},
    {"Trim", [](std::string_view rest) { return show(Trim(rest)); }},
};

std::string answer(std::string_view line)
{
    if (line.ends_with('\r')) line.remove_suffix(1);
    const auto name = line.substr(0, line.find(' '));
    const auto rest = line.substr(std::min(name.size() + 1, line.size()));
    try {
        const auto found = answers.find(name);
        if (found == answers.end()) throw BadRequest("no such request");
        return found->second(rest);
    } catch (const RunTimeError& e) {
        return "error " + std::to_string(e.number()) + ' ' + e.what();
    } catch (const std::exception& e) {
        return std::string("error 0 ") + e.what();
    }
}

}  // namespace

int main()
{
    NoDialogs dialogs;
    setDialogs(&dialogs);
    for (std::string line; std::getline(std::cin, line);) std::cout << answer(line) << std::endl;
}
