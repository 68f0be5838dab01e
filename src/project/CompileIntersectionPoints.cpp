// The horizontal alignment from intersection points: the polygon becomes a chain of elements, four rows a vertex.
// Line 0 is the start point, line n the end point, lines 1 to n-1 are intersection points.

#include "base/CodePage.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "base/Trig.h"
#include "engine/Element.h"
#include "project/Compile.h"
#include "tables/CalcTables.h"

#include <cmath>

namespace {

double power(double base, int exponent) { return checked(trig::power(base, exponent)); }

double leg(const std::vector<double>& axis, int from, int to) { return checked(at(axis, to) - at(axis, from)); }
double legAzimuth(const Tables& t, int from, int to)
{
    return checked(Azimuth(leg(t.jdX, from, to), leg(t.jdY, from, to)));
}
double legLength(const Tables& t, int from, int to)
{
    return checked(Distance(leg(t.jdX, from, to), leg(t.jdY, from, to)));
}

/// Shift p of the circle by a spiral, a series in Ls and R.
/// Source of p and q: 杨少伟, 《道路勘测设计》, 平面设计, 缓和曲线.
/// The longer series serves deflections over 90 degrees.
double shift(double ls, double r, bool big)
{
    const double p = quotient(power(ls, 2), 24 * r) - quotient(power(ls, 4), 2688 * power(r, 3));
    if (!big) return checked(p);
    return checked(p + quotient(power(ls, 6), 506880 * power(r, 5)) - quotient(power(ls, 8), 154828800 * power(r, 7)) +
                   quotient(power(ls, 10), 70601932800 * power(r, 9)) -
                   quotient(power(ls, 12), 1880240947000 * power(r, 11)));
}

/// Tangent added by a spiral. Kept on purpose: from the third term on the long series divides by powers of the spiral
/// length, not of the radius.
double tangentPart(double ls, double r, bool big)
{
    const double q = ls / 2 - quotient(power(ls, 3), 240 * r * r);
    if (!big) return checked(q);
    return checked(q + quotient(power(ls, 5), 34560 * power(ls, 4)) - quotient(power(ls, 7), 8386560 * power(ls, 6)) +
                   quotient(power(ls, 9), 3158507520 * power(ls, 8)) -
                   quotient(power(ls, 11), 1716741734000 * power(ls, 10)));
}

template <class Column>
bool hasRow(const Column& column, int row)
{
    return row >= 0 && row < std::ssize(column);
}

/// to[row] = from[source], or nothing where either has no such row. What attempt would do, but a long road leaves the
/// main-point columns behind by the thousands of rows, and an exception for each takes longer than the geometry.
void copy(std::vector<double>& to, int row, const std::vector<double>& from, int source)
{
    if (hasRow(to, row) && hasRow(from, source))
        to[static_cast<std::size_t>(row)] = from[static_cast<std::size_t>(source)];
}

void readStart(Tables& t, const Fields& fields)
{
    take(t.elemLc, 0, fields, 0);
    take(t.elemX, 0, fields, 1);
    take(t.elemY, 0, fields, 2);
    take(t.jdLc, 0, fields, 0);
    take(t.jdX, 0, fields, 1);
    take(t.jdY, 0, fields, 2);
}

void readVertex(Tables& t, int i, const Fields& fields)
{
    if (hasRow(t.zdJd, i)) attempt([&] { at(t.zdJd, i) = Utf8FromCp936(at(fields, 0)); });
    take(t.jdX, i, fields, 1);
    take(t.jdY, i, fields, 2);
    take(t.jdLs1, i, fields, 3);
    take(t.jdLs2, i, fields, 4);
    copy(t.zdLs1, i, t.jdLs1, i);
    copy(t.zdLs2, i, t.jdLs2, i);
    if (at(t.jdLs1, i) == 0) at(t.jdLs1, i) = 0.000001;  // no division meets a spiral of length 0
    if (at(t.jdLs2, i) == 0) at(t.jdLs2, i) = 0.000001;
    take(t.jdR, i, fields, 5);
}

/// Stake of vertex i along the route that leads to it.
void chainStake(Tables& t, int i)
{
    attempt([&] {
        const double d = legLength(t, i - 1, i);
        at(t.jdLc, i) =
            i == 1 ? checked(at(t.jdLc, 0) + d)
                   : checked(at(t.jdLc, i - 1) - at(t.jdT1, i - 1) + at(t.jdL, i - 1) + (d - at(t.jdT2, i - 1)));
    });
}

/// Deflection, shifts and tangent parts outlast a vertex: where an assignment fails, the values of the vertex before
/// serve.
class Tangents {
public:
    void vertex(Tables& t, int i)
    {
        attempt([&] { m_a = checked(DmsToDeg(legAzimuth(t, i, i + 1)) - DmsToDeg(legAzimuth(t, i - 1, i))); });
        if (m_a > 180) m_a -= 360;
        if (m_a < -180) m_a += 360;
        if (!(m_a >= 0 && m_a <= 180)) at(t.jdR, i) = -at(t.jdR, i);
        m_a = std::abs(m_a);

        const double r = std::abs(at(t.jdR, i));
        const bool big = m_a > 90;
        attempt([&] { m_p1 = shift(at(t.jdLs1, i), r, big); });
        attempt([&] { m_p2 = shift(at(t.jdLs2, i), r, big); });
        attempt([&] { m_q1 = tangentPart(at(t.jdLs1, i), r, big); });
        attempt([&] { m_q2 = tangentPart(at(t.jdLs2, i), r, big); });

        const double c = trig::cos(radians(m_a));
        const double s = trig::sin(radians(m_a));
        attempt([&] { at(t.jdT1, i) = checked(quotient((r + m_p2) - (r + m_p1) * c, s) + m_q1); });
        attempt([&] { at(t.jdT2, i) = checked(quotient((r + m_p1) - (r + m_p2) * c, s) + m_q2); });
        copy(t.zdT1, i, t.jdT1, i);
        copy(t.zdT2, i, t.jdT2, i);
        attempt([&] { at(t.jdL, i) = checked((kPi / 180 * m_a) * r + (at(t.jdLs1, i) + at(t.jdLs2, i)) / 2); });
        chainStake(t, i);
    }

private:
    double m_a = 0, m_p1 = 0, m_p2 = 0, m_q1 = 0, m_q2 = 0;
};

/// The main-point columns of one kind of row.
struct MainPoint {
    std::vector<double>&lc, &x, &y, &fwj;

