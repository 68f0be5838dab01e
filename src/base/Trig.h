#pragma once
// The one sine of the program. The C library's differs from system to system, and on one system from processor to
// processor, in the last bits; a stake walked to the end shows them. These give the same bits on every machine, and
// nothing in src may call the C library's instead: a test refuses it.
// Angles are radians, errors below one unit in the last place.
// Source: N. Shibata, F. Petrogalli, "SLEEF: A Portable Vectorized Library of C Standard Mathematical Functions",
// IEEE Transactions on Parallel and Distributed Systems 31 (2020); its deterministic functions without fused
// multiply-add.

namespace trig {

double sin(double rad);
double cos(double rad);
/// Of two angles in one go: the bits of one by one, in half the time or less.
struct Two {
    double first, second;
};
Two sin2(double first, double second);
Two cos2(double first, double second);
double tan(double rad);
double atan(double ratio);                ///< -pi/2 to pi/2
double atan2(double y, double x);         ///< -pi to pi
double power(double base, int exponent);  ///< base to a whole exponent from 0 up, rounded once but for one case in 2^40

}  // namespace trig
