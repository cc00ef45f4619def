#include "workbench/plots/picture_plot.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <numbers>

#include "workbench/charts/chart_layout.h"
#include "workbench/charts/continuation.h"
#include "workbench/charts/thinning.h"
#include "workbench/charts/ticks.h"
#include "workbench/plots/gnuplot_script.h"
#include "workbench/plots/picture_look.h"
#include "workbench/plots/plot_frame.h"
#include "workbench/render/display_text.h"

namespace workbench {

namespace {

using Kind = ChartElement::Kind;

constexpr std::size_t kDrawnColumns = 1500;
constexpr int kLongestLabel = 24;
constexpr double kCharacter = 6.5;  // pixels
constexpr double kMargin = 0.04;    // of the values, above and below

class PlotWriter {
 public:
  PlotWriter(const Chart& chart, const PlotAxes& axes)
      : chart_(chart),
        layout_(layOutChart(chart)),
        spec_(chart.spec),
        data_(chart.data),
        axes_(axes),
        frame_(plotFrame(chart, layout_, 1, 1)) {}

  std::string write() {
    writeAxes();
    spec_.numericX ? void() : writeTicks();
    addGuides();
    for (const std::size_t i : drawingOrder()) addSeries(i);
    line("plot {}{}", plot_, axes_.legend ? legendEntries(chart_) : "");
    return std::move(out_);
  }

 private:
  template <class... Arguments>
  void line(fmt::format_string<Arguments...> format, Arguments&&... arguments) {
    fmt::format_to(std::back_inserter(out_), format, std::forward<Arguments>(arguments)...);
    out_ += '\n';
  }

  const ChartElement& elementOf(std::size_t i) const { return spec_.elements[data_.series[i].element]; }
  std::size_t first() const { return layout_.firstShown; }
  std::size_t shown() const { return data_.categories.size() - first(); }

  void writeAxes() {
    const bool exact = spec_.yRange || frame_.low == frame_.high;
    const double space = exact ? 0 : kMargin * (frame_.high - frame_.low);
    const bool bars = std::ranges::any_of(spec_.elements, [](const auto& one) { return one.kind == Kind::interval; });
    const double side = spec_.numericX || bars || shown() < 2 ? 0 : 0.5;
    line("set xrange [{}:{}]", frame_.from + side, frame_.to - side);
    line("set autoscale y");
    if (frame_.low < frame_.high)
      line("set yrange [{}:{}]", frame_.low - (frame_.low == 0 ? 0 : space),
           frame_.high + (frame_.high == 0 ? 0 : space));
    line("set size {}", spec_.equalAxes ? "ratio -1" : "noratio");
    line("set format x '{}'", axes_.xLabels ? "%.10g" : "");
    line("set format y '{}'", axes_.yLabels ? "%.10g" : "");
    line("set xlabel {}", gnuplotText(axes_.small ? "" : spec_.xLabel));
    line("set ylabel {}", gnuplotText(axes_.small ? "" : spec_.yLabel));
    line("set xtics nomirror scale 0.5 autofreq");
    line("set ytics nomirror scale 0 autofreq{}", axes_.small ? " maxcount 5" : "");
  }

  void writeTicks() {
    std::vector<std::string> labels;
    int widest = 1;
    for (const std::string& category : data_.categories) {
      labels.push_back(shortenText(category, kLongestLabel, "..."));
      widest = std::max(widest, displayWidth(labels.back()));
    }
    const double most = std::max(axes_.width / (kCharacter * (widest + 2)), 1.0);
    const auto ladder = tickLadder(data_.categories);
    std::string ticks;
    for (const std::size_t place :
         ticksWithin(chooseRung(ladder, static_cast<double>(shown()) / most), first(), data_.categories.size())) {
      ticks +=
          fmt::format("{}{} {}", ticks.empty() ? "" : ", ", gnuplotText(axes_.xLabels ? labels[place] : ""), place);
    }
    line("set xtics ({})", ticks);
  }

  // A data block of its own, and the part of the plot command that draws it.
  template <class Write>
  void addBlock(const std::string& style, Write writeRows) {
    line("$block{} << EOD", blocks_);
    writeRows();
    line("EOD");
    plot_ += fmt::format("{}$block{} {}", plot_.empty() ? "" : ", ", blocks_++, style);
  }

  void addGuides() {
    constexpr const char* kLook = "with lines lc rgb '#87909a' lw 1 dt 1 notitle";
    for (const auto& [dimension, at] : spec_.lines) {
      addBlock(kLook, [&, upright = dimension == 1, where = at] {
        upright ? line("{} {}\n{} {}", where, frame_.low, where, frame_.high)
                : line("{} {}\n{} {}", frame_.from, where, frame_.to, where);
      });
    }
    for (const auto& circle : spec_.circles) {
      addBlock(kLook, [&] {
        for (int k = 0; k <= 180; ++k) {
          const double angle = k * std::numbers::pi / 90;
          line("{} {}", circle.x + circle.radius * std::cos(angle), circle.y + circle.radius * std::sin(angle));
        }
      });
    }
  }

  // Bands, the widest first, then areas, bars, lines, the wide ones first, and points; series later in the list below.
  std::vector<std::size_t> drawingOrder() const {
    const auto rank = [&](std::size_t i) {
      const auto kind = elementOf(i).kind;
      const std::size_t depth = layout_.series[i].depth;
      if (kind == Kind::band) return std::pair(0, depth);
      if (kind == Kind::line) return std::pair(3, std::size_t{layout_.series[i].under ? 0U : 1U});
      return std::pair(kind == Kind::area ? 1 : kind == Kind::interval ? 2 : 4, std::size_t{0});
    };
    std::vector<std::size_t> order;
    for (std::size_t i = data_.series.size(); i-- > 0;) order.push_back(i);
    std::ranges::stable_sort(order, {}, rank);
    return order;
  }

