#include "workbench/plots/gnuplot_script.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <span>
#include <utility>
#include <vector>

#include "workbench/plots/category_ticks.h"
#include "workbench/plots/thinning.h"
#include "workbench/render/display_text.h"

namespace workbench {

namespace {

constexpr int kLongestLabel = 16;
constexpr int kColumnsPerDate = 13;  // six dates on 80 columns
constexpr int kColumnsPerValue = 7;  // a bar with its value above it
constexpr int kAxisColumns = 8;      // about what the value axis takes

class ScriptWriter {
 public:
  ScriptWriter(const Chart& chart, int width, const Locale& locale)
      : spec_(chart.spec),
        data_(chart.data),
        width_(width),
        bars_(chart.spec.element == ChartSpec::Element::interval),
        valuesShown_(bars_ && data_.series.size() == 1 && barsFit(kColumnsPerValue)),
        drawn_(std::min(data_.series.size(), kGlyphs.size())),
        locale_(locale) {}

  std::string write() {
    writeFrame();
    writeTicks();
    for (std::size_t i = 0; i < drawn_; ++i) writeData(i);
    writePlot();
    return std::move(out_);
  }

 private:
  template <class... Arguments>
  void line(fmt::format_string<Arguments...> format, Arguments&&... arguments) {
    fmt::format_to(std::back_inserter(out_), format, std::forward<Arguments>(arguments)...);
    out_ += '\n';
  }

  bool barsFit(int columns) const {
    return static_cast<std::size_t>((width_ - kAxisColumns) / columns) >= categories();
  }
  std::size_t categories() const { return data_.categories.size(); }

  void writeFrame() {
    line("reset");
    line("set terminal dumb mono noenhanced size {},{}", width_, kPlotHeight);
    line("set encoding utf8");
    line("set decimalsign {}", gnuplotText(locale_.decimalSeparator));
    line("set print '-'");
    line("set key off");
    line("set border 3 back");
    line("set tics nomirror scale 0");
    line("set tmargin {}", valuesShown_ ? 1 : 0);
    line("set bmargin 1");
    line("set rmargin 1");
    line("set xzeroaxis");
    line("set format y '%.10g'");
    line("set xrange [-0.5:{}.5]", categories() - 1);
    line("set autoscale yfix");
    if (spec_.yRange) {
      line("set yrange [{}:{}]", spec_.yRange->min, spec_.yRange->max);
    } else if (bars_) {
      line("set yrange [*<0:0<*]");
    }
  }

  void writeTicks() {
    std::vector<std::string> labels;
    int widest = 1;
    for (const std::string& category : data_.categories) {
      labels.push_back(shortenText(category, kLongestLabel, "..."));
      widest = std::max(widest, displayWidth(labels.back()));
    }
    const int columns = bars_ ? widest + 1 : std::max(widest + 2, kColumnsPerDate);
    const int most = std::max((width_ - kAxisColumns) / columns + (bars_ ? 0 : 1), 1);
    std::string ticks;
    for (const std::size_t place : categoryTicks(labels, static_cast<std::size_t>(most))) {
      ticks += fmt::format("{}{} {}", ticks.empty() ? "" : ", ", gnuplotText(labels[place]), place);
    }
    line("set xtics ({})", ticks);
  }

  // "PLACE VALUE" a line, with a bar's value as text; a line without a value interrupts what is drawn.
  void writeData(std::size_t i) {
    const ChartSeries& series = data_.series[i];
    line("$series{} << EOD", i);
    for (const PlotPoint& point : thinSeries(series.x, series.y, categories(), static_cast<std::size_t>(width_))) {
      if (std::isnan(point.value)) {
        line("");
      } else if (valuesShown_) {
        line("{} {} \"{}\"", point.place, point.value, barText(point.value));
      } else {
        line("{} {}", point.place, point.value);
      }
    }
    line("EOD");
  }

  std::string barText(double value) const {
    std::string text = spec_.yRange ? fmt::format("{:.2f}", value) : fmt::format("{:.3g}", value);
    if (const std::size_t point = text.find('.'); point != std::string::npos) {
      text.replace(point, 1, locale_.decimalSeparator);
    }
    return text;
  }

  // Lines show every point too: one between two gaps would have no line.
  void writePlot() {
    std::string elements;
    for (std::size_t i = drawn_; i-- > 0;) {
      elements += fmt::format("{}$series{} using 1:2 with ", elements.empty() ? "" : ", ", i);
      elements +=
          bars_ ? fmt::format("impulses lt {}", i + 1) : fmt::format("linespoints lt {} pt '{}'", i + 1, kGlyphs[i]);
    }
    // The space above a negative bar's foot is free; below its tip there may be none.
    if (valuesShown_) elements += ", $series0 using 1:($2 > 0 ? $2 : 0):3 with labels offset 0,1";
    line("plot {}", elements);
    line("print \"\\{:03o}\"", static_cast<unsigned>(kPlotEnd));
  }

  const ChartSpec& spec_;
  const ChartData& data_;
  int width_;
  bool bars_;
  bool valuesShown_;
  std::size_t drawn_;
  const Locale& locale_;
  std::string out_;
};

}  // namespace

std::string gnuplotText(std::string_view text) {
  std::string quoted = "'";
  for (const char c : visibleText(text)) quoted.append(c == '\'' ? 2 : 1, c);
  return quoted + "'";
}

bool hasValues(const ChartData& data) {
  const auto drawn = std::span(data.series).first(std::min(data.series.size(), kGlyphs.size()));
  return std::ranges::any_of(drawn, [](const ChartSeries& series) {
    return !std::ranges::all_of(series.y, [](double value) { return std::isnan(value); });
  });
}

std::string gnuplotScript(const Chart& chart, int width, const Locale& locale) {
  return ScriptWriter(chart, width, locale).write();
}

}  // namespace workbench
