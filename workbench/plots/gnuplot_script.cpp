#include "workbench/plots/gnuplot_script.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "workbench/base/visible_text.h"
#include "workbench/charts/continuation.h"
#include "workbench/charts/thinning.h"
#include "workbench/charts/ticks.h"
#include "workbench/plots/character_fill.h"
#include "workbench/plots/plot_frame.h"
#include "workbench/render/display_text.h"

namespace workbench {

namespace {

using Kind = ChartElement::Kind;

constexpr std::string_view kGlyphs = "*#$%@&=";
constexpr std::string_view kBandGlyphs = ".:+";
constexpr int kLongestLabel = 16;
constexpr int kColumnsPerDate = 13;  // six dates on 80 columns
constexpr double kRowsPerValue = 2.5;
constexpr int kColumnsPerValue = 7;  // a bar with its value above it
constexpr int kAxisColumns = 8;      // about what the value axis takes

// The next of 1, 2, 5, 10, ... from a distance on, so that no two labels fall into one row.
double roundStep(double least) {
  const double power = std::pow(10.0, std::floor(std::log10(least)));
  for (const double factor : {1.0, 2.0, 5.0})
    if (factor * power >= least) return factor * power;
  return 10 * power;
}

class ScriptWriter {
 public:
  ScriptWriter(const Chart& chart, const PlotSize& size, const Language& language)
      : chart_(chart),
        layout_(layOutChart(chart)),
        spec_(chart.spec),
        data_(chart.data),
        size_(size),
        bars_(!spec_.elements.empty() && spec_.elements[0].kind == Kind::interval),
        language_(language) {
    if (spec_.equalAxes) size_.width = std::min(size_.width, 2 * (size_.height - 1) + kAxisColumns + 2);
    first_ = layout_.firstShown;
    valuesShown_ = bars_ && !spec_.elements[0].stacked && data_.series.size() == 1 && barsFit(kColumnsPerValue);
    frame_ = plotFrame(chart_, layout_, size_.width - kAxisColumns, size_.height - 2);
  }

  std::string write() {
    writeSettings();
    spec_.numericX ? void() : writeTicks();
    addGuides();
    // What is plotted later covers what is there: fills first, and the first of the lines last.
    const auto glyphs = seriesGlyphs(chart_, layout_);
    for (const auto& [i, glyph] : glyphs)
      if (isFilled(i)) addFill(i, glyph);
    for (auto entry = glyphs.rbegin(); entry != glyphs.rend(); ++entry)
      if (!isFilled(entry->first)) addSeries(entry->first, entry->second);
    addGlimpses(glyphs);
    writePlot();
    return std::move(out_);
  }

 private:
  template <class... Arguments>
  void line(fmt::format_string<Arguments...> format, Arguments&&... arguments) {
    fmt::format_to(std::back_inserter(out_), format, std::forward<Arguments>(arguments)...);
    out_ += '\n';
  }

  std::size_t categories() const { return data_.categories.size(); }
  std::size_t shown() const { return categories() - first_; }
  bool barsFit(int columns) const {
    return static_cast<std::size_t>((size_.width - kAxisColumns) / columns) >= shown();
  }
  bool isFilled(std::size_t i) const { return !layout_.series[i].low.empty() || !data_.series[i].upper.empty(); }
  const ChartElement& elementOf(std::size_t i) const { return spec_.elements[data_.series[i].element]; }

  void writeSettings() {
    line("reset");
    line("set terminal dumb mono noenhanced size {},{}", size_.width, size_.height);
    line("set encoding utf8");
    line("set decimalsign {}", gnuplotText(language_.decimalSeparator()));
    line("set print '-'");
    line("set key off");
    line("set border 3 back");
    line("set tics nomirror scale 0");
    line("set tmargin {}", valuesShown_ ? 1 : 0);
    line("set bmargin 1");
    line("set rmargin 1");
    line("set xzeroaxis");
    line("set format y '%.10g'");
    line("set xrange [{}:{}]", frame_.from, frame_.to);
    line("set autoscale yfix");
    if (frame_.low < frame_.high) line("set yrange [{}:{}]", frame_.low, frame_.high);
    if (frame_.low < frame_.high)
      line("set ytics {}", roundStep((frame_.high - frame_.low) * kRowsPerValue / size_.height));
  }

  void writeTicks() {
    std::vector<std::string> labels;
    int widest = 1;
    for (const std::string& category : data_.categories) {
      labels.push_back(shortenText(category, kLongestLabel, "..."));
      widest = std::max(widest, displayWidth(labels.back()));
    }
    const int columns = bars_ ? widest + 1 : std::max(widest + 2, kColumnsPerDate);
    const int most = std::max((size_.width - kAxisColumns) / columns + (bars_ ? 0 : 1), 1);
    const auto ladder = tickLadder(data_.categories);
    std::string ticks;
    for (const std::size_t place :
         ticksWithin(chooseRung(ladder, static_cast<double>(shown()) / most), first_, categories())) {
      ticks += fmt::format("{}{} {}", ticks.empty() ? "" : ", ", gnuplotText(labels[place]), place);
    }
    line("set xtics ({})", ticks);
  }

  // A data block of its own, and the part of the plot command that draws it.
  template <class Write>
  void addBlock(const std::string& style, Write writeRows) {
    line("$block{} << EOD", blocks_);
    writeRows();
    line("EOD");
    elements_ += fmt::format("{}$block{} using {}", elements_.empty() ? "" : ", ", blocks_++, style);
  }

  void addPoints(const std::vector<GridPoint>& points, char glyph) {
    addBlock(fmt::format("1:2 with points lt 1 pt '{}'", glyph), [&] {
      for (const auto& [x, y] : points) line("{} {}", x, y);
    });
  }

