// What the statements of one chart say. Texts are as the statements hold them: any bytes.

#pragma once

#include <array>
#include <cstddef>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

// One kind of mark, drawn for every series that its data columns hold.
struct ChartElement {
  enum class Kind { line, area, interval, band, point };
  Kind kind = Kind::line;
  std::string xColumn;
  std::string yColumn;       // of a band, its lower edge
  std::string upperColumn;   // of a band
  std::string seriesColumn;  // empty: one series
  std::string textColumn;    // what a point says of itself; empty: nothing
  std::string label;         // what a single series is called; empty: as the legend's title
  std::string color;     // "red" of color.red, of a line or of a filled shape; empty when the series have the colours
  std::string outline;   // of an area
  double size = 0;       // width of a line or of a bar, diameter of a point, in pixels; 0 when not given
  bool stacked = false;  // series stand on each other, negative values below zero
};

// Every kind of mark by its name in the language and for the page.
inline constexpr std::array<std::pair<std::string_view, ChartElement::Kind>, 5> kMarks{{
    {"line", ChartElement::Kind::line},
    {"area", ChartElement::Kind::area},
    {"interval", ChartElement::Kind::interval},
    {"band", ChartElement::Kind::band},
    {"point", ChartElement::Kind::point},
}};

struct ChartSpec {
  struct Range {
    double min = 0;
    double max = 0;
  };
  struct ReferenceLine {
    int dimension = 2;
    double at = 0;
  };
  struct Circle {
    double x = 0;
    double y = 0;
    double radius = 1;
  };
  struct Panel {
    std::string rowColumn;
    std::string columnColumn;
  };

  std::string title;
  std::string xLabel;  // of dimension 1, the categories
  std::string yLabel;  // of dimension 2, the values
  std::string legendTitle;
  std::vector<ChartElement> elements;  // in drawing order; all share the column of dimension 1
  bool numericX = false;               // dimension 1 holds numbers, not categories
  bool equalAxes = false;              // a unit is as long on one axis as on the other
  std::optional<Range> xRange;         // of numbers
  std::optional<Range> yRange;
  bool dataOrder = false;                           // categories in the order of the data; otherwise sorted as text
  std::map<std::string, std::string> seriesColors;  // series -> "red"
  std::vector<ReferenceLine> lines;
  std::vector<Circle> circles;
  std::optional<std::size_t> window;       // so many places at the end of the axis are shown first
  std::optional<Panel> panel;              // a small chart for every pair of entries in two columns
  std::vector<std::string> notUnderstood;  // lines, or what is strange about them, in their order
};

}  // namespace workbench
