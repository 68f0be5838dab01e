#pragma once
// A second formulation of the load, for tests: numbers that may be missing instead of statements that fail. A value
// computed from something missing, a quotient by zero and a number past the range of a double are missing; a cell keeps
// what it holds when it is given something missing. Files are UTF-8 texts without blank lines.

#include "base/Trig.h"
#include "engine/Element.h"
#include "tables/CalcTables.h"

#include <cmath>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>
#include <string>
#include <vector>

namespace reference {

struct Maybe {
    std::optional<double> value;

    Maybe() = default;
    Maybe(double v)
    {
        if (std::isfinite(v)) value = v;
    }
    explicit operator bool() const { return value.has_value(); }
};

template <class Function, class... Rest>
Maybe lift(Function f, Maybe a, Rest... rest)
{
    if (!(a && ... && rest)) return {};
    try {
        return f(*a.value, *rest.value...);
    } catch (const RunTimeError&) {
        return {};
    }
}

inline Maybe operator+(Maybe a, Maybe b)
{
    return lift([](double x, double y) { return x + y; }, a, b);
}
inline Maybe operator-(Maybe a, Maybe b)
{
    return lift([](double x, double y) { return x - y; }, a, b);
}
inline Maybe operator*(Maybe a, Maybe b)
{
    return lift([](double x, double y) { return x * y; }, a, b);
}
inline Maybe operator/(Maybe a, Maybe b)
{
    return lift([](double x, double y) { return y == 0 ? Maybe{} : Maybe{x / y}; }, a, b);
}
inline Maybe pow(Maybe a, int n)
{
    return lift([n](double x) { return trig::power(x, n); }, a);
}
inline Maybe abs(Maybe a)
{
    return lift([](double x) { return std::abs(x); }, a);
}

/// One cell of a column, which may not exist.
struct Cell {
    std::vector<double>& column;
    long row;

    bool exists() const { return row >= 0 && row < std::ssize(column); }
    Maybe get() const { return exists() ? Maybe{column[static_cast<std::size_t>(row)]} : Maybe{}; }
    operator Maybe() const { return get(); }
    const Cell& operator=(Maybe m) const
    {
        if (exists() && m) column[static_cast<std::size_t>(row)] = *m.value;
        return *this;
    }
    Cell(std::vector<double>& c, long r) : column(c), row(r) {}
    Cell(const Cell&) = default;
    const Cell& operator=(const Cell& other) const { return *this = other.get(); }
};

inline auto cells(std::vector<double>& column)
{
    return [&column](long row) { return Cell(column, row); };
}

using Row = std::vector<std::string>;

inline std::vector<std::string> cut(std::string text, const std::string& separator)
{
    std::vector<std::string> pieces;
    if (text.empty()) return pieces;
    std::size_t at;
    while ((at = text.find(separator)) != std::string::npos) {
        pieces.push_back(text.substr(0, at));
        text.erase(0, at + separator.size());
    }
    pieces.push_back(text);
    return pieces;
}

/// Lines up to the last one with a comma.
inline std::vector<Row> rowsOf(const std::string& text)
{
    std::vector<Row> rows;
    std::size_t used = 0;
    for (const auto& line : cut(text, "\r\n")) {
        rows.push_back(cut(line, ","));
        if (line.find(',') != std::string::npos) used = rows.size();
    }
    rows.resize(used);
    return rows;
}

/// Sign, digits with or without a point, exponent; blanks around.
inline bool isNumber(const std::string& text)
{
    const char* c = text.c_str();
    const auto skip = [&](const char* any) {
        const auto n = std::strspn(c, any);
        c += n;
        return n;
    };
    const auto one = [&](const char* any) { return *c && std::strchr(any, *c) ? ++c, true : false; };
    skip(" ");
    one("+-");
    auto digits = skip("0123456789");
    if (one(".")) digits += skip("0123456789");
    if (digits == 0) return false;
    if (one("eE") && (one("+-"), skip("0123456789") == 0)) return false;
    skip(" ");
    return c == text.c_str() + text.size();
}

inline Maybe field(const Row& row, std::size_t index)
{
    if (index >= row.size() || !isNumber(row[index])) return {};
    return std::strtod(row[index].c_str(), nullptr);
}

/// Nominal stakes to continuous ones: false where one is in a gap.
inline bool convert(std::vector<double>& stakes)
{
    if (!shared.tables.hasDl) return true;
    const auto n = static_cast<std::size_t>(shared.tables.dlCount) + 1;
    const auto takeOff = [](double& x, double amount) {
        if (const Maybe less = Maybe{x} - Maybe{amount}) x = *less.value;
    };
    for (double& x : stakes) {
        for (std::size_t k = 0; k < n; ++k) {
            const double back = shared.tables.dlBack[k], ahead = shared.tables.dlAhead[k],
                         amount = shared.tables.dlCum[k];
            if (back < x && x < ahead) return false;
            if (amount > 0 ? x >= ahead : amount < 0 && x > back) takeOff(x, amount);
        }
        if (x < 0)
            for (std::size_t k = 0; k < n; ++k)
                if (std::abs(x) > shared.tables.dlAhead[k]) takeOff(x, shared.tables.dlCum[k]);
    }
    return true;
}

inline void fresh(std::size_t rows, std::initializer_list<std::vector<double>*> columns)
{
    for (auto* column : columns) *column = std::vector<double>(rows);
}

inline void traverse(const std::vector<Row>& rows)
{
    shared.tables.dxdCount = static_cast<std::int16_t>(rows.size() - 1);
    shared.tables.dxdName.assign(rows.size(), "");
    fresh(rows.size(), {&shared.tables.dxdX, &shared.tables.dxdY});
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!rows[i].empty()) shared.tables.dxdName[i] = rows[i][0];
        Cell(shared.tables.dxdX, long(i)) = field(rows[i], 1);
        Cell(shared.tables.dxdY, long(i)) = field(rows[i], 2);
    }
}

