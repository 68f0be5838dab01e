// Every engine call on the tables of a project that nobody would write. Input: see README.md.

#include "FuzzFolder.h"
#include "base/Numbers.h"
#include "base/RunTimeError.h"
#include "engine/Chainage.h"
#include "engine/Element.h"
#include "engine/Elevation.h"
#include "engine/Route.h"
#include "engine/XYToStake.h"
#include "support/PlainRoute.h"
#include "tables/CalcTables.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <tuple>
#include <vector>

namespace {

auto results()
{
    const auto bits = [](double v) { return std::bit_cast<std::uint64_t>(v); };
    return std::tuple(bits(gOutX), bits(gOutY), bits(gOutFwj), bits(gOutDist), bits(gInLc), gOutLcText, gOutOffsetText);
}

void require(bool condition)
{
    if (!condition) std::abort();
}

/// Runs both ways from the same state; results and failures have to be the same.
template <class Engine, class Plain>
void sameBits(Engine engine, Plain plain)
{
    const Shared before = shared;
    const bool went = attempt(engine);
    const auto got = results();
    shared = before;
    require(attempt(plain) == went);
    require(!went || results() == got);
}

void toStake(double x, double y)
{
    gInX = x;
    gInY = y;
    // The plain way would take its time over a walk that does not settle.
    const Shared before = shared;
    const bool settled = attempt([] { XYToStakeFromStart(); });
    shared = before;
    if (settled)
        sameBits([] { XYToStakeFromStart(); },
                 [] { plain::XYToStake(gElemLc.at(0), gElemFwj.at(0), gElemX.at(0), gElemY.at(0)); });
}

std::vector<double> stakesOfTables()
{
    std::vector<double> stakes{0, 1e308, -1e308};
    for (const auto* table : {&gElemLc, &gSqxLc, &gCgLc, &gCgkdG, &gDlBack, &gDlAhead})
        for (std::size_t i = 0; i < std::min<std::size_t>(table->size(), 4); ++i) {
            stakes.push_back((*table)[i]);
            stakes.push_back(-(*table)[i]);
            if (i > 0) stakes.push_back(((*table)[i - 1] + (*table)[i]) / 2);
        }
    return stakes;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const FuzzFolder folder;
    shared = {};
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    for (const auto file : {files::settings, files::horizontal, files::traverse, files::breaks, files::vertical,
                            files::superelevation, files::widths}) {
        const auto end = std::min(rest.find('\1'), rest.size());
        folder.write(file, rest.substr(0, end));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    FuzzFolder::load();

    std::size_t points = 0;
    for (const double stake : stakesOfTables()) {
        for (const auto& variant : kResolveVariants) ResolveStake(stake, variant.rule);
        double row = stake;
        ConvertRowStake(shared.tables, row);
        ToNominal(stake);
        for (const double offset : {0.0, -7.5, 30.0, 1e300}) attempt([&] { ElevationAt(stake, offset); });
        const double offset = points % 2 ? 3 : 0;
        if (StakeOnElement(shared.tables, stake))
            sameBits([&] { StakeToXY(stake, 90, offset); }, [&] { plain::StakeToXY(stake, 90, offset); });
        if (++points % 8 == 1 && points < 32) toStake(gOutX, gOutY);
    }
    toStake(0, 0);
    for (std::size_t i = 1; i < std::min<std::size_t>(gElemLc.size(), 6); ++i) {
        attempt([&] {
            ElementEnd(gElemLc[i], gElemR1[i], gElemR2[i], gElemFwj[i], gElemX[i], gElemY[i], gElemLc[i - 1]);
            require(std::isfinite(gOutX) && std::isfinite(gOutY));
        });
        attempt([&] {
            const auto end = ForwardElement(gElemLc[i], gElemR1[i], gElemR2[i], gElemFwj[i], gElemX[i], gElemY[i]);
            require(std::isfinite(end.x) && std::isfinite(end.y));
        });
    }
    return 0;
}
