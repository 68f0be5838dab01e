#pragma once
// Between stakes and coordinates on the compiled alignment.

/// Point and tangent at a stake, left in gOutX, gOutY, gOutFwj, gOutDist.
/// Composite Simpson rule, 192 intervals, on the element that holds the stake; where several do, the last one wins.
/// @param stake   continuous stake, m (a typed stake goes through ResolveStake first)
/// @param skew    from the forward tangent to the offset ray, decimal degrees clockwise: 90 right, 270 left
/// @param offset  along that ray, m
/// @post  gOutX north, gOutY east, m, to 3 decimals; gOutFwj decimal degrees, not reduced to 0..360;
///        gOutDist from that point to (gInX, gInY), m
/// @note  No element holds the stake (before the first, at or past the closing one): X, Y and azimuth keep the last
///        call's values, only gOutDist is renewed. Kept on purpose.
void StakeToXY(double stake, double skew, double offset);

/// True where some element of the alignment holds the continuous stake, so that StakeToXY gives it a point of its own.
bool StakeOnElement(double stake);

/// Stake and offset of the point (gInX, gInY), left as texts in gOutLcText and gOutOffsetText (chainage breaks
/// applied).
/// @param k0,az0,x0,y0  start of the walk where no element is picked: stake m, azimuth (packed, used as if decimal),
/// point
/// @param az1           never read
/// @throws Overflow where the walk does not settle, Subscript where there is no alignment
/// @note gInLc holds the stake of the last correction round; gOutX, gOutY, gOutFwj, gOutDist are overwritten.
void XYToStake(double k0, double az0, double x0, double y0, double az1);
/// XYToStake as every screen calls it: from row 0 of the alignment.
void XYToStakeFromStart();
