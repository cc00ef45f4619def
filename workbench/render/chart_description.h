// A chart in words, for those who cannot see it.

#pragma once

#include <string>

#include "workbench/charts/chart.h"
#include "workbench/render/number_format.h"

namespace workbench {

// Why there is nothing to draw; "" where there is something.
std::string problemText(const ChartProblem& problem, const Language& language);

// "VALUES by CATEGORIES", the labels of both axes; visible text.
std::string axesText(const ChartSpec& spec, const Language& language);

// Kind, title, span of the categories, and of each series (the first few of many) its first and last value and its
// extremes with where they are; of a band its edges at both ends, of points what they say of themselves, of a panel its
// headings. Visible text without line breaks.
std::string describeChart(const Chart& chart, const Language& language = {});

}  // namespace workbench
