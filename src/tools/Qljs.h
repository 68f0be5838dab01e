#pragma once
// Radius of curvature on a transition curve. Every stored number is a 32-bit float, every expression is computed in
// double and narrowed when it is stored: the results carry about seven significant digits.

#include "dialogs/Outcome.h"

#include <string>

/// The boxes as typed, m.
struct QljsInput {
    std::string a;   ///< parameter A of the transition curve
    std::string r;   ///< radius at its sharper end
    std::string l0;  ///< length of the stretch at hand
};
struct QljsResult {
    std::string l;  ///< length of the whole transition curve, m
    std::string r;  ///< radius at the other end of the stretch, m, or "无限大,完整"
};
/// Nothing is trapped: TypeMismatch (also for an empty l0), DivisionByZero for R = 0, Overflow beyond a float.
Outcome CalcQljs(const QljsInput& in, QljsResult& out);

/// Plain number text of a single: at most seven significant digits, no exponent.
std::string SingleText(float value);
