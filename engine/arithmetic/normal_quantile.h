// The standard normal quantile from additions, multiplications, divisions and square roots alone, so that it has the
// same bits on every machine.

#pragma once

namespace engine {

// The z with P(N(0, 1) < z) = p, 0 < p < 1, to about 1e-15 relative (Wichura 1988, algorithm AS 241).
double normalQuantile(double p);

// The natural logarithm of a positive normal number, to about 2e-16 relative: an exact power of two, and the series of
// the inverse hyperbolic tangent for the rest.
double portableLog(double x);

}  // namespace engine
