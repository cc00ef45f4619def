// Models that the tests of forecasts, tests and responses are about, and the reference numbers for them.

#pragma once

#include <gtest/gtest.h>
#include <rapidjson/document.h>

#include <string>

#include "engine/dynamics/fit_parts.h"
#include "tests/engine/numeric_support.h"

namespace engine {

// Independent programs agree with one another to about this much where the data is well scaled.
inline constexpr double kReference = 1e-9;

// A model with the series it was fitted to.
struct Example {
  SeriesList series;
  SeriesList known;  // may go on after the series
  FittedVar fit;

  VarSample sample() const { return {series, known}; }
};

// By the engine's own estimation.
Example fitted(SeriesList series, std::size_t lag, bool constant = true, SeriesList known = {});

// realgdp, realcons, realinv of examples/us_macro_quarterly.csv: 203 levels, and 100 times the change of their
// logarithms.
SeriesList levels();
SeriesList growth();

// 0, 1, 2, .., and s - 1 centred dummies of a cycle of s that starts with season 0; the series `lag` rows later, its
// first value before.
std::vector<double> trendColumn(std::size_t length);
SeriesList seasonColumns(std::size_t seasons, std::size_t length);
std::vector<double> lagged(std::vector<double> series, std::size_t lag);

SeriesList scaled(SeriesList series, double factor);

rapidjson::Document reference(const std::string& name);

// |seen - wanted| <= tolerance * |wanted|, with the numbers in full when not.
::testing::AssertionResult closeTo(double seen, double wanted, double tolerance);

// The same for every element of a (nested) list of numbers, row by row, relative to the largest of the list.
void expectAllClose(const Matrix& seen, const rapidjson::Value& wanted, double tolerance);

}  // namespace engine
