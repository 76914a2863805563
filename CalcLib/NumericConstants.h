#pragma once

// The constants of the calculators, written once, each to the last digit of a double.
namespace NumericConstants {
constexpr double kPi = 3.141592653589793;
constexpr double kTwoPi = 6.283185307179586;
constexpr double kHalfPi = 1.5707963267948966;
// A third of a turn: the angle between the phases of a three-phase system.
constexpr double kThirdOfTurn = 2.0943951023931957;
constexpr double kSqrt2 = 1.4142135623730951;
constexpr double kDegreesPerRadian = 57.29577951308232;
constexpr double kRadiansPerDegree = 0.017453292519943295;
} // namespace NumericConstants
