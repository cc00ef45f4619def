#include "workbench/plots/picture_script.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <vector>

#include "workbench/plots/gnuplot_script.h"
#include "workbench/plots/picture_look.h"
#include "workbench/plots/picture_plot.h"
#include "workbench/render/display_text.h"

namespace workbench {

namespace {

// Pixels of the page.
constexpr double kWidth = 720;
constexpr double kHeight = 400;
constexpr double kSquare = 480;
constexpr double kCellHeight = 140;
constexpr double kNarrowestCell = 150;
constexpr double kWidestCell = 320;
constexpr double kGap = 18;
constexpr double kLeft = 90;  // of a panel: headings of rows and labels of the value axis
constexpr double kTop = 70;
constexpr double kAxis = 60;  // below the axes: labels and title
constexpr double kLegendRow = 20;
constexpr int kLongestTitle = 90;
constexpr double kCharacter = 6.5;

std::size_t legendRows(const Chart& chart, double width) {
  constexpr double kSample = 50;
  if (chart.data.series.size() < 2) return 0;
  double widest = 0;
  for (const ChartSeries& series : chart.data.series)
    widest = std::max(widest, kSample + kCharacter * displayWidth(series.name));
  const auto most = static_cast<std::size_t>(std::max(width / widest, 1.0));
  return (chart.data.series.size() + most - 1) / most;
}

bool isDrawn(const Chart& chart) {
  return !chart.data.problem && hasValues(chart);
}

class PictureWriter {
 public:
  PictureWriter(const Chart& chart, const PictureFormat& format, const Language& language)
      : chart_(chart), format_(format), language_(language) {}

  std::string write() {
    chart_.cells.empty() ? writeOne() : writePanel();
    return std::move(out_);
  }

 private:
  template <class... Arguments>
  void line(fmt::format_string<Arguments...> format, Arguments&&... arguments) {
    fmt::format_to(std::back_inserter(out_), format, std::forward<Arguments>(arguments)...);
    out_ += '\n';
  }

  void writeHead(double width, double height) {
    width_ = width;
    height_ = height;
    line("reset");
    line("set terminal {} size {},{}", format_.terminal, width * format_.scale, height * format_.scale);
    line("set encoding utf8");
    line("set decimalsign {}", gnuplotText(language_.decimalSeparator()));
    line("set border 3 lc rgb '#5b6470' lw 1");
    line("set grid ytics lt 1 lw 0.5 lc rgb '#d5d9de'");
    line("set boxwidth 1");
    line("set style fill solid 1");
  }

  std::string title() const { return gnuplotText(shortenText(chart_.spec.title, kLongestTitle, "...")); }

  void writeOne() {
    const double width = chart_.spec.equalAxes ? kSquare : kWidth;
    const double legend = kLegendRow * static_cast<double>(legendRows(chart_, width));
    writeHead(width, (chart_.spec.equalAxes ? kSquare : kHeight) + legend);
    line("set title {}", title());
    line("set bmargin at screen {}", (kAxis + legend) / height_);
    writeKey(width_ / 2, legend);
    out_ += picturePlot(chart_, {.width = kWidth - 80, .legend = true});
  }

  // Its lower end stands a little above that of the picture.
  void writeKey(double middle, double height) {
    if (height == 0) return line("unset key");
    line("set key at screen {},{} bottom center horizontal Left reverse samplen 2 maxrows {}", across(middle),
         kLegendRow / 3 / height_, height / kLegendRow);
  }

  double across(double pixels) const { return pixels / width_; }
  double up(double pixelsFromTop) const { return 1 - pixelsFromTop / height_; }