inline void breaks(const std::vector<Row>& rows)
{
    shared.tables.dlCount = static_cast<std::int16_t>(rows.size() - 1);
    shared.tables.hasDl = -1;
    fresh(rows.size(), {&shared.tables.dlBack, &shared.tables.dlAhead, &shared.tables.dlCum});
    for (std::size_t i = 0; i < rows.size(); ++i) {
        const Cell back(shared.tables.dlBack, long(i)), ahead(shared.tables.dlAhead, long(i)),
            amount(shared.tables.dlCum, long(i));
        back = field(rows[i], 0);
        ahead = field(rows[i], 1);
        amount = abs(ahead) - abs(back);
    }
}

inline void reduce()
{
    for (long i = 1; i <= shared.tables.dlCount; ++i) {
        for (long j = i - 1; j >= 0; --j) {
            const Maybe amount = Cell(shared.tables.dlCum, j);
            for (auto* column : {&shared.tables.dlBack, &shared.tables.dlAhead})
                Cell(*column, i) = Cell(*column, i) - amount;
        }
    }
}

/// ElementEnd where all its arguments are there.
inline void elementEnd(Maybe len, Maybe k1, Maybe k2, Maybe az, Maybe x, Maybe y)
{
    if (!len || !k1 || !k2 || !az || !x || !y || *len.value == 0) return;
    try {
        ElementEnd(*len.value, *k1.value, *k2.value, *az.value, *x.value, *y.value, *len.value);
    } catch (const RunTimeError&) {
        return;  // nothing is left behind
    }
}

