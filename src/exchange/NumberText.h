#pragma once
// Numbers as text between programs.

#include <string>

/// The shortest text without exponent that reads back to the same bits; "0" for both zeros.
std::string ShortestText(double value);
/// A length to people: to a tenth of a millimetre.
std::string MetresText(double metres);
/// To `decimals` places; no minus before a zero.
std::string FixedText(double value, int decimals);
