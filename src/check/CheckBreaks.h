#pragma once
// The chainage breaks of a road as the check reads them, apart from the tables of the engine.

#include <vector>

/// The breaks of a road, each at its place along it.
class CheckBreaks {
public:
    /// A stake along the road, counted on through the breaks.
    struct Place {
        double stake = 0;    ///< continuous, m
        bool inGap = false;  ///< the number is skipped there: a load ends at it
    };

    void add(double back, double ahead);
    /// Something of the file could not be read: stakes behind that place are not known.
    bool whole = true;
    /// First reading of a nominal stake, as the tables get it. The gap is judged at its place along the road: a number
    /// that another break doubled before is there.
    Place place(double nominal) const;
    double continuous(double nominal) const { return place(nominal).stake; }
    /// The number that stands at a continuous stake, second readings included.
    double nominal(double continuous) const;

private:
    struct Row {
        double back, ahead, amount;  ///< back and ahead less the amounts before
    };
    std::vector<Row> m_rows;
    double m_total = 0;
};
