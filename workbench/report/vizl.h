// Reading a chart's specification lines.

#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

// What the lines of one chart say. Texts are as the lines hold them: any bytes.
struct ChartSpec {
  enum class Element { none, line, area, interval };
  struct Range {
    double min = 0;
    double max = 0;
  };

  std::string title;
  std::string xLabel;  // of dimension 1, the categories
  std::string yLabel;  // of dimension 2, the values
  std::string legendTitle;
  std::string xColumn;  // data columns; empty when no element names them
  std::string yColumn;
  std::string seriesColumn;  // empty: one series
  Element element = Element::none;
  std::string color;    // "red" of color.red, of a line or of a filled shape; empty when the series have the colours
  std::string outline;  // of an area
  double size = 0;      // width of a line or of a bar in pixels; 0 when not given
  std::optional<Range> yRange;
  bool dataOrder = false;                           // categories in the order of the data; otherwise sorted as text
  std::map<std::string, std::string> seriesColors;  // series -> "red"
  std::vector<std::string> notUnderstood;           // lines, or what is strange about them, in their order
};

// Labels stand in the lines without any escaping, so that each kind of line is recognised by its known beginning and
// end. In a colour map, where several names follow each other, `seriesNames` (those of the data) decide where a name
// ends. Lines that are not understood change nothing but `notUnderstood`.
ChartSpec parseVizl(const std::vector<std::string>& lines, const std::set<std::string>& seriesNames);

// The entries `("NAME", color.COLOUR), ...` of a colour map; nothing when the text is no such list.
std::optional<std::map<std::string, std::string>> parseColorMap(std::string_view entries,
                                                                const std::set<std::string>& seriesNames);

}  // namespace workbench
