// How good forecasts were: measures of their errors, and tests of one forecast against another.

#pragma once

#include <cstddef>
#include <optional>
#include <span>

namespace engine {

struct ForecastAccuracy {
  std::size_t count = 0;  // r errors: actual minus forecast
  double rootMeanSquare = 0.0;
  double meanAbsolute = 0.0;
  double bias = 0.0;  // their mean
};
ForecastAccuracy forecastAccuracy(std::span<const double> errors);

// The mean absolute change of a series over `cycle` rows within its first `rows` values: what MASE divides the mean
// absolute error by (Hyndman & Koehler 2006). NaN when there is no such change.
double naiveScale(std::span<const double> series, std::size_t rows, std::size_t cycle);

// The mean continuous ranked probability score of normal forecasts with these errors and standard errors (Gneiting &
// Raftery 2007), in the units of the series; smaller is better.
double normalScore(std::span<const double> errors, std::span<const double> standardErrors);

// How many errors are within `width` standard errors.
std::size_t coveredCount(std::span<const double> errors, std::span<const double> standardErrors, double width);

// A comparison of two forecasts of the same values. Positive statistics speak for the second.
struct ForecastComparison {
  double statistic = 0.0;
  double degreesOfFreedom = 0.0;  // of Student's t; 0 for the normal distribution
  double pValue = 1.0;
};

// Diebold & Mariano (1995) on squared errors, two-sided, with the small-sample factor of Harvey, Leybourne & Newbold
// (1997) and Student's t with r - 1. `overlap` is the number of neighbouring errors that one shock reaches besides: h -
// 1 for forecasts h ahead from consecutive origins. Nothing when the variance is not positive or r <= overlap + 1.
std::optional<ForecastComparison> dieboldMariano(std::span<const double> first, std::span<const double> second,
                                                 std::size_t overlap);

// Clark & West (2007), one-sided, normal: the second forecast's model nests the first's, whose smaller noise the
// difference of the forecasts, first minus second, corrects for.
std::optional<ForecastComparison> clarkWest(std::span<const double> first, std::span<const double> second,
                                            std::size_t overlap);

}  // namespace engine
