// Series as functions of themselves: growth rates, differences, logarithms.

#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "workbench/dataset/dataset.h"

namespace workbench {

// With x(t) the value of a case, s the number of cases in a season, and c the factor:
//   log    c ln x(t)
//   diff   c (x(t) - x(t-1))
//   dlog   c (ln x(t) - ln x(t-1))
//   sdiff  c (x(t) - x(t-s))
//   pct    c 100 (x(t) / x(t-1) - 1)
struct Transformation {
  enum class Kind { log, diff, dlog, sdiff, pct };

  std::string variable;
  Kind kind = Kind::log;
  double factor = 1.0;

  std::string text() const;  // "dlog*100"
};

// What a transformed variable held before.
struct OriginalSeries {
  int column = 0;
  Transformation::Kind kind = Transformation::Kind::log;
  double factor = 1.0;
  std::size_t lag = 0;              // how many cases before the transformation reaches back
  std::vector<double> values = {};  // of all cases; user-missing ones are missing
};

// Reads "dlog*100" (or "dlog"). Throws UsageError, naming the list, for anything else.
Transformation transformationOf(const std::string& variable, const std::string& text);

// Puts the transformed values in the place of the variable's. Where a value that is needed is missing, or lies before
// the first case, the result is missing; cases keep their places and dates. User-missing values count as missing.
//
// `season` is the number of cases in a season, 0 when there is none. Throws UsageError for an unknown variable or one
// that is not numeric, for a variable transformed twice and for sdiff without a season; DataError, naming the row, for
// the logarithm of a value that is not positive and for growth from zero. The dataset is then unchanged. Returns what
// the variables held.
std::vector<OriginalSeries> transformVariables(Dataset& dataset, std::span<const Transformation> transformations,
                                               int season);

}  // namespace workbench
