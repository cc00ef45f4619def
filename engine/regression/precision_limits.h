// The limits at which the regressions change their precision or refuse, and what they rest on.
//
// A relative error of e in every cross-product becomes one of about e / r in the coefficients, where r is the
// reciprocal condition number of the scaled cross-products (Golub & Van Loan, Matrix Computations, section 2.6). e is
// about u in doubles and u^2 in twice the precision.

#pragma once

#include "engine/arithmetic/double_double.h"

namespace engine {

inline constexpr double kUnitRoundoff = 0x1p-53;  // u

// Below this r doubles leave errors of more than 1e-13, which long sums make 1e-12 and coefficients near zero 1e-11.
inline constexpr double kLeastConditionInDoubles = kUnitRoundoff / 1e-13;

// A residual errs by about u times the terms that it is the difference of: below this ratio of the two, doubles leave
// errors of more than 1e-12 of the residuals' deviation.
inline constexpr double kLeastResidualInDoubles = kUnitRoundoff / 1e-12;

// The products of residuals that are left of those of the series err by some u times the latter: down to this share of
// them about 12 digits are left.
inline constexpr double kLeastShareOfProducts = 1e-3;

// Terms in the first block row of cross-products: up to here twice the precision costs a few milliseconds at most, and
// every digit is had for that.
inline constexpr double kSmallWork = 3e5;

// Regressors are collinear when r is below this times their number. The condition of the data is the root of r: there
// the rounding of the data themselves, u, leaves 8 digits of the coefficients. Sums in twice the precision still leave
// all digits of a double there, so that no digit is lost between the two.
inline constexpr double kLeastCondition = 2.2e-16;
static_assert(DoubleDouble::kProductError / kLeastCondition < 1e-14);

}  // namespace engine
