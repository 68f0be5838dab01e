#include "exchange/RoadElements.h"

#include "base/Numbers.h"
#include "engine/RoutePoint.h"
#include "exchange/ExchangeError.h"
#include "exchange/NumberText.h"
#include "exchange/Shape.h"
#include "project/Workspace.h"

#include <cmath>

namespace {

constexpr double kShortest = 1e-5;

/// How far the closing row lies beyond the end of the road.
double closingBehindEnd(const RoadFiles& road)
{
    const auto settings = road.find(files::settings);
    const bool vertices =
        settings != road.end() && !settings->second.empty() && settings->second[0] == model::byIntersectionPoints;
    return vertices ? 0.01 : 0.0001;
}

/// A spiral that bends right first and left then, or the other way round, at the point where it is straight.
std::vector<RoadElement> split(const Tables& t, std::size_t row, RoadElement e)
{
    if (e.r1 * e.r2 >= 0) return {e};
    const double k1 = 1 / e.r1, k2 = 1 / e.r2, first = e.length * k1 / (k1 - k2);
    const CurvePoint middle = pointOn(t, row + 1, e.stake + first);
    RoadElement second = e;
    e.r2 = second.r1 = 0;
    second.stake += first;
    second.length -= first;
    e.length = first;
    e.endX = second.x = middle.x;
    e.endY = second.y = middle.y;
    second.az = radians(middle.fwjDeg);
    return {e, second};
}

}  // namespace

std::vector<RoadElement> RoadElements(const Tables& t, const RoadFiles& files, std::vector<std::string>* report)
{
    const auto count = static_cast<std::size_t>(t.elemCount);
    if (t.elemLc.size() <= count || count == 0) throw ExchangeError("项目没有平曲线，没有可以导出的线路");
    std::vector<RoadElement> elements;
    for (std::size_t i = 0; i < count; ++i) {
        RoadElement e{.stake = t.elemLc[i], .r1 = t.elemR1[i], .r2 = t.elemR2[i], .x = t.elemX[i], .y = t.elemY[i]};
        e.length = t.elemLc[i + 1] - t.elemLc[i] - (i + 1 == count ? closingBehindEnd(files) : 0);
        if (e.length < -kMillimetre)
            throw ExchangeError("第" + std::to_string(i + 1) + "个单元的里程倒退 " + MetresText(-e.length) +
                                " 米，没有导出");
        if (e.length < kShortest) continue;
        e.az = radians(DmsToDeg(t.elemFwj[i]));
        const CurvePoint end = pointOn(t, i + 1, e.stake + e.length);
        e.endX = end.x;
        e.endY = end.y;
        for (const auto& piece : split(t, i, e)) {
            if (report && !elements.empty())
                if (const double gap = std::hypot(elements.back().endX - piece.x, elements.back().endY - piece.y);
                    gap > kMillimetre)
                    report->push_back("第" + std::to_string(i + 1) + "个单元的起点与前一个的终点相差 " +
                                      MetresText(gap) + " 米，别的程序可能不能把它们连起来");
            elements.push_back(piece);
        }
    }
    if (elements.empty()) throw ExchangeError("平曲线没有长度，没有可以导出的线路");
    return elements;
}
