#pragma once
// From coordinates to stakes on the compiled alignment: the functions without given names move nothing.

#include "base/RunTimeError.h"
#include "engine/Chainage.h"

#include <cstddef>
#include <optional>
#include <string>

struct Tables;

/// Where the walk of the inverse begins if no element is picked.
struct WalkStart {
    double k = 0;         ///< continuous stake, m
    double az = 0;        ///< azimuth, packed dd.mmss, used as if decimal
    double x = 0, y = 0;  ///< m
};
/// Row 0 of the alignment, as every screen starts. @throws Subscript where there is no alignment
WalkStart startOfRoute(const Tables& t);

/// Stake and offset of a point.
struct Foot {
    NominalStake nominal;               ///< stake to 3 decimals, chainage breaks applied
    double offset = 0;                  ///< m, to 3 decimals, negative left
    std::string lcText;                 ///< K12+345.678, UTF-8
    std::string offsetText;             ///< 左1.234米, 右1.234米 or 中, UTF-8
    double stake = 0;                   ///< continuous stake, m, to 3 decimals
    std::size_t element = 0;            ///< the element that the walk started on, counted from 1; 0: none was picked
    std::optional<RunTimeError> error;  ///< Overflow where the walk does not settle; then no stake, no texts
    bool leavesMiddle = false;          ///< XYToStake would leave the middle of a candidate in gOutX, gOutY, gOutDist
    bool leavesCorrection = false;      ///< and the stake of a correction round in gInLc
};

/// Stake and offset of a point: an element is picked, then the stake walks along the tangent from row 0 or from there
/// until the point lies on the normal. What XYToStake would leave behind besides is not told.
/// @param x,y         m
/// @param lastX,lastY the point that the last call left: an element whose middle no element holds is measured from it
/// @throws Subscript where there is no alignment
Foot footOf(const Tables& t, double x, double y, double lastX = 0, double lastY = 0);

/// The foot of (gInX, gInY), left as texts in gOutLcText and gOutOffsetText.
/// @param k0,az0,x0,y0  see WalkStart
/// @param az1           never read
/// @throws Overflow where the walk does not settle, Subscript where there is no alignment
/// @note gInLc holds the stake of the last correction round; gOutX, gOutY, gOutFwj, gOutDist are overwritten.
void XYToStake(double k0, double az0, double x0, double y0, double az1);
/// XYToStake as every screen calls it, from row 0 of the alignment; the foot as a value, too, its error in it.
/// @throws Subscript where there is no alignment
Foot XYToStakeFromStart();
