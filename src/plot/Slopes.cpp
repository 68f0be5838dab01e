#include "plot/Slopes.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"

#include <string>

namespace plot {

namespace {

std::vector<std::string_view> pieces(std::string_view text, std::string_view separator)
{
    std::vector<std::string_view> all;
    for (std::size_t at = 0; at <= text.size();) {
        const auto end = std::min(text.find(separator, at), text.size());
        all.push_back(text.substr(at, end - at));
        at = end + separator.size();
    }
    return all;
}

/// Fields of one end of a row: stake, width, slope, then height, berm and slope of each further grade.
SlopeLadder ladder(const std::vector<double>& fields, std::size_t at, std::size_t grades)
{
    SlopeLadder found{fields[at + 1], {{0, fields[at + 2], 0}}};
    for (std::size_t k = 1; k < grades; ++k) {
        found.grades.back().height = fields[at + 3 * k];
        found.grades.push_back({fields[at + 3 * k + 1], fields[at + 3 * k + 2], 0});
    }
    return found;
}

}  // namespace

SlopeRows readSlopes(std::string_view bytes, int grades, const Tables& t)
{
    SlopeRows rows;
    if (grades < 1 || grades > 10) return rows;
    const auto g = static_cast<std::size_t>(grades);
    for (const auto line : pieces(bytes, "\r\n")) {
        std::vector<double> fields;
        attempt([&] {
            for (const auto field : pieces(line, ",")) fields.push_back(ParseNumber(field));
        });
        if (fields.size() < 6 * g) continue;
        SlopeRow row{fields[0], fields[3 * g], ladder(fields, 0, g), ladder(fields, 3 * g, g)};
        if (ConvertRowStake(t, row.from) && ConvertRowStake(t, row.to) && row.to > row.from) rows.push_back(row);
    }
    return rows;
}

std::optional<SlopeLadder> ladderAt(const SlopeRows& rows, double stake)
{
    for (const auto& row : rows) {
        if (!(row.from <= stake && stake <= row.to)) continue;
        const double share = (stake - row.from) / (row.to - row.from);
        const auto mix = [&](double a, double b) { return a + share * (b - a); };
        SlopeLadder found{mix(row.start.width, row.end.width), {}};
        for (std::size_t k = 0; k < row.start.grades.size(); ++k) {
            const auto &a = row.start.grades[k], &b = row.end.grades[k];
            found.grades.push_back({mix(a.berm, b.berm), mix(a.slope, b.slope), mix(a.height, b.height)});
        }
        return found;
    }
    return {};
}

}  // namespace plot
