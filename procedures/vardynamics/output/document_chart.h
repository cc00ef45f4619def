// A chart of the output document as data.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/output.h"

namespace vardynamics {

// Columns are parallel. A statement of the chart language refers to them by the names in `data`.
struct DocumentChart {
  std::string id;     // English, the same in every language
  std::string title;  // a display text
  std::vector<std::pair<std::string, std::vector<std::string>>> texts = {};
  std::vector<std::pair<std::string, std::vector<double>>> numbers = {};  // NaN where there is none
  std::vector<std::string> statements = {};                               // scales, guides and elements
};

// Appends the chart to the document, with the statements that name its data and its title. Host exceptions pass
// through.
void writeChart(StatJSONGenerator& generator, const DocumentChart& chart);

// The statement that labels an axis.
std::string axisGuide(int dimension, const std::string& label);

// The statement that draws the area between two columns over a third.
std::string bandElement(const std::string& place, const std::string& low, const std::string& high,
                        const std::string& label);

}  // namespace vardynamics