inline void intersectionPoints(const std::vector<Row>& rows)
{
    const long n = long(rows.size()) - 1, m = n - 1;
    if (n < 1) return;
    auto& s = shared.tables;
    fresh(std::size_t(4 * m + 2), {&s.elemLc, &s.elemX, &s.elemY, &s.elemFwj, &s.elemR1, &s.elemR2});
    fresh(std::size_t(n + 1), {&s.jdLc, &s.jdX, &s.jdY, &s.jdLs1, &s.jdLs2, &s.jdR, &s.jdT1, &s.jdT2, &s.jdL});
    s.elemCount = static_cast<std::int16_t>(4 * m + 1);
    s.zdCount = static_cast<std::int16_t>(m);

    const auto lc = cells(s.elemLc), x = cells(s.elemX), y = cells(s.elemY), az = cells(s.elemFwj),
               r1 = cells(s.elemR1), r2 = cells(s.elemR2);
    const auto vLc = cells(s.jdLc), vX = cells(s.jdX), vY = cells(s.jdY), ls1 = cells(s.jdLs1), ls2 = cells(s.jdLs2),
               r = cells(s.jdR), t1 = cells(s.jdT1), t2 = cells(s.jdT2), curve = cells(s.jdL);
    const Maybe pi = 3.1415926;
    const auto toDeg = [](Maybe dms) { return lift(DmsToDeg, dms); };
    const auto toDms = [](Maybe deg) { return lift(DegToDms, deg); };
    const auto legAz = [&](long a, long b) { return lift(Azimuth, vX(b) - vX(a), vY(b) - vY(a)); };
    const auto legLen = [&](long a, long b) { return lift(Distance, vX(b) - vX(a), vY(b) - vY(a)); };
    const auto cosDeg = [&](Maybe deg) { return lift([](double rad) { return trig::cos(rad); }, deg * pi / 180.0); };
    const auto sinDeg = [&](Maybe deg) { return lift([](double rad) { return trig::sin(rad); }, deg * pi / 180.0); };

    const Row& first = rows[0];
    lc(0) = vLc(0) = field(first, 0);
    x(0) = vX(0) = field(first, 1);
    y(0) = vY(0) = field(first, 2);
    vX(n) = field(rows[std::size_t(n)], 0);
    vY(n) = field(rows[std::size_t(n)], 1);
    for (long i = 1; i <= m; ++i) {
        const Row& row = rows[std::size_t(i)];
        if (i <= kMaxMainPoint && !row.empty()) s.zdJd[std::size_t(i)] = row[0];
        vX(i) = field(row, 1);
        vY(i) = field(row, 2);
        Cell(s.zdLs1, i) = ls1(i) = field(row, 3);
        Cell(s.zdLs2, i) = ls2(i) = field(row, 4);
        for (auto* ls : {&s.jdLs1, &s.jdLs2})
            if ((*ls)[std::size_t(i)] == 0) (*ls)[std::size_t(i)] = 1e-6;
        r(i) = field(row, 5);
    }
    az(0) = lift(Azimuth, vX(1) - x(0), vY(1) - y(0));

    Maybe a = 0.0, p[2] = {0.0, 0.0}, q[2] = {0.0, 0.0};
    const auto keep = [](Maybe& old, Maybe m2) {
        if (m2) old = m2;
    };
    const auto arrive = [&](long i) {
        const Maybe d = legLen(i - 1, i);
        vLc(i) = i == 1 ? vLc(0) + d : vLc(i - 1) - t1(i - 1) + curve(i - 1) + (d - t2(i - 1));
    };
    for (long i = 1; i <= m; ++i) {
        keep(a, toDeg(legAz(i, i + 1)) - toDeg(legAz(i - 1, i)));
        double& turn = *a.value;
        turn = turn > 180 ? turn - 360 : turn < -180 ? turn + 360 : turn;
        if (turn < 0) s.jdR[std::size_t(i)] *= -1;
        turn = std::abs(turn);
        const Maybe R = abs(r(i));
        for (int k : {0, 1}) {
            const Maybe L = k ? ls2(i) : ls1(i);
            Maybe pk = pow(L, 2) / (24.0 * R) - pow(L, 4) / (2688.0 * pow(R, 3));
            Maybe qk = L / 2.0 - pow(L, 3) / (240.0 * R * R);
            if (turn > 90) {
                pk = pk + pow(L, 6) / (506880.0 * pow(R, 5)) - pow(L, 8) / (154828800.0 * pow(R, 7)) +
                     pow(L, 10) / (70601932800.0 * pow(R, 9)) - pow(L, 12) / (1880240947000.0 * pow(R, 11));
                qk = qk + pow(L, 5) / (34560.0 * pow(L, 4)) - pow(L, 7) / (8386560.0 * pow(L, 6)) +
                     pow(L, 9) / (3158507520.0 * pow(L, 8)) - pow(L, 11) / (1716741734000.0 * pow(L, 10));
            }
            keep(p[k], pk);
            keep(q[k], qk);
        }
        const Maybe c = cosDeg(turn), sine = sinDeg(turn);
        t1(i) = ((R + p[1]) - (R + p[0]) * c) / sine + q[0];
        t2(i) = ((R + p[0]) - (R + p[1]) * c) / sine + q[1];
        Cell(s.zdT1, i) = t1(i);
        Cell(s.zdT2, i) = t2(i);
        curve(i) = (pi / 180.0 * turn) * R + (ls1(i) + ls2(i)) / 2.0;
        arrive(i);
    }
    arrive(n);

    // One kind of row after the other; `kind` counts ZH, HY, YH, HZ.
    struct Kind {
        std::vector<double>*lc, *x, *y, *az;
    };
    const Kind kinds[] = {{&s.zdZhLc, &s.zdZhX, &s.zdZhY, &s.zdZhFwj},
                          {&s.zdHyLc, &s.zdHyX, &s.zdHyY, &s.zdHyFwj},
                          {&s.zdYhLc, &s.zdYhX, &s.zdYhY, &s.zdYhFwj},
                          {&s.zdHzLc, &s.zdHzX, &s.zdHzY, &s.zdHzFwj}};
    for (int kind = 0; kind < 4; ++kind) {
        for (long i = 1; i <= m; ++i) {
            const long row = 4 * i - 3 + kind;
            const Maybe k = 1.0 / r(i);
            if (kind == 0) {
                lc(row) = vLc(i) - t1(i);
                az(row) = legAz(i - 1, i);
                x(row) = cosDeg(toDeg(az(row)) + 180.0) * t1(i) + vX(i);
                y(row) = sinDeg(toDeg(az(row)) + 180.0) * t1(i) + vY(i);
                r2(row) = r(i);
            } else {
                const Maybe arc = (curve(i) - ls2(i)) - ls1(i);
                if (kind == 1) {
                    lc(row) = lc(row - 1) + ls1(i);
                    elementEnd(ls1(i), 0.0, k, az(row - 1), x(row - 1), y(row - 1));
                    r1(row) = r2(row) = r(i);
                } else if (kind == 2) {
                    lc(row) = (curve(i) - ls2(i)) + lc(row - 2);
                    elementEnd(arc, k, k, az(row - 1), x(row - 1), y(row - 1));
                    r1(row) = r(i);
                } else {
                    lc(row) = (vLc(i) - t1(i)) + curve(i);
                    elementEnd(ls2(i), k, 0.0, az(row - 1), x(row - 1), y(row - 1));
                }
                az(row) = toDms(shared.results.outFwj);
                x(row) = shared.results.outX;
                y(row) = shared.results.outY;
            }
            Cell(*kinds[kind].lc, i) = lc(row);
            Cell(*kinds[kind].x, i) = x(row);
            Cell(*kinds[kind].y, i) = y(row);
            Cell(*kinds[kind].az, i) = az(row);
        }
    }
    lc(4 * m + 1) = vLc(n) + 0.01;
    az(4 * m + 1) = legAz(n - 2, n - 1);
}

