#include "workbench/plots/character_fill.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace workbench {

namespace {

double columnWidth(const GridFrame& frame) {
  return (frame.to - frame.from) / static_cast<double>(std::max<std::size_t>(frame.columns, 1));
}

double rowHeight(const GridFrame& frame) {
  return (frame.high - frame.low) / static_cast<double>(std::max<std::size_t>(frame.rows, 1));
}

// One column of characters; at least one, so that a thin area shows.
void fillColumn(double x, double low, double high, const GridFrame& frame, std::vector<GridPoint>& points) {
  if (std::isnan(low) || std::isnan(high) || x < frame.from || x > frame.to) return;
  const double step = rowHeight(frame) / 2;  // no row is missed where a character is not as high as reckoned
  for (double y = low + step / 2; y < high; y += step) points.push_back({x, y});
  if (high - low <= step) points.push_back({x, (low + high) / 2});
}

double between(double a, double b, double share) {
  return a + share * (b - a);
}

}  // namespace

std::vector<GridPoint> fillBetween(const EdgeLines& edges, const GridFrame& frame) {
  std::vector<GridPoint> points;
  if (edges.x.size() == 1) fillColumn(edges.x[0], edges.low[0], edges.high[0], frame, points);
  for (std::size_t i = 1; i < edges.x.size(); ++i) {
    const double span = edges.x[i] - edges.x[i - 1];
    const double steps = std::max(1.0, std::ceil(1.5 * span / columnWidth(frame)));
    for (double k = i == 1 ? 0 : 1; k <= steps; ++k) {
      const double share = k / steps;
      fillColumn(between(edges.x[i - 1], edges.x[i], share), between(edges.low[i - 1], edges.low[i], share),
                 between(edges.high[i - 1], edges.high[i], share), frame, points);
    }
  }
  return points;
}

std::vector<GridPoint> fillBars(const EdgeLines& edges, double width, const GridFrame& frame) {
  std::vector<GridPoint> points;
  const double half = std::floor(width / columnWidth(frame) / 2);
  for (std::size_t i = 0; i < edges.x.size(); ++i) {
    for (double column = -half; column <= half; ++column)
      fillColumn(edges.x[i] + column * columnWidth(frame), edges.low[i], edges.high[i], frame, points);
  }
  return points;
}

std::vector<GridPoint> horizontalLine(double y, const GridFrame& frame) {
  std::vector<GridPoint> points;
  for (double x = frame.from; x <= frame.to; x += columnWidth(frame)) points.push_back({x, y});
  return points;
}

std::vector<GridPoint> verticalLine(double x, const GridFrame& frame) {
  std::vector<GridPoint> points;
  for (double y = frame.low; y <= frame.high; y += rowHeight(frame)) points.push_back({x, y});
  return points;
}

std::vector<GridPoint> circle(double x, double y, double radius, const GridFrame& frame) {
  std::vector<GridPoint> points;
  const double corners = 4.0 * static_cast<double>(frame.columns + frame.rows);
  for (double k = 0; k < corners; ++k) {
    const double angle = 2 * std::numbers::pi * k / corners;
    points.push_back({x + radius * std::cos(angle), y + radius * std::sin(angle)});
  }
  return points;
}

}  // namespace workbench
