#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Trig.h"
#include "dialogs/Messages.h"
#include "tables/CalcTables.h"
#include "tools/Fhdx.h"
#include "tools/FhdxCells.h"

#include <array>
#include <cmath>
#include <string>

namespace {

double sgn(double value) { return (value > 0) - (value < 0); }

/// The whole number of a sum of millimetres, as 16 bits hold it.
std::int16_t whole(double value)
{
    const double rounded = std::nearbyint(value);
    if (std::abs(rounded) > 1e9) throw RunTimeError(RunTimeError::Overflow);
    return toInt16(static_cast<long long>(rounded));
}

// Limits of a first-grade traverse (一级导线): 10" times the root of the number of angles, 1/15000 of the length.
// Source: GB 50026 《工程测量标准》, 导线测量的主要技术要求.

/// One axis of the closure and the columns that belong to it.
struct Axis {
    char increment, correction, corrected, coordinate;
};
constexpr Axis kX{'f', 'h', 'j', 'l'};
constexpr Axis kY{'g', 'i', 'k', 'm'};

/// One adjustment: the cells and what the steps hand on beside them.
class Adjustment {
public:
    Adjustment(Worksheet& sheet, bool leftAngles)
        : m_cells(sheet), m_n(gFhdxN), m_left(leftAngles), m_rowC(FhdxRow(2 * m_n)), m_rowD(FhdxRow(2 * m_n + 2)),
          m_footer(FhdxRow(2 * m_n + 4))
    {}

    FhdxResult run()
    {
        knownAzimuths();
        angularClosure();
        azimuths();
        increments();
        const Closure x = closure(kX), y = closure(kY);
        writeClosure(x, y);
        distribute(x.closure, y.closure);
        correct();
        finish();
        return m_result;
    }

private:
    struct Closure {
        double sum = 0;      ///< of the increments
        double closure = 0;  ///< m, 6 decimals
    };
    static constexpr int kFirstAngle = 6, kFirstLeg = 7;
    int lastLeg() const { return m_rowC - 1; }
    int angles() const { return m_n - 2; }

    void knownAzimuths()
    {
        const auto azimuth = [&](int from, int to) {
            return DmsToDeg(Azimuth(checked(m_cells.number('l', to) - m_cells.number('l', from)),
                                    checked(m_cells.number('m', to) - m_cells.number('m', from))));
        };
        // All eight are read before the first azimuth is written.
        const double start = azimuth(4, 6), end = azimuth(m_rowC, m_rowD);
        m_cells.write('d', 5, m_start = start);
        m_cells.write('d', m_rowC + 1, m_end = end);
    }

    void angularClosure()
    {
        std::array<double, 101> table{};
        for (int i = 0; i < angles(); ++i) at(table, i) = DmsToDeg(m_cells.number('b', kFirstAngle + 2 * i));
        double sum = 0;
        for (int i = 0; i < angles(); ++i) sum += table[static_cast<std::size_t>(i)];

        // N and not N - 2 half turns: the wraps below take out the turn that is too much.
        const double theory = (m_left ? m_end - m_start : m_start - m_end) + m_n * 180;
        double closure = sum - theory;
        if (closure > 719)
            closure -= 720;
        else if (closure > 359)
            closure -= 360;
        if (closure < -719)
            closure += 720;
        else if (closure < -359)
            closure += 360;
        m_angleClosure = closure;

        const double seconds = m_result.angleClosure = std::floor(checked(closure * 3600 + 0.5));
        const double limit = std::sqrt(angles()) * 10;
        m_cells.write('b', m_footer, "fβ=Σfβ测-Σfβ理");
        m_cells.write('b', m_footer + 1, "fβ=" + NumText(seconds) + "″");
        m_cells.write('b', m_footer + 2, "fβ允 = ±10√n = ±" + NumText(std::floor(limit + 0.5)) + "″");
        m_cells.write('b', m_footer + 3,
                      limit > std::abs(seconds) ? "fβ<fβ允，符合一级导线要求" : "fβ>fβ允，不符合一级导线要求");
        for (int row = kFirstAngle; row <= m_rowC; row += 2) m_cells.write('c', row, quotient(-seconds, angles()));
    }

