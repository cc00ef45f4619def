// The rows that a model is fitted to, and what is known of the periods after them.

#pragma once

#include <cstddef>
#include <variant>
#include <vector>

namespace vardynamics {

using SeriesList = std::vector<std::vector<double>>;

// Every case of the active dataset, complete or not; a value that is missing is NaN.
struct CaseRows {
  SeriesList endogenous = {};  // K columns, one value a case
  SeriesList exogenous = {};   // M columns, as long

  std::size_t count() const { return endogenous.empty() ? 0 : endogenous.front().size(); }
};

// A run of cases, by their offsets.
struct CaseRange {
  std::size_t first = 0;
  std::size_t last = 0;  // included
};

// T complete rows without a gap, and F rows after them that hold something a forecast uses.
struct Sample {
  CaseRange cases = {};
  std::size_t leftOutBefore = 0;     // incomplete rows before the first
  std::size_t leftOutAfter = 0;      // rows after the last one that nothing uses
  SeriesList endogenous = {};        // K of T
  SeriesList exogenous = {};         // M of T
  SeriesList futureEndogenous = {};  // K of F; NaN: free
  SeriesList futureExogenous = {};   // M of F; NaN: not known
  bool ignoresEndogenous = false;    // a row after the last holds endogenous values that are not held

  std::size_t rows() const { return cases.last - cases.first + 1; }
  std::size_t futureRows() const { return futureEndogenous.empty() ? 0 : futureEndogenous.front().size(); }
};

// Which rows after the last complete one count as future.
struct FutureUse {
  bool forecasts = false;        // else none
  bool holdsEndogenous = false;  // endogenous values there are conditions
};

struct NoCompleteRow {};

// An infinite value: the offset of its case, the number of its series (endogenous first).
struct InfiniteValue {
  std::size_t caseOffset = 0;
  std::size_t series = 0;
};

// Incomplete rows between complete ones.
struct SampleGap {
  std::vector<CaseRange> gaps = {};  // ascending, at least one
  std::size_t series = 0;            // the first that is missing in the first gap (endogenous first)
  CaseRange longestRun = {};         // of complete rows; the later of two that are equally long
};

using SampleFault = std::variant<NoCompleteRow, InfiniteValue, SampleGap>;

// Cuts the sample from the first to the last complete row.
std::variant<Sample, SampleFault> cutSample(const CaseRows& rows, FutureUse future);

}  // namespace vardynamics
