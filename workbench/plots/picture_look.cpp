#include "workbench/plots/picture_look.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <utility>

namespace workbench {

namespace {

using Kind = ChartElement::Kind;

constexpr double kHairline = 1.5;
constexpr std::array<std::string_view, 4> kDashes{"1", "(6,4)", "(2,3)", "(10,4)"};

constexpr auto kColors = std::to_array<std::pair<std::string_view, std::string_view>>({
    {"red", "#c8402f"},
    {"blue", "#2468b4"},
    {"green", "#1f8457"},
    {"black", "#1c2024"},
    {"grey", "#7d8791"},
    {"1", "#c8402f"},
    {"2", "#2468b4"},
    {"3", "#0f9d78"},
    {"4", "#c07c00"},
    {"5", "#8b4f9f"},
    {"6", "#2c95c6"},
    {"7", "#6b5637"},
    {"8", "#59616b"},
    {"9", "#71851a"},
    {"10", "#c23f82"},
});

const ChartElement& elementOf(const Chart& chart, std::size_t series) {
  return chart.spec.elements[chart.data.series[series].element];
}

// A transparent colour: gnuplot's alpha is what shines through.
std::string pale(std::string_view color, double opacity) {
  return fmt::format("#{:02x}{}", static_cast<int>(255 * (1 - opacity)), color.substr(1));
}

std::string lineStyle(const Chart& chart, const SeriesLayout& look, std::size_t series, std::string_view color) {
  const double width = (look.under ? 3 : 1) * std::max(elementOf(chart, series).size, 1.0) * kHairline;
  return fmt::format("lines lc rgb '{}' lw {} dt {}", look.under ? pale(color, 0.45) : std::string(color), width,
                     kDashes[look.dash % kDashes.size()]);
}

}  // namespace

std::string_view pictureColor(std::string_view name) {
  const auto* found = std::ranges::find(kColors, name, [](const auto& entry) { return entry.first; });
  return found == kColors.end() ? "#1c2024" : found->second;
}

std::string pictureStyle(const Chart& chart, const ChartLayout& layout, std::size_t series) {
  const SeriesLayout& look = layout.series[series];
  const std::string_view color = pictureColor(look.color);
  switch (elementOf(chart, series).kind) {
    case Kind::line:
      return lineStyle(chart, look, series, color);
    case Kind::band:
      return fmt::format("filledcurves fc rgb '{}' fs solid 1 noborder", pale(color, 0.2));
    case Kind::area:
      return look.low.empty() ? fmt::format("filledcurves fc rgb '{}' fs solid 1 noborder", pale(color, 0.25))
                              : fmt::format("filledcurves fc rgb '{}' fs solid 1 noborder", color);
    case Kind::interval:
      return fmt::format("boxxyerror fc rgb '{}' fs solid 1 noborder", color);
    case Kind::point:
      break;
  }
  return fmt::format("points pt 7 ps 0.8 lc rgb '{}'", pale(color, 0.85));
}

std::string legendStyle(const Chart& chart, const ChartLayout& layout, std::size_t series) {
  const SeriesLayout& look = layout.series[series];
  const std::string_view color = pictureColor(look.color);
  switch (elementOf(chart, series).kind) {
    case Kind::line:
      return lineStyle(chart, look, series, color);
    case Kind::band:  // inner bands lie on those around them
      return fmt::format("boxes fc rgb '{}' fs solid 1 noborder",
                         pale(color, 0.2 * static_cast<double>(look.depth + 1)));
    case Kind::area:
    case Kind::interval:
      return fmt::format("boxes fc rgb '{}' fs solid 1 noborder", color);
    case Kind::point:
      break;
  }
  return fmt::format("points pt 7 ps 0.8 lc rgb '{}'", color);
}

}  // namespace workbench
