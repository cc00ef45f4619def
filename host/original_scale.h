// Variables that hold a transformed series: what it was made from, so that forecasts can be told in its unit too.
// Conventions: edge.h.
//
// A host need not know this. On ELF the function is weak: in a host that lacks it its address is null, and forecasts
// are told in the unit of the variable alone. On PE it is declared for procedures that are linked against a host that
// has it
// (-DHOST_HAS_ORIGINAL_SCALE).

#pragma once

#include "host/edge.h"

#if defined(_WIN32) && (defined(VARMODEL_BUILDING_HOST) || defined(HOST_HAS_ORIGINAL_SCALE))
#define HOST_ORIGINAL_SCALE
#elif !defined(_WIN32)
#define HOST_ORIGINAL_SCALE __attribute__((weak))
#endif

// With x the original series, c the factor and s the lag, the variable holds
enum class HostChange {
  logarithm,      // c ln x(t)
  difference,     // c (x(t) - x(t-s))
  logDifference,  // c (ln x(t) - ln x(t-s))
  percentage      // 100 c (x(t) / x(t-s) - 1)
};

struct HostOriginalSeries {
  HostChange change;
  double factor;
  int lag;               // 0 for the logarithm
  const double* values;  // of every case of the active dataset, missing ones as in its cases; valid during the call
  long cases;
};

#if defined(HOST_ORIGINAL_SCALE)
// The variable is named by its place in the active dataset's dictionary. False when it holds what the data held.
extern "C" HOST_API HOST_ORIGINAL_SCALE bool HostOriginalSeriesOf(int variable, HostOriginalSeries* series);
#endif
