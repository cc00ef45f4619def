// Is a series stationary by both unit-root tests, and would its differences better be taken of its logarithm?

#pragma once

#include <optional>
#include <span>

#include "engine/diagnostics/unit_root_tests.h"

namespace engine {

struct UnitRootPair {
  AugmentedDickeyFuller dickeyFuller;
  Kpss kpss;
};

enum class Stationarity {
  aroundLevel,   // ADF rejects a unit root, KPSS does not reject stationarity, both around a constant
  aroundTrend,   // not so, but around a trend
  unitRoot,      // around a constant ADF does not reject and KPSS does
  disagreement,  // around a constant both reject
  undecided      // around a constant neither rejects
};

struct StationarityFinding {
  Stationarity verdict = Stationarity::undecided;
  UnitRootPair aroundLevel;
  UnitRootPair aroundTrend;
};

// At a significance level between the ends of the table of KPSS (.01 to .1). Nothing where one of the tests gives
// nothing.
std::optional<StationarityFinding> judgeStationarity(std::span<const double> x, double significance);

// Whether the changes of ln x are steadier than those of x: the likelihood of a normal random walk with drift is larger
// for ln x, its Jacobian included (Box & Cox 1964), sum of ln x(t) + n ln s.d.(d ln x) < n ln s.d.(d x). Units change
// nothing. False unless all values are positive and there are three of them.
bool changesInProportion(std::span<const double> x);

}  // namespace engine