    void take(const Tables& t, int i, int row) const
    {
        copy(lc, i, t.elemLc, row);
        copy(x, i, t.elemX, row);
        copy(y, i, t.elemY, row);
        copy(fwj, i, t.elemFwj, row);
    }
};

/// The point that ElementEnd left, be it from this call or, where the call failed, from an earlier one.
void takeElementEnd(Tables& t, const EngineResults& results, int row)
{
    attempt([&] { at(t.elemFwj, row) = checked(DegToDms(results.outFwj)); });
    attempt([&] { at(t.elemX, row) = checked(results.outX); });
    attempt([&] { at(t.elemY, row) = checked(results.outY); });
}

double curvature(const Tables& t, int i) { return quotient(1, at(t.jdR, i)); }

void zhRow(Tables& t, int i)
{
    const int row = 4 * i - 3;
    attempt([&] { at(t.elemLc, row) = checked(at(t.jdLc, i) - at(t.jdT1, i)); });
    attempt([&] { at(t.elemFwj, row) = legAzimuth(t, i - 1, i); });
    attempt([&] {
        const double back = radians(DmsToDeg(at(t.elemFwj, row)) + 180);
        at(t.elemX, row) = checked(trig::cos(back) * at(t.jdT1, i) + at(t.jdX, i));
    });
    attempt([&] {
        const double back = radians(DmsToDeg(at(t.elemFwj, row)) + 180);
        at(t.elemY, row) = checked(trig::sin(back) * at(t.jdT1, i) + at(t.jdY, i));
    });
    attempt([&] { at(t.elemR2, row) = at(t.jdR, i); });
    MainPoint{t.zdZhLc, t.zdZhX, t.zdZhY, t.zdZhFwj}.take(t, i, row);
}

void hyRow(Tables& t, EngineResults& results, int i)
{
    const int row = 4 * i - 2;
    attempt([&] { at(t.elemLc, row) = checked(at(t.elemLc, row - 1) + at(t.jdLs1, i)); });
    attempt([&] {
        ElementEnd(results, at(t.jdLs1, i), 0, curvature(t, i), at(t.elemFwj, row - 1), at(t.elemX, row - 1),
                   at(t.elemY, row - 1), at(t.jdLs1, i));
    });
    takeElementEnd(t, results, row);
    attempt([&] { at(t.elemR1, row) = at(t.jdR, i); });
    attempt([&] { at(t.elemR2, row) = at(t.jdR, i); });
    MainPoint{t.zdHyLc, t.zdHyX, t.zdHyY, t.zdHyFwj}.take(t, i, row);
}

void yhRow(Tables& t, EngineResults& results, int i)
{
    const int row = 4 * i - 1;
    attempt([&] { at(t.elemLc, row) = checked((at(t.jdL, i) - at(t.jdLs2, i)) + at(t.elemLc, row - 2)); });
    attempt([&] {
        const double arc = (at(t.jdL, i) - at(t.jdLs2, i)) - at(t.jdLs1, i);
        ElementEnd(results, arc, curvature(t, i), curvature(t, i), at(t.elemFwj, row - 1), at(t.elemX, row - 1),
                   at(t.elemY, row - 1), arc);
    });
    takeElementEnd(t, results, row);
    attempt([&] { at(t.elemR1, row) = at(t.jdR, i); });
    MainPoint{t.zdYhLc, t.zdYhX, t.zdYhY, t.zdYhFwj}.take(t, i, row);
}

void hzRow(Tables& t, EngineResults& results, int i)
{
    const int row = 4 * i;
    attempt([&] { at(t.elemLc, row) = checked((at(t.jdLc, i) - at(t.jdT1, i)) + at(t.jdL, i)); });
    attempt([&] {
        ElementEnd(results, at(t.jdLs2, i), curvature(t, i), 0, at(t.elemFwj, row - 1), at(t.elemX, row - 1),
                   at(t.elemY, row - 1), at(t.jdLs2, i));
    });
    takeElementEnd(t, results, row);
    MainPoint{t.zdHzLc, t.zdHzX, t.zdHzY, t.zdHzFwj}.take(t, i, row);
}

void closingRow(Tables& t, int n)
{
    const int row = 4 * (n - 1) + 1;
    attempt([&] { t.elemCount = toInt16(row); });
    attempt([&] { at(t.elemLc, row) = checked(at(t.jdLc, n) + 0.01); });
    attempt([&] { at(t.elemFwj, row) = legAzimuth(t, n - 2, n - 1); });  // kept on purpose: the last leg but one
}

}  // namespace

