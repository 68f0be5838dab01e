#include "exchange/Stations.h"

#include "engine/Chainage.h"
#include "exchange/ExchangeError.h"
#include "exchange/NumberText.h"
#include "exchange/Shape.h"

#include <algorithm>
#include <cmath>

namespace {
/// A station that lies no further from a break is the break's own: sums of lengths differ in the last digits, m.
constexpr double kAtBreak = 1e-4;
}  // namespace

double TidyStation(double station)
{
    const double tidy = std::round(station * 1e10) / 1e10;
    return std::abs(tidy) < 1e5 && std::abs(tidy - station) < 1e-10 ? tidy : station;
}

namespace {

/// A break on its way into the list.
struct Found {
    std::optional<double> internal, back;
    double ahead = 0;
};

/// Where a break lies, by its station or by its back stake and the breaks before it.
double placeOf(const Found& found, double amount) { return found.internal ? *found.internal : *found.back - amount; }

}  // namespace

Stations::Stations(const landxml::Alignment& road, double length, const std::vector<StationBreak>& more,
                   std::vector<std::string>* report)
{
    std::vector<Found> left;
    for (const auto& equation : road.equations) {
        const auto same = std::find_if(more.begin(), more.end(), [&](const StationBreak& b) {
            return std::abs(b.ahead - equation.ahead) < kMillimetre;
        });
        if (same == more.end())
            left.push_back({equation.internal, equation.back, equation.ahead});
        else if (report)
            report->push_back("文件里 " + FixedText(equation.internal.value_or(equation.back.value_or(0)), 3) +
                              " 处的断链（去向里程 " + ShortestText(equation.ahead) + "）由给出的 " +
                              ShortestText(same->back) + " → " + ShortestText(same->ahead) + " 代替");
    }
    for (const auto& b : more) left.push_back({std::nullopt, b.back, b.ahead});
    double amount = 0;
    while (!left.empty()) {
        const auto next = std::min_element(left.begin(), left.end(), [&](const Found& a, const Found& b) {
            return placeOf(a, amount) < placeOf(b, amount);
        });
        const double internal = placeOf(*next, amount), back = TidyStation(internal + amount);
        if (next->back && std::abs(*next->back - back) > kMillimetre)
            throw ExchangeError("断链 " + ShortestText(*next->back) + " → " + ShortestText(next->ahead) +
                                " 与按里程推算的来向里程 " + ShortestText(back) + " 不符");
        m_breaks.push_back({internal, next->back.value_or(back), next->ahead});
        amount += next->ahead - m_breaks.back().back;
        left.erase(next);
    }
    for (const auto& b : m_breaks)
        if (b.internal < road.staStart - kMillimetre || b.internal > road.staStart + length + kMillimetre)
            throw ExchangeError("断链 " + ShortestText(b.back) + " → " + ShortestText(b.ahead) + " 不在线路上");
    for (const auto& b : m_breaks) {
        if (b.ahead < 0 || b.back < 0)
            throw ExchangeError("断链 " + ShortestText(b.back) + " → " + ShortestText(b.ahead) +
                                "：桩号小于 0，不能输入；可以用 --shift 整体加上整米数");
        m_tables.dlBack.push_back(b.back);
        m_tables.dlAhead.push_back(b.ahead);
        m_tables.dlCum.push_back(std::abs(b.ahead) - std::abs(b.back));
    }
    for (std::size_t i = 1; i < m_breaks.size(); ++i)
        for (std::size_t j = i; j > 0; --j) {
            m_tables.dlBack[i] -= m_tables.dlCum[j - 1];
            m_tables.dlAhead[i] -= m_tables.dlCum[j - 1];
        }
    if (!m_breaks.empty()) {
        m_tables.dlCount = static_cast<std::int16_t>(m_breaks.size() - 1);
        m_tables.hasDl = -1;
    }
}

bool Stations::readsBack(double nominal, double internal) const
{
    double stake = nominal;
    return ConvertRowStake(m_tables, stake) && std::abs(stake - internal) < kAtBreak;
}

std::optional<double> Stations::nominal(double internal) const
{
    double stake = internal;
    for (const auto& b : m_breaks) {
        if (std::abs(internal - b.internal) < kAtBreak) return b.back;  // the break's own point
        if (internal > b.internal) stake += b.ahead - b.back;
    }
    stake = TidyStation(stake);
    return readsBack(stake, internal) ? std::optional(stake) : std::nullopt;
}

std::optional<double> Stations::nominalAtEnd(double internal) const
{
    double stake = internal;
    for (const auto& b : m_breaks)
        if (internal > b.internal - kAtBreak) stake += b.ahead - b.back;
    stake = TidyStation(stake);
    return readsBack(stake, internal) ? std::optional(stake) : nominal(internal);
}
