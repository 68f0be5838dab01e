// Every file whose rows become table rows with no geometry: which field goes where.

#include "project/CalcTables.h"
#include "project/Compile.h"

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
    void mark(int row, const Fields& fields)
    {
        // Percent and fraction are mixed on purpose.
        attempt([&] { m_left = checked((number(fields, 4) + at(gCgA, row)) / 2); });
        attempt([&] { m_right = checked((number(fields, 5) + at(gCgB, row)) / 2); });
        attempt([&] { at(gCgC, row) = m_right == m_left ? 0 : m_right < m_left ? 2 : 1; });
    }

private:
    double m_left = 0, m_right = 0;
};

}  // namespace

void CompileTraversePoints(const Rows& rows)
{
    gDxdCount = rows.last;
    allocate(gDxdCount, gDxdName, gDxdX, gDxdY);
    for (int i = 0; i <= gDxdCount; ++i) {
        const auto fields = rows.fields(i);
        attempt([&] { at(gDxdName, i) = Utf8FromCp936(at(fields, 0)); });
        take(gDxdX, i, fields, 1);
        take(gDxdY, i, fields, 2);
    }
}

void CompileBreaks(const Rows& rows)
{
    gDlCount = rows.last;
    allocate(gDlCount, gDlBack, gDlAhead, gDlCum);
    for (int i = 0; i <= gDlCount; ++i) {
        const auto fields = rows.fields(i);
        take(gDlBack, i, fields, 0);
        take(gDlAhead, i, fields, 1);
        attempt([&] { at(gDlCum, i) = checked(std::abs(at(gDlAhead, i)) - std::abs(at(gDlBack, i))); });
        gHasDl = -1;
    }
}

void ReduceBreaks()
{
    for (int i = 1; i <= gDlCount; ++i) {
        for (int j = i; j >= 1; --j) {
            attempt([&] { at(gDlBack, i) = checked(at(gDlBack, i) - at(gDlCum, j - 1)); });
            attempt([&] { at(gDlAhead, i) = checked(at(gDlAhead, i) - at(gDlCum, j - 1)); });
        }
    }
}

void CompileBlocks(const Rows& rows)
{
    attempt([&] { gElemCount = toInt16(rows.last + 1); });
    allocate(gElemCount, gElemLc, gElemX, gElemY, gElemFwj, gElemR1, gElemR2);
    const Assignment each[] = {{&gElemLc, 0}, {&gElemX, 2}, {&gElemY, 3}, {&gElemFwj, 4}, {&gElemR1, 5}, {&gElemR2, 6}};
    const Assignment closing[] = {{&gElemLc, 1, As::ClosingStake}};
    fillWithClosingRow(rows, gElemCount, each, closing);
    ConvertStakes(gElemLc, gElemCount);
}

void CompileVertical(const Rows& rows)
{
    gSqxCount = rows.last;
    allocate(gSqxCount, gSqxLc, gSqxGc, gSqxR);
    const Assignment ends[] = {{&gSqxLc, 0}, {&gSqxGc, 1}};
    const Assignment between[] = {{&gSqxLc, 0}, {&gSqxGc, 1}, {&gSqxR, 2}};
    for (int i = 0; i <= gSqxCount; ++i) {
        if (i == 0 || i == gSqxCount)
            fill(i, rows.fields(i), ends);
        else
            fill(i, rows.fields(i), between);
    }
    ConvertStakes(gSqxLc, gSqxCount);
}

void CompileSuperelevation(const Rows& rows)
{
    attempt([&] { gCgCount = toInt16(rows.last + 1); });
    allocate(gCgCount, gCgLc, gCgA, gCgB, gCgC);
    const Assignment each[] = {{&gCgLc, 0}, {&gCgA, 1, As::Percent}, {&gCgB, 2, As::Percent}};
    const Assignment closing[] = {{&gCgLc, 3, As::ClosingStake}, {&gCgA, 4, As::Percent}, {&gCgB, 5, As::Percent}};
    fillWithClosingRow(rows, gCgCount, each, closing);
    SideMark side;
    for (int i = 0; i < gCgCount; ++i) side.mark(i, rows.fields(i));
    side.mark(gCgCount, rows.fields(rows.last));
    ConvertStakes(gCgLc, gCgCount);
}

void CompileWidths(const Rows& rows)
{
    attempt([&] { gCgkdCount = toInt16(rows.last + 1); });
    allocate(gCgkdCount, gCgkdG, gCgkdC, gCgkdA, gCgkdB, gCgkdD, gCgkdE, gCgkdF);
    const Assignment each[] = {
        {&gCgkdG, 0}, {&gCgkdC, 2}, {&gCgkdA, 3}, {&gCgkdB, 4}, {&gCgkdD, 5}, {&gCgkdE, 6}, {&gCgkdF, 11, As::Percent}};
    const Assignment closing[] = {
        {&gCgkdG, 1, As::ClosingStake}, {&gCgkdC, 2}, {&gCgkdA, 7}, {&gCgkdB, 8}, {&gCgkdD, 9}, {&gCgkdE, 10},
        {&gCgkdF, 11, As::Percent}};
    fillWithClosingRow(rows, gCgkdCount, each, closing);
    ConvertStakes(gCgkdG, gCgkdCount);
}