inline bool blocks(const std::vector<Row>& rows)
{
    auto& s = shared.tables;
    const auto count = rows.size();
    s.elemCount = static_cast<std::int16_t>(count);
    fresh(count + 1, {&s.elemLc, &s.elemX, &s.elemY, &s.elemFwj, &s.elemR1, &s.elemR2});
    for (std::size_t i = 0; i < count; ++i) {
        std::size_t k = 0;
        for (auto* column : {&s.elemLc, &s.elemX, &s.elemY, &s.elemFwj, &s.elemR1, &s.elemR2}) {
            Cell(*column, long(i)) = field(rows[i], k);
            k += k == 0 ? 2 : 1;  // the end stake is left out
        }
    }
    Cell(s.elemLc, long(count)) = field(rows.back(), 1) + 0.0001;
    return convert(s.elemLc);
}

inline bool vertical(const std::vector<Row>& rows)
{
    auto& s = shared.tables;
    s.sqxCount = static_cast<std::int16_t>(rows.size() - 1);
    fresh(rows.size(), {&s.sqxLc, &s.sqxGc, &s.sqxR});
    for (std::size_t i = 0; i < rows.size(); ++i) {
        Cell(s.sqxLc, long(i)) = field(rows[i], 0);
        Cell(s.sqxGc, long(i)) = field(rows[i], 1);
        if (i > 0 && i + 1 < rows.size()) Cell(s.sqxR, long(i)) = field(rows[i], 2);
    }
    return convert(s.sqxLc);
}

