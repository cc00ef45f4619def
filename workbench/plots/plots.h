// The charts of a document as plots in the terminal.

#pragma once

#include <string>

#include "workbench/base/json.h"
#include "workbench/render/number_format.h"
#include "workbench/render/terminal.h"

namespace workbench {

struct Plots {
  std::string text;     // all charts, an empty line between them; empty when there are none or they cannot be drawn
  std::string problem;  // why they cannot be drawn, with the remedy
};

// A title, a line with the axes and the series' glyphs, and the plot, for each chart in the document's order.
Plots paintPlots(const rapidjson::Document& document, const TerminalStyle& style, const Language& language = {});

}  // namespace workbench