void CompileIntersectionPoints(const Rows& rows, Tables& t, EngineResults& results)
{
    const int n = rows.last;
    if (n < 1) return;  // a start point alone is no route
    const int m = n - 1;
    attempt([&] { allocate(toInt16(4 * m + 1), t.elemLc, t.elemX, t.elemY, t.elemFwj, t.elemR1, t.elemR2); });
    allocate(rows.last, t.jdLc, t.jdX, t.jdY, t.jdLs1, t.jdLs2, t.jdR, t.jdT1, t.jdT2, t.jdL);
    t.zdCount = toInt16(m);

    readStart(t, rows.fields(0));
    take(t.jdX, n, rows.fields(n), 0);
    take(t.jdY, n, rows.fields(n), 1);
    for (int i = 1; i <= m; ++i) readVertex(t, i, rows.fields(i));

    attempt([&] {
        at(t.elemFwj, 0) =
            checked(Azimuth(checked(at(t.jdX, 1) - at(t.elemX, 0)), checked(at(t.jdY, 1) - at(t.elemY, 0))));
    });
    Tangents tangents;
    for (int i = 1; i <= m; ++i) tangents.vertex(t, i);
    chainStake(t, n);

    for (int i = 1; i <= m; ++i) zhRow(t, i);
    for (int i = 1; i <= m; ++i) hyRow(t, results, i);
    for (int i = 1; i <= m; ++i) yhRow(t, results, i);
    for (int i = 1; i <= m; ++i) hzRow(t, results, i);
    closingRow(t, n);
}
