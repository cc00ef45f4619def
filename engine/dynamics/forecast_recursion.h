// Recursive multi-step point forecasts of a vector autoregression.

#pragma once

#include <cstddef>
#include <optional>
#include <ostream>
#include <vector>

namespace engine {

// K rows of `horizon` values. `coefficients`: one vector an equation, constant first, then lag 1 of series 1..K, ..,
// lag `lag` of series 1..K; what follows (exogenous terms) is not used. `series`: K observed series of at least `lag`
// values, of which the last ones are the starting point; each step's forecasts are inputs of the next. A lag term
// without a coefficient adds nothing and writes a line to `trace`. Nothing when there are fewer than K coefficient
// vectors.
std::optional<std::vector<std::vector<double>>> recursiveForecasts(const std::vector<std::vector<double>>& coefficients,
                                                                   const std::vector<std::vector<double>>& series,
                                                                   std::size_t lag, std::size_t horizon,
                                                                   std::ostream& trace);

}  // namespace engine