  void writePanel() {
    const auto columns = static_cast<double>(std::max<std::size_t>(chart_.panelColumns.size(), 1));
    const auto rows = static_cast<double>(chart_.panelRows.size());
    cellWidth_ = std::clamp((kWidth - kLeft) / columns, kNarrowestCell, kWidestCell);
    const double width = std::max(kLeft + columns * cellWidth_ + kGap, kWidth / 2);
    const auto drawn = std::ranges::find_if(chart_.cells, isDrawn);
    legendHeight_ = kLegendRow * static_cast<double>(legendRows(*drawn, width));
    writeHead(width, kTop + rows * kCellHeight + kAxis + legendHeight_);
    line("set multiplot");
    line("unset key");
    for (std::size_t i = 0; i < chart_.cells.size(); ++i)
      if (isDrawn(chart_.cells[i])) writeCell(i);
    writeSurroundings();
    line("unset multiplot");
  }

  void writeCell(std::size_t i) {
    const std::size_t columns = chart_.panelColumns.size();
    const double left = kLeft + static_cast<double>(i % columns) * cellWidth_;
    const double top = kTop + static_cast<double>(i / columns) * kCellHeight;
    line("set lmargin at screen {}", across(left));
    line("set rmargin at screen {}", across(left + cellWidth_ - kGap));
    line("set tmargin at screen {}", up(top));
    line("set bmargin at screen {}", up(top + kCellHeight - kGap));
    out_ += picturePlot(chart_.cells[i], {.width = cellWidth_ - kGap,
                                          .small = true,
                                          .xLabels = i / columns + 1 == chart_.panelRows.size(),
                                          .yLabels = i % columns == 0,
                                          .legend = false});
  }

  void label(const std::string& text, double x, double y, double room, const char* more = "") {
    const int most = std::max(static_cast<int>(room / kCharacter), 4);
    line("set label {} at screen {},{} center {}", gnuplotText(shortenText(text, most, "...")), across(x), up(y), more);
  }

  // In two lines where one is too short: rows often differ in the middle of their headings.
  void writeRowHeading(const std::string& text, double middle) {
    std::vector<std::string> lines = wrapText(text, static_cast<int>(kCellHeight / kCharacter));
    if (lines.size() > 2) lines = {text};
    for (std::size_t i = 0; i < lines.size(); ++i)
      label(lines[i], 14 + 15 * static_cast<double>(i), middle, kCellHeight, "rotate by 90");
  }

  // Title, headings, what the axes show, and the legend, around an empty plot.
  void writeSurroundings() {
    const double middle = kLeft + (width_ - kLeft - kGap) / 2;
    line("set label {} at screen 0.5,{} center font ',13'", title(), up(20));
    label(language_.tr("^1 by ^2", chart_.spec.yLabel, chart_.spec.xLabel), middle, height_ - legendHeight_ - 14,
          width_);
    for (std::size_t column = 0; column < chart_.panelColumns.size(); ++column) {
      label(chart_.panelColumns[column], kLeft + (static_cast<double>(column) + 0.5) * cellWidth_ - kGap / 2, kTop - 14,
            cellWidth_ - kGap);
    }
    for (std::size_t row = 0; row < chart_.panelRows.size(); ++row)
      writeRowHeading(chart_.panelRows[row], kTop + (static_cast<double>(row) + 0.5) * kCellHeight - kGap / 2);
    const auto drawn = std::ranges::find_if(chart_.cells, isDrawn);
    line("unset border\nunset xtics\nunset ytics\nunset xlabel\nunset ylabel\nset size noratio");
    line("set lmargin at screen 0\nset rmargin at screen 1\nset bmargin at screen 0\nset tmargin at screen 1");
    writeKey(middle, legendHeight_);
    line("plot [0:1][0:1] 2 notitle{}", drawn == chart_.cells.end() ? "" : legendEntries(*drawn));
  }

  const Chart& chart_;
  const PictureFormat& format_;
  const Language& language_;
  double width_ = kWidth;
  double height_ = kHeight;
  double cellWidth_ = kWidestCell;
  double legendHeight_ = 0;
  std::string out_;
};

}  // namespace

bool hasPicture(const Chart& chart) {
  return chart.cells.empty() ? isDrawn(chart) : std::ranges::any_of(chart.cells, isDrawn);
}

std::string pictureScript(const Chart& chart, const PictureFormat& format, const Language& language) {
  return PictureWriter(chart, format, language).write();
}

}  // namespace workbench
