#pragma once

// Angles as the library writes them. Public operations take decimal degrees;
// the formulas work in radians. pi is the double nearest to it, and its
// fractions below are exact (halving and doubling only change the exponent),
// so kGxHalfPi is the same double as the literal 1.5707963267948966 and
// kGxQuarterPi as 0.7853981633974483.

constexpr double kGxPi = 3.141592653589793;
constexpr double kGxTwoPi = 2 * kGxPi;
constexpr double kGxHalfPi = kGxPi / 2;
constexpr double kGxQuarterPi = kGxPi / 4;

// Degrees to radians and back by the rounded factors. A few grids are defined
// with the other rounding, (degrees times pi) / 180 and (radians times 180) /
// pi, multiplication first; those write it out where they use it.
constexpr double kGxDegToRad = kGxPi / 180.0;
constexpr double kGxRadToDeg = 180.0 / kGxPi;

// One arc minute in degrees: the step north of the numerical grid
// convergence.
constexpr double kGxArcMinute = 0.016666666666666666;