  void addSeries(std::size_t i) {
    const std::string style = "with " + pictureStyle(chart_, layout_, i) + " notitle";
    const Kind kind = elementOf(i).kind;
    if (kind == Kind::interval) {
      addBlock(style, [&] { writeBars(i); });
    } else if (kind == Kind::band || kind == Kind::area) {
      addEdges(i, style);
    } else {
      addBlock(style, [&] { writePoints(i); });
      if (kind == Kind::line) addDots(i);
    }
  }

  double lowOf(std::size_t i, std::size_t k) const {
    if (!layout_.series[i].low.empty()) return layout_.series[i].low[k];
    return data_.series[i].upper.empty() ? 0 : data_.series[i].y[k];
  }
  double highOf(std::size_t i, std::size_t k) const {
    if (!layout_.series[i].high.empty()) return layout_.series[i].high[k];
    return data_.series[i].upper.empty() ? data_.series[i].y[k] : data_.series[i].upper[k];
  }

  void writeBars(std::size_t i) {
    const double half = 0.35;
    for (std::size_t k = 0; k < data_.series[i].x.size(); ++k) {
      const double x = static_cast<double>(data_.series[i].x[k]);
      const double low = lowOf(i, k);
      const double high = highOf(i, k);
      if (data_.series[i].x[k] >= first() && !std::isnan(low) && !std::isnan(high))
        line("{} {} {} {} {} {}", x, high, x - half, x + half, low, high);
    }
  }

  // A block for every stretch without a gap: a shape would reach over it.
  void addEdges(std::size_t i, const std::string& style) {
    const ChartSeries& series = data_.series[i];
    const bool parted = elementOf(i).kind == Kind::area && !layout_.series[i].low.empty();
    std::string rows;
    const auto flush = [&] {
      if (rows.empty()) return;
      addBlock("using 1:2:3 " + style, [&] { out_ += rows; });
      if (parted) addBlock("using 1:3 with lines lc rgb '#ffffff' lw 1 notitle", [&] { out_ += rows; });
      rows.clear();
    };
    if (const auto& before = layout_.series[i].continues) {
      const auto last = lastPoint(data_.series[*before]);
      rows = fmt::format("{} {} {}\n", last->place, last->value, last->value);
    }
    for (std::size_t k = 0; k < series.x.size(); ++k) {
      if (std::isnan(lowOf(i, k)) || std::isnan(highOf(i, k))) {
        flush();
      } else if (series.x[k] >= first()) {
        rows += fmt::format("{} {} {}\n", series.x[k], lowOf(i, k), highOf(i, k));
      }
    }
    flush();
  }

  void writePoint(double x, double y) { std::isnan(y) ? line("") : line("{} {}", x, y); }

  // A line without a value interrupts what is drawn.
  void writePoints(std::size_t i) {
    const ChartSeries& series = data_.series[i];
    if (const auto& before = layout_.series[i].continues) {
      const auto last = lastPoint(data_.series[*before]);
      writePoint(static_cast<double>(last->place), last->value);
    }
    for (std::size_t k = 0; k < series.number.size(); ++k) writePoint(series.number[k], series.y[k]);
    if (!series.number.empty()) return;
    for (const std::size_t k : drawnPoints(series.x, series.y, {first(), shown()}, kDrawnColumns))
      writePoint(static_cast<double>(series.x[k]), series.y[k]);
  }

  // Values between two gaps, which no line reaches.
  void addDots(std::size_t i) {
    const ChartSeries& series = data_.series[i];
    const auto has = [&](std::size_t k) { return k < series.y.size() && !std::isnan(series.y[k]); };
    std::vector<std::size_t> alone;
    for (std::size_t k = 0; k < series.x.size(); ++k) {
      const bool joined = has(k + 1) || (k > 0 && has(k - 1)) || (k == 0 && layout_.series[i].continues);
      if (has(k) && !joined && series.x[k] >= first()) alone.push_back(k);
    }
    if (alone.empty()) return;
    addBlock(fmt::format("with points pt 7 ps 0.4 lc rgb '{}' notitle", pictureColor(layout_.series[i].color)), [&] {
      for (const std::size_t k : alone) line("{} {}", series.x[k], series.y[k]);
    });
  }

  const Chart& chart_;
  ChartLayout layout_;
  const ChartSpec& spec_;
  const ChartData& data_;
  const PlotAxes& axes_;
  GridFrame frame_;
  std::size_t blocks_ = 0;
  std::string plot_;
  std::string out_;
};

}  // namespace

std::string legendEntries(const Chart& chart) {
  if (chart.data.series.size() < 2) return {};
  const ChartLayout layout = layOutChart(chart);
  std::string entries;
  for (std::size_t i = 0; i < layout.series.size(); ++i) {
    entries += fmt::format(", keyentry with {} title {}", legendStyle(chart, layout, i),
                           gnuplotText(shortenText(chart.data.series[i].name, 40, "...")));
  }
  return entries;
}

std::string picturePlot(const Chart& chart, const PlotAxes& axes) {
  return PlotWriter(chart, axes).write();
}

}  // namespace workbench
