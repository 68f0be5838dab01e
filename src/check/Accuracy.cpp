#include "check/Accuracy.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "engine/Element.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "geometry/TrueRoad.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <cmath>

namespace {

/// A row of a table that a damaged project may have left short. @throws Subscript
template <class Column>
const auto& cell(const Column& column, std::size_t row)
{
    return at(column, static_cast<std::ptrdiff_t>(row));
}

double gapMm(double x, double y, const TruePoint& p) { return checked(1000 * std::hypot(x - p.x, y - p.y)); }

std::string oneDecimal(double value) { return LeadingZeroText(Round(value, 1)); }

std::string reason(double deflectionDeg, double ls, double radius)
{
    std::string why;
    if (ls > 0.3 * std::abs(radius))
        why = "缓和曲线长（" + oneDecimal(ls) + "米）对半径（" + oneDecimal(std::abs(radius)) +
              "米）偏大，内移值和切线增值的级数取项不够";
    if (deflectionDeg > 90)
        why += std::string(why.empty() ? "" : "；") + "转角大于90度，切线增值的高次项随缓和曲线长增大";
    return why.empty() ? "圆周率取3.1415926、方位角取到百分之一秒的累积" : why;
}

void byPointsRows(const Tables& t, Accuracy& accuracy)
{
    const auto count = static_cast<std::size_t>(std::max(0, (t.elemCount - 1) / 4));
    std::vector<TrueVertex> vertices;
    for (std::size_t i = 0; i <= count + 1; ++i)
        vertices.push_back({cell(t.jdX, i), cell(t.jdY, i), cell(t.jdLs1, i), cell(t.jdLs2, i), cell(t.jdR, i)});
    const double start = at(t.jdLc, 0);
    double trueStake = start;
    const auto curves = TrueCurves(vertices);
    for (std::size_t i = 1; i <= curves.size(); ++i) {
        const TrueCurve& curve = curves[i - 1];
        trueStake += curve.leg - curve.t1 - (i > 1 ? curves[i - 2].t2 : 0);
        if (!curve.valid) continue;
        const std::size_t zh = 4 * i - 3;
        AccuracyRow row{i <= kMaxMainPoint ? cell(t.zdJd, i) : "交点" + std::to_string(i), {}, 0, {}};
        const TruePoint* points[] = {&curve.zh, &curve.hy, &curve.yh, &curve.hz};
        for (std::size_t k = 0; k < 4; ++k)
            row.mm.push_back(gapMm(cell(t.elemX, zh + k), cell(t.elemY, zh + k), *points[k]));
        trueStake += curve.length;
        row.stakeMm = 1000 * (cell(t.elemLc, zh + 3) - trueStake);
        if (*std::max_element(row.mm.begin(), row.mm.end()) > kAccuracyLimitMm)
            row.why = reason(curve.deflectionDeg, std::max(cell(t.jdLs1, i), cell(t.jdLs2, i)), cell(t.jdR, i));
        accuracy.rows.push_back(row);
    }
    accuracy.endStakeMm =
        1000 * (cell(t.elemLc, static_cast<std::size_t>(t.elemCount)) - 0.01 - TrueEndStake(start, vertices));
}

void blockRows(const Tables& t, Accuracy& accuracy)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(t.elemCount); ++i) {
        const bool last = i + 1 == static_cast<std::size_t>(t.elemCount);
        const double length = cell(t.elemLc, i + 1) - cell(t.elemLc, i) - (last ? 0.0001 : 0);
        if ((cell(t.elemR1, i) == 0 && cell(t.elemR2, i) == 0) || !(length > 0)) continue;
        const TruePoint end = TrueElementEnd({cell(t.elemX, i), cell(t.elemY, i), DmsToDeg(cell(t.elemFwj, i))}, length,
                                             cell(t.elemR1, i), cell(t.elemR2, i));
        const auto curvature = [](double r) { return r == 0 ? 0 : 1 / r; };
        const CurvePoint got = elementEnd(length, curvature(cell(t.elemR1, i)), curvature(cell(t.elemR2, i)),
                                          cell(t.elemFwj, i), cell(t.elemX, i), cell(t.elemY, i), length);
        AccuracyRow row{"积木" + std::to_string(i + 1), {gapMm(got.x, got.y, end)}, 0, {}};
        if (row.mm[0] > kAccuracyLimitMm) row.why = "这一段转角太大，192等分的积分不够密";
        accuracy.rows.push_back(row);
    }
}

/// Whether the point beside the road at a stake finds back to it. @throws RunTimeError
bool comesBack(const Tables& t, double stake, double offset)
{
    const auto point = pointAt(t, stake, 90, offset);
    if (!point) return false;
    if (point->error) throw *point->error;
    const Foot foot = footOf(t, point->x, point->y, point->x, point->y);
    if (foot.error && foot.error->number() != RunTimeError::Overflow) throw *foot.error;
    if (foot.error) return false;
    const double wanted = std::abs(RoundHalfUp3(ToNominal(t, stake).value));
    return std::abs(std::abs(foot.nominal.value) - wanted) < kAccuracyLimitMm / 1000;
}

/// Points laid out on the last element must come back to their stakes; its closing row holds no point of its own.
void lastElement(const Tables& t, Accuracy& accuracy)
{
    const auto last = static_cast<std::size_t>(t.elemCount);
    const double from = cell(t.elemLc, last - 1), to = cell(t.elemLc, last);
    for (int k = 1; k < 10; ++k)
        for (const double offset : {-10.0, 0.0, 10.0}) {
            const double stake = from + (to - from) * k / 10;
            if (comesBack(t, stake, offset)) continue;
            const auto text = [&t](double s) { return FormatStake(RoundHalfUp3(ToNominal(t, s).value)); };
            accuracy.warnings.push_back("最后一段（" + text(from) + "起）由坐标反算桩号不可靠：" + text(stake) +
                                        "偏距" + NumText(offset) + "米的点反算不回原桩号");
            return;
        }
}

}  // namespace

Accuracy CheckAccuracy(const Tables& t, bool byPoints)
{
    Accuracy accuracy;
    accuracy.byPoints = byPoints;
    if (t.elemCount <= 0) return accuracy;
    if (byPoints)
        byPointsRows(t, accuracy);
    else
        blockRows(t, accuracy);
    lastElement(t, accuracy);
    return accuracy;
}
