// The points of a chart, as its statements arrange its data columns.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "workbench/charts/chart_columns.h"
#include "workbench/charts/chart_spec.h"

namespace workbench {

// All vectors hold one entry a point, or are empty where they do not apply.
struct ChartSeries {
  std::size_t element = 0;         // of the chart's elements: what it is drawn as
  std::string name;                // as shown: visible text, no two series of an element alike
  std::string key;                 // as the data has it
  std::vector<std::size_t> x;      // indexes into the categories
  std::vector<double> number;      // places on an axis of numbers, instead of x
  std::vector<double> y;           // NaN for a missing value; of a band, its lower edge
  std::vector<double> upper;       // of a band
  std::vector<std::string> texts;  // what points say of themselves; visible text
  std::string color;               // "red" as the chart language says; empty when it says nothing

  // Whether the points stand on neighbouring categories from the first one on.
  bool contiguous() const;
};

struct ChartProblem {
  enum class Kind { none, noElement, noColumn, noPoints };
  Kind kind = Kind::none;
  std::string column;  // that is not there

  explicit operator bool() const { return kind != Kind::none; }
};

struct ChartData {
  std::vector<std::string> categories;  // visible text, in axis order; none on an axis of numbers
  std::vector<ChartSeries> series;      // by element, then in order of first appearance
  ChartProblem problem;                 // why there is nothing to draw

  std::size_t longestSeries() const;
};

// The points of the given rows. A chart of one series calls it by its label or by its legend's title. Where a chart has
// several elements, rows hold what belongs to others: a single series then takes the rows from its first value to its
// last, and at each place those that have a value.
ChartData readChartData(const ChartColumns& columns, const ChartSpec& spec, const std::vector<std::size_t>& rows);

}  // namespace workbench
