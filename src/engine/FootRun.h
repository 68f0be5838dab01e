#pragma once
// The feet of many points one after another, as a file of points asks for them.

#include "engine/XYToStake.h"

#include <optional>

/// Asks for feet alone. When it goes, the shared results stand as XYToStake for each point would have left them: the
/// few points that would have had the last word in one of them are asked again in full.
class FootRun {
public:
    FootRun() = default;
    ~FootRun();
    FootRun(const FootRun&) = delete;
    FootRun& operator=(const FootRun&) = delete;

    /// The foot of (x, y), which become gInX and gInY; its texts become gOutLcText and gOutOffsetText. An error is in
    /// the foot. @throws Subscript where there is no alignment
    Foot next(double x, double y);

private:
    struct Asked {
        double x = 0, y = 0;  ///< m
        long number = 0;
    };
    std::optional<Asked> m_middle, m_corrected;  ///< the last points that would leave a middle, a correction
    long m_count = 0;
};