inline bool superelevation(const std::vector<Row>& rows)
{
    auto& s = shared.tables;
    const auto count = rows.size();
    s.cgCount = static_cast<std::int16_t>(count);
    fresh(count + 1, {&s.cgLc, &s.cgA, &s.cgB, &s.cgC});
    double v = 0, w = 0;
    for (std::size_t i = 0; i <= count; ++i) {
        const bool closing = i == count;
        const Row& row = closing ? rows.back() : rows[i];
        const Cell left(s.cgA, long(i)), right(s.cgB, long(i));
        Cell(s.cgLc, long(i)) = closing ? field(row, 3) + 0.0001 : field(row, 0);
        left = field(row, closing ? 4 : 1) / 100.0;
        right = field(row, closing ? 5 : 2) / 100.0;
        if (const Maybe mean = (field(row, 4) + left) / 2.0) v = *mean.value;
        if (const Maybe mean = (field(row, 5) + right) / 2.0) w = *mean.value;
        s.cgC[i] = w == v ? 0 : w < v ? 2 : 1;
    }
    return convert(s.cgLc);
}

inline bool widths(const std::vector<Row>& rows)
{
    auto& s = shared.tables;
    const auto count = rows.size();
    s.cgkdCount = static_cast<std::int16_t>(count);
    fresh(count + 1, {&s.cgkdG, &s.cgkdC, &s.cgkdA, &s.cgkdB, &s.cgkdD, &s.cgkdE, &s.cgkdF});
    for (std::size_t i = 0; i <= count; ++i) {
        const bool closing = i == count;
        const Row& row = closing ? rows.back() : rows[i];
        Cell(s.cgkdG, long(i)) = closing ? field(row, 1) + 0.0001 : field(row, 0);
        Cell(s.cgkdC, long(i)) = field(row, 2);
        std::size_t k = closing ? 7 : 3;
        for (auto* column : {&s.cgkdA, &s.cgkdB, &s.cgkdD, &s.cgkdE}) Cell(*column, long(i)) = field(row, k++);
        Cell(s.cgkdF, long(i)) = field(row, 11) / 100.0;
    }
    return convert(s.cgkdG);
}

using Files = std::map<std::string, std::string>;

struct Loaded {
    Shared state;
    bool gap = false;
};

/// What a load of `files` makes of the state `before`.
inline Loaded load(const Shared& before, const Files& files)
{
    const Shared kept = shared;
    shared = before;
    const auto rows = [&](const char* name) {
        const auto found = files.find(name);
        return found == files.end() ? std::vector<Row>{} : rowsOf(found->second);
    };
    const auto settings =
        files.count("其他参数.txt") ? cut(files.at("其他参数.txt"), "\r\n") : std::vector<std::string>{};
    const auto through = [&] {
        if (const auto r = rows("导线点参数.txt"); !r.empty()) traverse(r);
        if (const auto r = rows("断链参数.txt"); !r.empty()) breaks(r);
        reduce();
        if (const auto r = rows("平曲线参数.txt"); !r.empty()) {
            if (!settings.empty() && settings[0] == "交点法")
                intersectionPoints(r);
            else if (!blocks(r))
                return false;
        }
        if (const auto r = rows("竖曲线参数.txt"); !r.empty() && !vertical(r)) return false;
        // A file without settings has grown to one line by now, and its second piece is empty.
        shared.tables.cgType = settings.size() > 1 && settings[1] == "线性" ? "0" : "1";
        if (const auto r = rows("超高参数.txt"); !r.empty() && !superelevation(r)) return false;
        if (const auto r = rows("超高宽度参数.txt"); !r.empty() && !widths(r)) return false;
        return true;
    };
    Loaded result;
    result.gap = !through();
    result.state = shared;
    shared = kept;
    return result;
}

}  // namespace reference
