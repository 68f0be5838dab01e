#include "check/CheckBreaks.h"

#include <cmath>

void CheckBreaks::add(double back, double ahead)
{
    const double amount = std::abs(ahead) - std::abs(back);
    m_rows.push_back({back - m_total, ahead - m_total, amount});
    m_total += amount;
}

CheckBreaks::Place CheckBreaks::place(double nominal) const
{
    double s = nominal;
    for (const auto& [back, ahead, amount] : m_rows) {
        if (s > back && s < ahead) return {s, true};
        if ((s >= ahead && amount > 0) || (s > back && amount < 0)) s -= amount;
    }
    if (!(s < 0)) return {s, false};
    for (const auto& [back, ahead, amount] : m_rows)
        if (std::abs(s) > ahead) s -= amount;
    return {s, false};
}

double CheckBreaks::nominal(double continuous) const
{
    double n = continuous;
    for (const auto& row : m_rows)
        if (continuous > row.back) n += row.amount;
    return n;
}
