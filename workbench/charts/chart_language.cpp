#include "workbench/charts/chart_language.h"

#include <array>
#include <string_view>
#include <utility>

#include "workbench/charts/color_map.h"
#include "workbench/charts/element_statement.h"
#include "workbench/charts/statement_pattern.h"

namespace workbench {

namespace {

std::optional<std::vector<double>> numbersIn(std::string_view line, std::string_view pattern) {
  const auto texts = matchStatement(line, pattern);
  if (!texts) return std::nullopt;
  std::vector<double> numbers;
  for (const std::string& text : *texts) {
    const auto number = numberIn(text);
    if (!number) return std::nullopt;
    numbers.push_back(*number);
  }
  return numbers;
}

class Reader {
 public:
  explicit Reader(const std::set<std::string>& seriesNames) : seriesNames_(seriesNames) {}

  void read(const std::string& line) {
    if (!readFrame(line) && !readScale(line) && !readGuide(line) && !readMark(line) && !readElement(line)) {
      spec_.notUnderstood.push_back(line);
    }
  }

  ChartSpec result() && { return std::move(spec_); }

 private:
  bool readFrame(std::string_view line) {
    if (line == "GRAPH: begin()" || line == "GRAPH: end()" ||
        matchStatement(line, "SOURCE: @ = userSource(id(\"@\"))")) {
      return true;
    }
    return readData(line) || readPanel(line);
  }

  bool readData(std::string_view line) {
    const auto categories = matchStatement(line, "DATA: @ = col(source(@), name(\"@\"), unit.category())");
    const auto data = categories ? categories : matchStatement(line, "DATA: @ = col(source(@), name(\"@\"))");
    if (!data) return false;
    const std::string name(trimmed((*data)[0]));
    declared_.columns[name] = (*data)[2];
    if (categories) declared_.categories.insert(name);
    return true;
  }

  bool readPanel(std::string_view line) {
    const auto panel = matchStatement(line, "PANEL: rows(@), columns(@)");
    if (!panel) return false;
    const std::string* rows = declared_.find((*panel)[0]);
    const std::string* columns = declared_.find((*panel)[1]);
    if (rows == nullptr || columns == nullptr) return false;
    spec_.panel = ChartSpec::Panel{*rows, *columns};
    return true;
  }

  bool readScale(std::string_view line) {
    if (line == "SCALE: cat(dim(1), sort.data())") return spec_.dataOrder = true;
    if (line == "SCALE: equal(dim(1), dim(2))") return spec_.equalAxes = true;
    if (const auto map = matchStatement(line, "SCALE: cat(aesthetic(aesthetic.color), map(@))")) {
      auto colors = parseColorMap((*map)[0], seriesNames_);
      if (colors) spec_.seriesColors = std::move(*colors);
      return colors.has_value();
    }
    return readRange(line, "SCALE: linear(dim(1), min(@), max(@))", spec_.xRange) ||
           readRange(line, "SCALE: linear(dim(2), min(@), max(@))", spec_.yRange);
  }

  static bool readRange(std::string_view line, std::string_view pattern, std::optional<ChartSpec::Range>& range) {
    const auto ends = numbersIn(line, pattern);
    if (!ends || !((*ends)[0] < (*ends)[1])) return false;
    range = ChartSpec::Range{(*ends)[0], (*ends)[1]};
    return true;
  }

  bool readGuide(std::string_view line) {
    struct Guide {
      std::string_view pattern;
      std::string ChartSpec::*text;
    };
    constexpr std::array<Guide, 5> kGuides{
        Guide{"GUIDE: axis(dim(1),label(\"@\"))", &ChartSpec::xLabel},
        Guide{"GUIDE: axis(dim(2),label(\"@\"))", &ChartSpec::yLabel},
        Guide{"GUIDE: text.title(label(\"@\"))", &ChartSpec::title},
        Guide{"GUIDE: legend(aesthetic(aesthetic.color), label(\"@\"))", &ChartSpec::legendTitle},
        Guide{"GUIDE: legend(aesthetic(aesthetic.color.interior), label(\"@\"))", &ChartSpec::legendTitle},
    };
    for (const Guide& guide : kGuides) {
      if (auto label = matchStatement(line, guide.pattern)) {
        spec_.*guide.text = std::move(label->front());
        return true;
      }
    }
    return false;
  }

  // What stands for no data.
  bool readMark(std::string_view line) {
    for (const int dimension : {1, 2}) {
      const auto at = numbersIn(line, "GUIDE: line(dim(" + std::to_string(dimension) + "), at(@))");
      if (at) spec_.lines.push_back({dimension, at->front()});
      if (at) return true;
    }
    if (line.starts_with("GUIDE: window")) return readWindow(line);
    const auto circle = numbersIn(line, "GUIDE: circle(at(@, @), radius(@))");
    if (!circle || !((*circle)[2] > 0)) return false;
    spec_.circles.push_back({(*circle)[0], (*circle)[1], (*circle)[2]});
    return true;
  }

  bool readWindow(std::string_view line) {
    constexpr double kMost = 1e9;
    const auto last = numbersIn(line, "GUIDE: window(dim(1), last(@))");
    if (!last || !(last->front() >= 1) || last->front() > kMost) return false;
    spec_.window = static_cast<std::size_t>(last->front());
    return true;
  }

  bool readElement(std::string_view line) {
    const auto statement = readElementStatement(line, declared_);
    if (!statement) return false;
    const bool fits = spec_.elements.empty() || (statement->element.xColumn == spec_.elements.front().xColumn &&
                                                 statement->numericX == spec_.numericX);
    if (!fits) return false;
    spec_.elements.push_back(statement->element);
    spec_.numericX = statement->numericX;
    return statement->whole;
  }

  const std::set<std::string>& seriesNames_;
  DeclaredColumns declared_;
  ChartSpec spec_;
};

}  // namespace

ChartSpec parseChartLanguage(const std::vector<std::string>& lines, const std::set<std::string>& seriesNames) {
  Reader reader(seriesNames);
  for (const std::string& line : lines) reader.read(line);
  return std::move(reader).result();
}

}  // namespace workbench
