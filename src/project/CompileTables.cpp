// Every file whose rows become table rows with no geometry: which field goes where.

#include "base/CodePage.h"
#include "base/RunTimeError.h"
#include "project/Compile.h"
#include "tables/CalcTables.h"

#include <cmath>
#include <span>

namespace {

struct Assignment {
    std::vector<double>* target;
    int field;
    As as = As::Typed;
};

void fill(int row, const Fields& fields, std::span<const Assignment> assignments)
{
    for (const auto& [target, field, as] : assignments) take(*target, row, fields, field, as);
}

/// A table with one row more than lines: its closing row comes from the last line.
void fillWithClosingRow(const Rows& rows, std::int16_t count, std::span<const Assignment> each,
                        std::span<const Assignment> closing)
{
    for (int i = 0; i < count; ++i) fill(i, rows.fields(i), each);
    fill(count, rows.fields(rows.last), closing);
}

/// Side marks of the superelevation rows. v and w outlast a row: a damaged field leaves the values of the row before.
class SideMark {
public:
    void mark(Tables& t, int row, const Fields& fields)
    {
        // Percent and fraction are mixed on purpose.
        attempt([&] { m_left = checked((number(fields, 4) + at(t.cgA, row)) / 2); });
        attempt([&] { m_right = checked((number(fields, 5) + at(t.cgB, row)) / 2); });
        attempt([&] { at(t.cgC, row) = m_right == m_left ? 0 : m_right < m_left ? 2 : 1; });
    }

private:
    double m_left = 0, m_right = 0;
};

}  // namespace

void CompileTraversePoints(const Rows& rows, Tables& t)
{
    t.dxdCount = rows.last;
    allocate(t.dxdCount, t.dxdName, t.dxdX, t.dxdY);
    for (int i = 0; i <= t.dxdCount; ++i) {
        const auto fields = rows.fields(i);
        attempt([&] { at(t.dxdName, i) = Utf8FromCp936(at(fields, 0)); });
        take(t.dxdX, i, fields, 1);
        take(t.dxdY, i, fields, 2);
    }
}

void CompileBreaks(const Rows& rows, Tables& t)
{
    t.dlCount = rows.last;
    allocate(t.dlCount, t.dlBack, t.dlAhead, t.dlCum);
    for (int i = 0; i <= t.dlCount; ++i) {
        const auto fields = rows.fields(i);
        take(t.dlBack, i, fields, 0);
        take(t.dlAhead, i, fields, 1);
        attempt([&] { at(t.dlCum, i) = checked(std::abs(at(t.dlAhead, i)) - std::abs(at(t.dlBack, i))); });
        t.hasDl = -1;
    }
}

void ReduceBreaks(Tables& t)
{
    for (int i = 1; i <= t.dlCount; ++i) {
        for (int j = i; j >= 1; --j) {
            attempt([&] { at(t.dlBack, i) = checked(at(t.dlBack, i) - at(t.dlCum, j - 1)); });
            attempt([&] { at(t.dlAhead, i) = checked(at(t.dlAhead, i) - at(t.dlCum, j - 1)); });
        }
    }
}

void CompileBlocks(const Rows& rows, Tables& t)
{
    attempt([&] { t.elemCount = toInt16(rows.last + 1); });
    allocate(t.elemCount, t.elemLc, t.elemX, t.elemY, t.elemFwj, t.elemR1, t.elemR2);
    const Assignment each[] = {{&t.elemLc, 0},  {&t.elemX, 2},  {&t.elemY, 3},
                               {&t.elemFwj, 4}, {&t.elemR1, 5}, {&t.elemR2, 6}};
    const Assignment closing[] = {{&t.elemLc, 1, As::ClosingStake}};
    fillWithClosingRow(rows, t.elemCount, each, closing);
    ConvertStakes(t, t.elemLc, t.elemCount);
}

void CompileVertical(const Rows& rows, Tables& t)
{
    t.sqxCount = rows.last;
    allocate(t.sqxCount, t.sqxLc, t.sqxGc, t.sqxR);
    const Assignment ends[] = {{&t.sqxLc, 0}, {&t.sqxGc, 1}};
    const Assignment between[] = {{&t.sqxLc, 0}, {&t.sqxGc, 1}, {&t.sqxR, 2}};
    for (int i = 0; i <= t.sqxCount; ++i) {
        if (i == 0 || i == t.sqxCount)
            fill(i, rows.fields(i), ends);
        else
            fill(i, rows.fields(i), between);
    }
    ConvertStakes(t, t.sqxLc, t.sqxCount);
}

void CompileSuperelevation(const Rows& rows, Tables& t)
{
    attempt([&] { t.cgCount = toInt16(rows.last + 1); });
    allocate(t.cgCount, t.cgLc, t.cgA, t.cgB, t.cgC);
    const Assignment each[] = {{&t.cgLc, 0}, {&t.cgA, 1, As::Percent}, {&t.cgB, 2, As::Percent}};
    const Assignment closing[] = {{&t.cgLc, 3, As::ClosingStake}, {&t.cgA, 4, As::Percent}, {&t.cgB, 5, As::Percent}};
    fillWithClosingRow(rows, t.cgCount, each, closing);
    SideMark side;
    for (int i = 0; i < t.cgCount; ++i) side.mark(t, i, rows.fields(i));
    side.mark(t, t.cgCount, rows.fields(rows.last));
    ConvertStakes(t, t.cgLc, t.cgCount);
}

void CompileWidths(const Rows& rows, Tables& t)
{
    attempt([&] { t.cgkdCount = toInt16(rows.last + 1); });
    allocate(t.cgkdCount, t.cgkdG, t.cgkdC, t.cgkdA, t.cgkdB, t.cgkdD, t.cgkdE, t.cgkdF);
    const Assignment each[] = {{&t.cgkdG, 0},
                               {&t.cgkdC, 2},
                               {&t.cgkdA, 3},
                               {&t.cgkdB, 4},
                               {&t.cgkdD, 5},
                               {&t.cgkdE, 6},
                               {&t.cgkdF, 11, As::Percent}};
    const Assignment closing[] = {
        {&t.cgkdG, 1, As::ClosingStake}, {&t.cgkdC, 2}, {&t.cgkdA, 7}, {&t.cgkdB, 8}, {&t.cgkdD, 9}, {&t.cgkdE, 10},
        {&t.cgkdF, 11, As::Percent}};
    fillWithClosingRow(rows, t.cgkdCount, each, closing);
    ConvertStakes(t, t.cgkdG, t.cgkdCount);
}