    void azimuths()
    {
        const double turn = quotient(-m_angleClosure, angles());
        for (int row = kFirstLeg; row <= lastLeg(); row += 2) {
            const double before = m_cells.number('d', row - 2);
            const double angle = DmsToDeg(m_cells.number('b', row - 1));
            double azimuth = m_left ? before - 180 + angle + turn : before + 180 - angle - turn;
            if (azimuth < 0)
                azimuth += 360;
            else if (azimuth > 360)
                azimuth -= 360;
            m_cells.write('d', row, azimuth);
        }
    }

    void increments()
    {
        for (int row = kFirstLeg; row <= lastLeg(); row += 2) {
            const double distance = m_cells.number('e', row);
            const double azimuth = radians(m_cells.number('d', row));
            m_cells.write('f', row, LeadingZeroText(Fixed3(distance * trig::cos(azimuth))));
            m_cells.write('g', row, LeadingZeroText(Fixed3(distance * trig::sin(azimuth))));
        }
    }

    double sum(char column) const
    {
        double total = 0;
        for (int row = kFirstLeg; row <= lastLeg(); row += 2) total += m_cells.number(column, row);
        return checked(total);
    }
    Closure closure(const Axis& axis)
    {
        const double total = sum(axis.increment);
        return {total, Fixed6(checked(total - (m_cells.number(axis.coordinate, m_rowC) -
                                               m_cells.number(axis.coordinate, kFirstAngle))))};
    }

    void writeClosure(const Closure& x, const Closure& y)
    {
        const double distances = sum('e');
        const auto sumText = [&](const char* name, double total, const Axis& axis) {
            return name + LeadingZeroText(Fixed3(total)) + " -(" + NumText(m_cells.number(axis.coordinate, m_rowC)) +
                   "-" + NumText(m_cells.number(axis.coordinate, kFirstAngle)) + ")";
        };
        m_cells.write('e', m_footer, sumText("fx=", x.sum, kX));
        m_cells.write('j', m_footer, sumText("fy=", y.sum, kY));
        m_cells.write('e', m_footer + 1, "fx=" + LeadingZeroText(x.closure));
        m_cells.write('j', m_footer + 1, "fy=" + LeadingZeroText(y.closure));

        m_result.fx = x.closure;
        m_result.fy = y.closure;
        const double total = m_result.f = Fixed3(checked(std::sqrt(x.closure * x.closure + y.closure * y.closure)));
        m_cells.write('g', m_footer + 2, "f=√(fx*fx+fy*fy)=" + LeadingZeroText(total));
        const double ratio = m_result.lengthPerClosure = std::floor(quotient(distances, total));
        const bool met = ratio > 15000;
        m_cells.write('g', m_footer + 3, "K=f/ΣD=1/" + NumText(ratio) + (met ? "<1/15000" : ">1/15000"));
        m_cells.write('k', m_footer + 3, met ? "符合精度要求" : "不符合精度要求");
        m_distances = distances;
    }

    void distribute(double fx, double fy)
    {
        const auto share = [&](double distance, double closure) {
            const double part = std::abs(distance * quotient(-closure, m_distances)) * 1000;
            return sgn(-closure) * std::floor(checked(part + 0.5));
        };
        for (int row = kFirstLeg; row <= lastLeg(); row += 2) {
            const double distance = m_cells.number('e', row);
            m_cells.write(kX.correction, row, share(distance, fx));
            m_cells.write(kY.correction, row, share(distance, fy));
        }
        const std::int16_t sumX = sumOfCorrections(kX), sumY = sumOfCorrections(kY);
        spreadRest(kX, sumX, fx);
        spreadRest(kY, sumY, fy);
    }

