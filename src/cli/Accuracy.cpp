#include "cli/Accuracy.h"

#include "cli/TrueRoad.h"
#include "engine/Chainage.h"
#include "engine/Element.h"
#include "engine/Numbers.h"
#include "engine/Route.h"
#include "engine/RunTimeError.h"
#include "project/CalcTables.h"
#include "screens/Fs.h"

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

void byPointsRows(Accuracy& accuracy)
{
    const auto count = static_cast<std::size_t>(std::max(0, (gElemCount - 1) / 4));
    std::vector<TrueVertex> vertices;
    for (std::size_t i = 0; i <= count + 1; ++i)
        vertices.push_back({cell(gJdX, i), cell(gJdY, i), cell(gJdLs1, i), cell(gJdLs2, i), cell(gJdR, i)});
    const double start = at(gJdLc, 0);
    double trueStake = start;
    const auto curves = TrueCurves(vertices);
    for (std::size_t i = 1; i <= curves.size(); ++i) {
        const TrueCurve& curve = curves[i - 1];
        trueStake += curve.leg - curve.t1 - (i > 1 ? curves[i - 2].t2 : 0);
        if (!curve.valid) continue;
        const std::size_t zh = 4 * i - 3;
        AccuracyRow row{i <= kMaxMainPoint ? cell(gZdJd, i) : "交点" + std::to_string(i), {}, 0, {}};
        const TruePoint* points[] = {&curve.zh, &curve.hy, &curve.yh, &curve.hz};
        for (std::size_t k = 0; k < 4; ++k)
            row.mm.push_back(gapMm(cell(gElemX, zh + k), cell(gElemY, zh + k), *points[k]));
        trueStake += curve.length;
        row.stakeMm = 1000 * (cell(gElemLc, zh + 3) - trueStake);
        if (*std::max_element(row.mm.begin(), row.mm.end()) > kAccuracyLimitMm)
            row.why = reason(curve.deflectionDeg, std::max(cell(gJdLs1, i), cell(gJdLs2, i)), cell(gJdR, i));
        accuracy.rows.push_back(row);
    }
    accuracy.endStakeMm =
        1000 * (cell(gElemLc, static_cast<std::size_t>(gElemCount)) - 0.01 - TrueEndStake(start, vertices));
}

void blockRows(Accuracy& accuracy)
{
    for (std::size_t i = 0; i < static_cast<std::size_t>(gElemCount); ++i) {
        const bool last = i + 1 == static_cast<std::size_t>(gElemCount);
        const double length = cell(gElemLc, i + 1) - cell(gElemLc, i) - (last ? 0.0001 : 0);
        if ((cell(gElemR1, i) == 0 && cell(gElemR2, i) == 0) || !(length > 0)) continue;
        const TruePoint end = TrueElementEnd({cell(gElemX, i), cell(gElemY, i), DmsToDeg(cell(gElemFwj, i))}, length,
                                             cell(gElemR1, i), cell(gElemR2, i));
        const auto curvature = [](double r) { return r == 0 ? 0 : 1 / r; };
        ElementEnd(length, curvature(cell(gElemR1, i)), curvature(cell(gElemR2, i)), cell(gElemFwj, i), cell(gElemX, i),
                   cell(gElemY, i), length);
        AccuracyRow row{"积木" + std::to_string(i + 1), {gapMm(gOutX, gOutY, end)}, 0, {}};
        if (row.mm[0] > kAccuracyLimitMm) row.why = "这一段转角太大，192等分的积分不够密";
        accuracy.rows.push_back(row);
    }
}

/// Keeps the stake text of an inverse row.
struct Witness : RowSink {
    std::string stake;
    void clear() override {}
    void row(ResultRow row) override { stake = row.cells.at(2); }
};

/// The metres of a stake text, without sign.
double metresOf(const std::string& stakeText)
{
    std::string digits;
    for (const char c : stakeText)
        if ((c >= '0' && c <= '9') || c == '.') digits += c;
    return digits.empty() ? -1 : ParseNumber(digits);
}

/// Points laid out on the last element must come back to their stakes; its closing row holds no point of its own.
void lastElement(Accuracy& accuracy)
{
    const auto last = static_cast<std::size_t>(gElemCount);
    const double from = cell(gElemLc, last - 1), to = cell(gElemLc, last);
    for (int k = 1; k < 10; ++k)
        for (const double offset : {-10.0, 0.0, 10.0}) {
            const double stake = from + (to - from) * k / 10;
            StakeToXY(stake, 90, offset);
            Witness witness;
            AddFsPoint(gOutX, gOutY, witness);
            const double wanted = std::abs(RoundHalfUp3(ToNominal(stake).value));
            if (std::abs(metresOf(witness.stake) - wanted) < kAccuracyLimitMm / 1000) continue;
            const auto text = [](double s) { return FormatStake(RoundHalfUp3(ToNominal(s).value)); };
            accuracy.warnings.push_back("最后一段（" + text(from) + "起）由坐标反算桩号不可靠：" + text(stake) +
                                        "偏距" + NumText(offset) + "米的点反算不回原桩号");
            return;
        }
}

}  // namespace

Accuracy CheckAccuracy(bool byPoints)
{
    const Shared before = shared;
    Accuracy accuracy;
    accuracy.byPoints = byPoints;
    if (gElemCount > 0) {
        if (byPoints)
            byPointsRows(accuracy);
        else
            blockRows(accuracy);
        lastElement(accuracy);
    }
    shared = before;
    return accuracy;
}
