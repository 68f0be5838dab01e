// The horizontal alignment from intersection points: the polygon becomes a chain of elements, four rows a vertex.
// Line 0 is the start point, line n the end point, lines 1 to n-1 are intersection points.

#include "engine/Element.h"
#include "project/CalcTables.h"
#include "project/Compile.h"

#include <cmath>

namespace {

double power(double base, int exponent) { return checked(std::pow(base, exponent)); }

double leg(const std::vector<double>& axis, int from, int to) { return checked(at(axis, to) - at(axis, from)); }
double legAzimuth(int from, int to) { return checked(Azimuth(leg(gJdX, from, to), leg(gJdY, from, to))); }
double legLength(int from, int to) { return checked(Distance(leg(gJdX, from, to), leg(gJdY, from, to))); }

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

void readStart(const Fields& fields)
{
    take(gElemLc, 0, fields, 0);
    take(gElemX, 0, fields, 1);
    take(gElemY, 0, fields, 2);
    take(gJdLc, 0, fields, 0);
    take(gJdX, 0, fields, 1);
    take(gJdY, 0, fields, 2);
}

void readVertex(int i, const Fields& fields)
{
    attempt([&] { at(gZdJd, i) = Utf8FromCp936(at(fields, 0)); });
    take(gJdX, i, fields, 1);
    take(gJdY, i, fields, 2);
    take(gJdLs1, i, fields, 3);
    take(gJdLs2, i, fields, 4);
    attempt([&] { at(gZdLs1, i) = at(gJdLs1, i); });
    attempt([&] { at(gZdLs2, i) = at(gJdLs2, i); });
    if (at(gJdLs1, i) == 0) at(gJdLs1, i) = 0.000001;  // no division meets a spiral of length 0
    if (at(gJdLs2, i) == 0) at(gJdLs2, i) = 0.000001;
    take(gJdR, i, fields, 5);
}

/// Stake of vertex i along the route that leads to it.
void chainStake(int i)
{
    attempt([&] {
        const double d = legLength(i - 1, i);
        at(gJdLc, i) = i == 1 ? checked(at(gJdLc, 0) + d)
                              : checked(at(gJdLc, i - 1) - at(gJdT1, i - 1) + at(gJdL, i - 1) + (d - at(gJdT2, i - 1)));
    });
}

/// Deflection, shifts and tangent parts outlast a vertex: where an assignment fails, the values of the vertex before
/// serve.
class Tangents {
public:
    void vertex(int i)
    {
        attempt([&] { m_a = checked(DmsToDeg(legAzimuth(i, i + 1)) - DmsToDeg(legAzimuth(i - 1, i))); });
        if (m_a > 180) m_a -= 360;
        if (m_a < -180) m_a += 360;
        if (!(m_a >= 0 && m_a <= 180)) at(gJdR, i) = -at(gJdR, i);
        m_a = std::abs(m_a);

        const double r = std::abs(at(gJdR, i));
        const bool big = m_a > 90;
        attempt([&] { m_p1 = shift(at(gJdLs1, i), r, big); });
        attempt([&] { m_p2 = shift(at(gJdLs2, i), r, big); });
        attempt([&] { m_q1 = tangentPart(at(gJdLs1, i), r, big); });
        attempt([&] { m_q2 = tangentPart(at(gJdLs2, i), r, big); });

        const double c = std::cos(radians(m_a));
        const double s = std::sin(radians(m_a));
        attempt([&] { at(gJdT1, i) = checked(quotient((r + m_p2) - (r + m_p1) * c, s) + m_q1); });
        attempt([&] { at(gJdT2, i) = checked(quotient((r + m_p1) - (r + m_p2) * c, s) + m_q2); });
        attempt([&] { at(gZdT1, i) = at(gJdT1, i); });
        attempt([&] { at(gZdT2, i) = at(gJdT2, i); });
        attempt([&] { at(gJdL, i) = checked((kPi / 180 * m_a) * r + (at(gJdLs1, i) + at(gJdLs2, i)) / 2); });
        chainStake(i);
    }

private:
    double m_a = 0, m_p1 = 0, m_p2 = 0, m_q1 = 0, m_q2 = 0;
};

/// The main-point columns of one kind of row.
struct MainPoint {
    std::vector<double>&lc, &x, &y, &fwj;

