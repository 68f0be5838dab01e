#pragma once
// The points of a road that go into the field: stakes of a run with their offsets, main points, breaks, corners, in the
// order of the road. They are made one at a time, so that a million of them take no memory.

#include "exchange/RoadFiles.h"

#include <optional>
#include <string>
#include <vector>

struct FieldPoint {
    std::string name = {};         ///< ASCII
    std::string code = {};         ///< ASCII: ZZ centre, ZB left, YB right, a main point's own, DL break, JGW corner
    double x = 0, y = 0;           ///< m, north and east
    std::optional<double> h = {};  ///< design elevation, m; nothing beyond the grade line
    double stake = 0;              ///< nominal, m; negative on the second pass of an overlap, as it is typed
    double offset = 0;             ///< m, negative left
};

/// A point that stands outside of the run.
struct ExtraPoint {
    double continuous = 0;                 ///< stake, m
    double offset = 0;                     ///< m
    std::string code = {}, name = {};      ///< name "": by the pattern
    std::optional<double> x = {}, y = {};  ///< where it is not the road's own
};

struct FieldRun {
    double from = 0, to = 0;            ///< nominal stakes, negative on a second pass
    double step = 0;                    ///< m; 0: no run, extra points only
    std::vector<double> offsets = {0};  ///< m, negative left
    std::vector<ExtraPoint> extra = {};
    /// Of the names: {stake} is the stake in millimetres with eight digits or more, {side} L, R or nothing, {offset}
    /// metres with two digits or more, nothing on the centre line, {code} the code.
    std::string pattern = "{stake}{side}{offset}";
};

/// The name of a point by a pattern, see FieldRun.
std::string FieldName(const std::string& pattern, const FieldPoint& point);

/// Beginnings and ends of curves with their names in pinyin: ZH, HY, QZ, YH, HZ, ZY, YZ, GQ; ZD for any other joint.
std::vector<ExtraPoint> MainPoints(const Tables& tables, const RoadFiles& files);
std::vector<ExtraPoint> BreakPoints(const Tables& tables);

class FieldPoints {
public:
    /// @throws ExchangeError where a stake lies in a gap or off the road, and for a pattern that is not ASCII
    FieldPoints(const Tables& tables, const FieldRun& run);

    /// The next one, nothing at the end.
    std::optional<FieldPoint> next();
    /// How many there will be, at most.
    double count() const;
    /// How many had no elevation although the road has a grade line.
    std::size_t beyondProfile() const { return m_beyond; }

private:
    /// A stretch of the road between two breaks.
    struct Stretch {
        double begin = 0, end = 0;  // continuous
        double amount = 0;          // nominal less continuous
        double secondUntil = 0;     // nominal stakes up to it are a second pass
    };
    std::optional<double> nextStake();
    double nominal(double continuous) const;
    std::optional<FieldPoint> made(const ExtraPoint& point);

    const Tables& m_tables;
    const FieldRun& m_run;
    std::vector<Stretch> m_stretches;
    std::vector<ExtraPoint> m_extra;
    std::size_t m_nextExtra = 0, m_stretch = 0, m_offset = 0;
    double m_begin = 0, m_end = 0;  // continuous
    double m_number = 0;            // of the next stake within its stretch
    std::optional<double> m_stake;  // continuous, whose offsets are being made
    std::optional<double> m_ahead;  // continuous, the one after that
    std::size_t m_beyond = 0;
    bool m_skipCentre = false;
};
