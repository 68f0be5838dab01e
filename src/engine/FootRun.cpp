#include "engine/FootRun.h"

#include "base/RunTimeError.h"
#include "engine/FastRoute.h"
#include "tables/CalcTables.h"

#include <utility>

Foot FootRun::next(double x, double y)
{
    gInX = x;
    gInY = y;
    if (!fastRoute(shared.tables)) {
        Foot foot;
        try {
            foot = XYToStakeFromStart();
        } catch (const RunTimeError& error) {
            if (error.number() == RunTimeError::Subscript) throw;
            foot.error = error;
        }
        return foot;
    }
    Foot foot = footOf(shared.tables, x, y, gOutX, gOutY);
    if (!foot.lcText.empty()) gOutLcText = foot.lcText;
    if (!foot.offsetText.empty()) gOutOffsetText = foot.offsetText;
    const Asked asked{x, y, ++m_count};
    if (foot.leavesMiddle) m_middle = asked;
    if (foot.leavesCorrection) m_corrected = asked;
    return foot;
}

FootRun::~FootRun()
{
    auto first = m_middle, second = m_corrected;
    if (!first && !second) return;
    if (!first || (second && second->number < first->number)) std::swap(first, second);
    const EngineResults left = shared.results;
    for (const auto& asked : {first, second}) {
        if (!asked) continue;
        gInX = asked->x;
        gInY = asked->y;
        attempt([] { XYToStakeFromStart(); });
    }
    gInX = left.inX;
    gInY = left.inY;
    gOutLcText = left.outLcText;
    gOutOffsetText = left.outOffsetText;
}
