// What follows from a chart's points for how it is drawn, whoever draws it.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "workbench/charts/chart.h"

namespace workbench {

struct SeriesLayout {
  std::string color;                     // "red", or the number in the palette, from "1" on
  std::size_t dash = 0;                  // earlier lines of this colour: lines of one colour differ by their dashes
  std::size_t depth = 0;                 // of a band, wider bands around it
  bool under = false;                    // a line that others would hide: drawn wide and pale below them
  std::optional<std::size_t> continues;  // the series whose last value it is joined to
  std::vector<double> low;               // between which values its points are drawn, where they stand on others
  std::vector<double> high;
};

struct ChartLayout {
  std::vector<SeriesLayout> series;
  std::size_t firstShown = 0;  // place at which the part begins that is shown first
};

ChartLayout layOutChart(const Chart& chart);

// The least and the greatest value that is drawn from a place on; nothing without values.
std::optional<ChartSpec::Range> valueExtent(const Chart& chart, const ChartLayout& layout, std::size_t from = 0);

// What covers both.
std::optional<ChartSpec::Range> joined(const std::optional<ChartSpec::Range>& a,
                                       const std::optional<ChartSpec::Range>& b);

}  // namespace workbench
