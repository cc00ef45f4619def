// How many digits a number is shown with, in tables and in sentences.

#pragma once

#include <span>
#include <string>

namespace vardynamics {

// Decimals with which a number of this size shows `digits` significant ones; 0 to 15. 0 for a size that is 0 or not
// finite.
int decimalsFor(double size, int digits = 4);

// Decimals for a column whose numbers are known to about these errors: the smallest positive one shows `digits`.
int decimalsForErrors(std::span<const double> errors, int digits = 4);

// Fixed notation; what would show as zero though it is none stands in short scientific notation.
std::string fixedText(double value, int decimals);

// A modulus, with the decimals that tell it from one: 0.614, 0.9992, 1.
std::string modulusText(double modulus);

// "= 0.14", "= 3.6e-08", "> 0.99" and "< 1e-300": what stands behind the p of a p-value. Two digits, and as many more
// as it takes to stand on the same side of the level: "= 0.0499" beside a level of 0.05.
std::string probabilityText(double p, double level);

}  // namespace vardynamics
