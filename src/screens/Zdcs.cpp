#include "screens/Zdcs.h"

#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "tables/CalcTables.h"

namespace {

struct MainPointTables {
    Tables::Column &stake, &x, &y, &azimuth;
};
const MainPointTables kMainPoints[] = {
    {gZdZhLc, gZdZhX, gZdZhY, gZdZhFwj},
    {gZdHyLc, gZdHyX, gZdHyY, gZdHyFwj},
    {gZdYhLc, gZdYhX, gZdYhY, gZdYhFwj},
    {gZdHzLc, gZdHzX, gZdHzY, gZdHzFwj},
};

void makeNominal(double& stake)
{
    const NominalStake nominal = ToNominal(stake);
    stake = RoundHalfUp3(nominal.value);
    if (nominal.secondPass) stake = -stake;
}

}  // namespace

void LoadZdcs(RowSink& rows)
{
    for (std::ptrdiff_t i = 1; i <= gZdCount; ++i)
        for (const auto& point : kMainPoints) makeNominal(at(point.stake, i));

    for (std::ptrdiff_t i = 1; i <= gZdCount; ++i) {
        std::vector<Cell> cells{at(gZdJd, i)};
        for (const auto* length : {&gZdT1, &gZdT2, &gZdLs1, &gZdLs2}) cells.push_back(Fixed3Cell(at(*length, i)));
        for (const auto& point : kMainPoints) {
            for (const auto* number : {&point.stake, &point.x, &point.y}) cells.push_back(Fixed3Cell(at(*number, i)));
            cells.push_back(DmsCell(at(point.azimuth, i)));  // reduced in place
        }
        rows.row({std::move(cells), {}});
    }
}
