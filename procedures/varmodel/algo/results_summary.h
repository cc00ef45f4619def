// A plain-text summary of a finished estimation.

#pragma once

#include <ostream>

#include "procedures/varmodel/algo/var_algo.h"

namespace varmodel {

// Writes lag selection, descriptive statistics, fit and error measures, residual autocorrelations and correlations, and
// one coefficient table per equation. Reads the engine and its results list only; leaves the stream's format state
// alone. Field widths count bytes, so that a heading with a letter outside ASCII stands one column short.
void writeResultsSummary(const VARAlgo& algo, std::ostream& stream);

}  // namespace varmodel