    void copy(int i, int row) const
    {
        attempt([&] { at(lc, i) = at(gElemLc, row); });
        attempt([&] { at(x, i) = at(gElemX, row); });
        attempt([&] { at(y, i) = at(gElemY, row); });
        attempt([&] { at(fwj, i) = at(gElemFwj, row); });
    }
};

/// The point that ElementEnd left, be it from this call or, where the call failed, from an earlier one.
void takeElementEnd(int row)
{
    attempt([&] { at(gElemFwj, row) = checked(DegToDms(gOutFwj)); });
    attempt([&] { at(gElemX, row) = checked(gOutX); });
    attempt([&] { at(gElemY, row) = checked(gOutY); });
}

double curvature(int i) { return quotient(1, at(gJdR, i)); }

void zhRow(int i)
{
    const int row = 4 * i - 3;
    attempt([&] { at(gElemLc, row) = checked(at(gJdLc, i) - at(gJdT1, i)); });
    attempt([&] { at(gElemFwj, row) = legAzimuth(i - 1, i); });
    attempt([&] {
        const double back = radians(DmsToDeg(at(gElemFwj, row)) + 180);
        at(gElemX, row) = checked(std::cos(back) * at(gJdT1, i) + at(gJdX, i));
    });
    attempt([&] {
        const double back = radians(DmsToDeg(at(gElemFwj, row)) + 180);
        at(gElemY, row) = checked(std::sin(back) * at(gJdT1, i) + at(gJdY, i));
    });
    attempt([&] { at(gElemR2, row) = at(gJdR, i); });
    MainPoint{gZdZhLc, gZdZhX, gZdZhY, gZdZhFwj}.copy(i, row);
}

void hyRow(int i)
{
    const int row = 4 * i - 2;
    attempt([&] { at(gElemLc, row) = checked(at(gElemLc, row - 1) + at(gJdLs1, i)); });
    attempt([&] {
        ElementEnd(at(gJdLs1, i), 0, curvature(i), at(gElemFwj, row - 1), at(gElemX, row - 1), at(gElemY, row - 1),
                   at(gJdLs1, i));
    });
    takeElementEnd(row);
    attempt([&] { at(gElemR1, row) = at(gJdR, i); });
    attempt([&] { at(gElemR2, row) = at(gJdR, i); });
    MainPoint{gZdHyLc, gZdHyX, gZdHyY, gZdHyFwj}.copy(i, row);
}

void yhRow(int i)
{
    const int row = 4 * i - 1;
    attempt([&] { at(gElemLc, row) = checked((at(gJdL, i) - at(gJdLs2, i)) + at(gElemLc, row - 2)); });
    attempt([&] {
        const double arc = (at(gJdL, i) - at(gJdLs2, i)) - at(gJdLs1, i);
        ElementEnd(arc, curvature(i), curvature(i), at(gElemFwj, row - 1), at(gElemX, row - 1), at(gElemY, row - 1),
                   arc);
    });
    takeElementEnd(row);
    attempt([&] { at(gElemR1, row) = at(gJdR, i); });
    MainPoint{gZdYhLc, gZdYhX, gZdYhY, gZdYhFwj}.copy(i, row);
}

void hzRow(int i)
{
    const int row = 4 * i;
    attempt([&] { at(gElemLc, row) = checked((at(gJdLc, i) - at(gJdT1, i)) + at(gJdL, i)); });
    attempt([&] {
        ElementEnd(at(gJdLs2, i), curvature(i), 0, at(gElemFwj, row - 1), at(gElemX, row - 1), at(gElemY, row - 1),
                   at(gJdLs2, i));
    });
    takeElementEnd(row);
    MainPoint{gZdHzLc, gZdHzX, gZdHzY, gZdHzFwj}.copy(i, row);
}

void closingRow(int n)
{
    const int row = 4 * (n - 1) + 1;
    attempt([&] { gElemCount = toInt16(row); });
    attempt([&] { at(gElemLc, row) = checked(at(gJdLc, n) + 0.01); });
    attempt([&] { at(gElemFwj, row) = legAzimuth(n - 2, n - 1); });  // kept on purpose: the last leg but one
}

}  // namespace

void CompileIntersectionPoints(const Rows& rows)
{
    const int n = rows.last;
    if (n < 1) return;  // a start point alone is no route
    const int m = n - 1;
    attempt([&] { allocate(toInt16(4 * m + 1), gElemLc, gElemX, gElemY, gElemFwj, gElemR1, gElemR2); });
    allocate(rows.last, gJdLc, gJdX, gJdY, gJdLs1, gJdLs2, gJdR, gJdT1, gJdT2, gJdL);
    gZdCount = toInt16(m);

    readStart(rows.fields(0));
    take(gJdX, n, rows.fields(n), 0);
    take(gJdY, n, rows.fields(n), 1);
    for (int i = 1; i <= m; ++i) readVertex(i, rows.fields(i));

    attempt([&] {
        at(gElemFwj, 0) = checked(Azimuth(checked(at(gJdX, 1) - at(gElemX, 0)), checked(at(gJdY, 1) - at(gElemY, 0))));
    });
    Tangents tangents;
    for (int i = 1; i <= m; ++i) tangents.vertex(i);
    chainStake(n);

    for (int i = 1; i <= m; ++i) zhRow(i);
    for (int i = 1; i <= m; ++i) hyRow(i);
    for (int i = 1; i <= m; ++i) yhRow(i);
    for (int i = 1; i <= m; ++i) hzRow(i);
    closingRow(n);
}
