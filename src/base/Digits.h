#pragma once
// A double in decimal digits.

/// d.dddd times ten to the exponent.
struct Digits {
    char digits[15];
    int exponent = 0;
};

/// The fifteen significant digits nearest to a magnitude above 0, a tie to the even neighbour, as std::to_chars gives
/// them: grids of a million numbers want them sooner.
Digits FifteenDigits(double magnitude);
