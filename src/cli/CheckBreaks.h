#pragma once
// The chainage breaks of a road as the check reads them, apart from the tables of the engine.

#include <algorithm>
#include <cmath>
#include <vector>

/// The breaks of a road, worked with on the road's own nominal numbers.
class CheckBreaks {
public:
    void add(double back, double ahead) { m_rows.push_back({back, ahead}); }
    bool inGap(double nominal) const
    {
        return std::any_of(m_rows.begin(), m_rows.end(),
                           [&](const Row& r) { return nominal > r.back && nominal < r.ahead; });
    }
    /// First reading of a nominal stake, as the tables get it.
    double continuous(double nominal) const
    {
        double amount = 0, found = nominal;
        for (const auto& row : m_rows) {
            const double after = amount + std::abs(row.ahead) - std::abs(row.back);
            const bool beyond = row.ahead > row.back ? nominal >= row.ahead : nominal > row.back;
            if (!beyond) break;
            amount = after;
            found = nominal - amount;
        }
        return found;
    }

private:
    struct Row {
        double back, ahead;
    };
    std::vector<Row> m_rows;
};
