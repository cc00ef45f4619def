// The columns of a vector autoregression that are known in advance: trend, seasons, exogenous series and their lags.

#pragma once

#include <cstddef>
#include <span>
#include <vector>

namespace engine {

// 0, 1, 2, .., `length` values.
std::vector<double> trendColumn(std::size_t length);

// s - 1 columns for a cycle of s seasons; row t is in season (firstSeason + t) mod s, counted from 0. Column j is 1 -
// 1/s in season j and -1/s in every other: it sums to zero over a whole cycle, so that the constant keeps its meaning.
// The last season is the one without a column.
std::vector<std::vector<double>> centredSeasonColumns(std::size_t firstSeason, std::size_t seasons, std::size_t length);

// Each series at lags 0..lags: (series 1 at lag 0, lag 1, ..), (series 2 ..). The rows before a lag exists repeat the
// first value; no regression uses them.
std::vector<std::vector<double>> laggedColumns(std::span<const std::vector<double>> series, std::size_t lags);

}  // namespace engine