    std::int16_t sumOfCorrections(const Axis& axis) const
    {
        std::int16_t total = 0;
        for (int row = kFirstLeg; row <= lastLeg(); row += 2)
            total = whole(total + m_cells.number(axis.correction, row));
        return total;
    }

    void spreadRest(const Axis& axis, std::int16_t corrections, double closure)
    {
        /// Units away from zero that the last and the first leg take where the sum is too large by `rest` units.
        struct Move {
            int rest, last, first;
        };
        // Kept on purpose: two units too few are not the mirror of two too many; the moves cancel.
        constexpr Move kMoves[] = {{1, -1, 0}, {2, -1, -1}, {-1, 1, 0}, {-2, -1, 1}};
        const std::int16_t rest = whole(toInt16(std::abs(static_cast<int>(corrections))) - std::abs(closure) * 1000);
        for (const auto& move : kMoves) {
            if (move.rest != rest) continue;
            moveUnit(axis, lastLeg(), move.last);
            moveUnit(axis, kFirstLeg, move.first);
        }
    }
    /// A unit goes by the sign of the cell: a correction of 0 stays.
    void moveUnit(const Axis& axis, int row, int away)
    {
        if (away == 0) return;
        const double correction = m_cells.number(axis.correction, row);
        m_cells.write(axis.correction, row, correction + away * sgn(correction));
    }

    void correct()
    {
        for (int row = kFirstLeg; row <= lastLeg(); row += 2)
            for (const Axis& axis : {kX, kY})
                m_cells.write(axis.corrected, row,
                              m_cells.number(axis.increment, row) + m_cells.number(axis.correction, row) / 1000);
        // C is known: the corrected increment of the last leg is not used.
        for (int row = kFirstAngle + 2; row <= m_rowC - 2; row += 2)
            for (const Axis& axis : {kX, kY})
                m_cells.write(axis.coordinate, row,
                              m_cells.number(axis.coordinate, row - 2) + m_cells.number(axis.corrected, row - 1));
    }

    void finish()
    {
        m_cells.sheet().select(CellRange(4, 2, m_rowC, 13));
        m_cells.sheet().setHorizontalAlignment(CellRange(4, 2, m_rowC, 13), xlCenter);
        const auto withMarks = [&](char column, int row, double degrees) {
            m_result.angles[row] = degrees;
            m_cells.write(column, row, FormatDmsSeconds(degrees));
        };
        for (int row = 5; row <= m_rowC + 1; row += 2) withMarks('d', row, m_cells.number('d', row));
        for (int row = kFirstAngle; row <= m_rowC; row += 2) withMarks('b', row, DmsToDeg(m_cells.number('b', row)));
    }

    FhdxCells m_cells;
    const int m_n;
    const bool m_left;
    const int m_rowC, m_rowD, m_footer;
    double m_start = 0, m_end = 0;  ///< known azimuths, degrees
    double m_angleClosure = 0;      ///< degrees
    double m_distances = 0;         ///< sum of the legs, m
    FhdxResult m_result;
};

}  // namespace

FhdxResult AdjustFhdx(Worksheet& sheet, bool leftAngles) { return Adjustment(sheet, leftAngles).run(); }

double Fixed6(double value)
{
    std::string text = NumText(value);
    const auto point = text.find('.');
    if (point == std::string::npos || text.size() - point <= 7) return ParseNumber(text) + 0.0;
    const bool up = text[point + 7] >= '5';
    text.resize(point + 7);
    if (up) {
        // One more in the last place, with its carries; a digit may come to stand before all others.
        std::size_t place = text.size();
        while (place-- > 0) {
            if (text[place] == '.') continue;
            if (text[place] == '-') break;
            if (text[place] != '9') {
                ++text[place];
                return ParseNumber(text);
            }
            text[place] = '0';
        }
        text.insert(text[0] == '-' ? 1 : 0, "1");
    }
    return ParseNumber(text) + 0.0;
}

Msg FhdxCalcFault() { return {"输入数据有误，请检查后再计算", std::string(message::kError), Icon::None}; }