  void addGuides() {
    for (const auto& guide : spec_.lines)
      addPoints(guide.dimension == 1 ? verticalLine(guide.at, frame_) : horizontalLine(guide.at, frame_),
                guide.dimension == 1 ? '|' : '-');
    for (const auto& [x, y, radius] : spec_.circles) addPoints(circle(x, y, radius, frame_), '.');
  }

  void addFill(std::size_t i, char glyph) {
    const ChartSeries& series = data_.series[i];
    const SeriesLayout& look = layout_.series[i];
    EdgeLines edges;
    if (look.continues) {
      const auto last = lastPoint(data_.series[*look.continues]);
      edges = {{static_cast<double>(last->place)}, {last->value}, {last->value}};
    }
    for (std::size_t k = 0; k < series.x.size(); ++k) {
      edges.x.push_back(static_cast<double>(series.x[k]));
      edges.low.push_back(look.low.empty() ? series.y[k] : look.low[k]);
      edges.high.push_back(look.low.empty() ? series.upper[k] : look.high[k]);
    }
    const bool bars = elementOf(i).kind == Kind::interval;
    addPoints(bars ? fillBars(edges, 0.6, frame_) : fillBetween(edges, frame_), glyph);
  }

  // "PLACE VALUE" a line, with a bar's value as text; a line without a value interrupts what is drawn.
  void writePoint(double place, double value) {
    if (std::isnan(value)) {
      line("");
    } else if (valuesShown_) {
      line("{} {} \"{}\"", place, value, barText(value));
    } else {
      line("{} {}", place, value);
    }
  }

  void writeSeries(std::size_t i, std::size_t every) {
    const ChartSeries& series = data_.series[i];
    if (layout_.series[i].continues && every == 1) {
      const auto last = lastPoint(data_.series[*layout_.series[i].continues]);
      writePoint(static_cast<double>(last->place), last->value);
    }
    if (spec_.numericX) {
      for (std::size_t k = 0; k < series.number.size(); ++k) writePoint(series.number[k], series.y[k]);
      return;
    }
    std::size_t written = 0;
    for (const std::size_t k : drawnPoints(series.x, series.y, {first_, shown()}, frame_.columns))
      if (written++ % every == 0) writePoint(static_cast<double>(series.x[k]), series.y[k]);
  }

  // Lines show every point too: one between two gaps would have no line.
  void addSeries(std::size_t i, char glyph) {
    const std::size_t number = kGlyphs.find(glyph) + 1;
    const std::string style = elementOf(i).kind == Kind::interval ? fmt::format("1:2 with impulses lt {}", number)
                              : spec_.numericX ? fmt::format("1:2 with points lt {} pt '{}'", number, glyph)
                                               : fmt::format("1:2 with linespoints lt {} pt '{}'", number, glyph);
    addBlock(style, [&] { writeSeries(i, 1); });
  }

  // Characters of the lines that lie on one that is drawn below them.
  void addGlimpses(const std::vector<std::pair<std::size_t, char>>& glyphs) {
    const bool hides = std::ranges::any_of(layout_.series, &SeriesLayout::under);
    for (const auto& [i, glyph] : glyphs) {
      if (!hides || layout_.series[i].under || isFilled(i)) continue;
      addBlock(fmt::format("1:2 with points lt 1 pt '{}'", glyph), [&] { writeSeries(i, 3); });
    }
  }

  std::string barText(double value) const {
    std::string text = spec_.yRange ? fmt::format("{:.2f}", value) : fmt::format("{:.3g}", value);
    if (const std::size_t point = text.find('.'); point != std::string::npos) {
      text.replace(point, 1, language_.decimalSeparator());
    }
    return text;
  }

  void writePlot() {
    // The space above a negative bar's foot is free; below its tip there may be none.
    if (valuesShown_)
      elements_ += fmt::format(", $block{} using 1:($2 > 0 ? $2 : 0):3 with labels offset 0,1", blocks_ - 1);
    line("plot {}", elements_);
    line("print \"\\{:03o}\"", static_cast<unsigned>(kPlotEnd));
  }

  const Chart& chart_;
  ChartLayout layout_;
  const ChartSpec& spec_;
  const ChartData& data_;
  PlotSize size_;
  bool bars_;
  bool valuesShown_ = false;
  std::size_t first_ = 0;
  GridFrame frame_;
  std::size_t blocks_ = 0;
  std::string elements_;  // of the plot command
  const Language& language_;
  std::string out_;
};

}  // namespace

std::string gnuplotText(std::string_view text) {
  std::string quoted = "'";
  for (const char c : visibleText(text)) quoted.append(c == '\'' ? 2 : 1, c);
  return quoted + "'";
}

std::vector<std::pair<std::size_t, char>> seriesGlyphs(const Chart& chart, const ChartLayout& layout) {
  std::vector<std::pair<std::size_t, char>> glyphs;
  std::size_t used = 0;
  for (std::size_t i = 0; i < layout.series.size(); ++i) {
    if (!chart.data.series[i].upper.empty()) {
      glyphs.emplace_back(i, kBandGlyphs[std::min(layout.series[i].depth, kBandGlyphs.size() - 1)]);
    } else if (used < kGlyphs.size()) {
      glyphs.emplace_back(i, kGlyphs[used++]);
    }
  }
  return glyphs;
}

bool hasValues(const Chart& chart) {
  const auto glyphs = seriesGlyphs(chart, layOutChart(chart));
  return std::ranges::any_of(glyphs, [&](const auto& glyph) {
    return !std::ranges::all_of(chart.data.series[glyph.first].y, [](double value) { return std::isnan(value); });
  });
}

std::string gnuplotScript(const Chart& chart, const PlotSize& size, const Language& language) {
  return ScriptWriter(chart, size, language).write();
}

}  // namespace workbench
