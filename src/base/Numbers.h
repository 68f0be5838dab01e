#pragma once
// Numbers and their texts: the small functions on which every calculation and every screen rests.
// Texts are UTF-8. Angles say their unit in the name: Dms is packed dd.mmss (123.4530 is 123 degrees 45' 30"),
// Deg decimal degrees. Azimuths run clockwise from +X, and X is north.

#include <string>
#include <string_view>

/// Pi of the whole system; a more exact one would shift results.
inline constexpr double kPi = 3.1415926;

inline double radians(double deg) { return deg * kPi / 180; }

/// The text without blanks (U+0020) at both ends.
std::string_view Trim(std::string_view text);

/// Shortest decimal text of at most 15 significant digits: no exponent, no trailing zeros, no zero before the point
/// below 1 (.5, -.25), "0" for both zeros.
std::string NumText(double value);

/// The double of a number text: optional sign, digits with or without a point, optional exponent; blanks around are
/// trimmed. Throws TypeMismatch for anything else, the empty text included, and Overflow where it is too large.
double ParseNumber(std::string_view text);

/// Rounded to `decimals` places; the tie is decided on the scaled value and goes to the even neighbour.
/// Throws Overflow where the scaled value is too large to hold, and so do FormatFixed3 and Fixed3.
double Round(double value, int decimals);

/// NumText with a zero before the point.
std::string LeadingZeroText(double value);
/// Exactly three decimals; the sign is taken before rounding, so -0.0004 gives -0.000.
std::string FormatFixed3(double value);
/// The value after its text of three decimals: ParseNumber(FormatFixed3(value)).
double Fixed3(double value);
/// K12+345.678; a minus stands before the K; further decimals show as they come. @param stake m
/// @throws Overflow
std::string FormatStake(double stake);
/// 123度45分06秒, seconds truncated. @param[in,out] dms packed dd.mmss, left reduced by a turn and 1e-10 higher
std::string FormatDms(double& dms);
/// Decimal degrees that the text of FormatDms shows; a minus before the text holds for all of it. @param dms packed
double DegreesOfDmsText(double dms);
/// FormatDms of a value that nobody needs afterwards.
inline std::string FormatDmsOf(double dms) { return FormatDms(dms); }
/// 123°45′06.78″ without sign; a part that is 0 is not padded. @param deg decimal degrees
std::string FormatDmsSeconds(double deg);
/// Decimal degrees that the text of FormatDmsSeconds shows. @param deg decimal degrees
double DegreesOfSecondsText(double deg);

/// Azimuth of a coordinate difference, packed dd.mmss, 0 to 360. Kept on purpose: dy = 0 gives 0 also due south.
double Azimuth(double dx, double dy);
/// Root of dx*dx + dy*dy; throws Overflow.
double Distance(double dx, double dy);
/// Decimal degrees to packed dd.mmss, 6 decimals (hundredths of a second), one wrap into 0..360, no carry of seconds.
double DegToDms(double deg);
/// Decimal degrees to packed dd.mmss, 4 decimals (whole seconds), no wrap.
double DegToDms4(double deg);
/// Packed dd.mmss to decimal degrees; decimals beyond a hundredth of a second are lost; keeps the sign.
double DmsToDeg(double dms);

/// Key filters of numeric boxes; a key code is a character, 8 is backspace.
bool IsIntegerKey(int keyAscii);
bool IsSignedDecimalKey(int keyAscii);
bool IsUnsignedDecimalKey(int keyAscii);
