#include "tests/engine/dynamics_fixture.h"

#include <fstream>
#include <iomanip>
#include <numeric>
#include <sstream>
#include <stdexcept>

#include "engine/regression/var_estimation.h"

namespace engine {
namespace {

double element(const rapidjson::Value& list, std::size_t index, std::size_t columns) {
  if (!list[0].IsArray()) return list[static_cast<rapidjson::SizeType>(index)].GetDouble();
  return list[static_cast<rapidjson::SizeType>(index / columns)][static_cast<rapidjson::SizeType>(index % columns)]
      .GetDouble();
}

}  // namespace

Example fitted(SeriesList series, std::size_t lag, bool constant, SeriesList known) {
  Example model{std::move(series), std::move(known), {}};
  SeriesList inSample = model.known;
  for (auto& column : inSample) column.resize(model.series.front().size());
  const auto p = static_cast<std::int32_t>(lag);
  const VarEstimation estimation = estimateVar(
      {model.series, inSample},
      {.minLag = p, .maxLag = p, .constant = constant, .fullInverse = true, .allowSingularCovariance = true});
  if (estimation.error) throw std::runtime_error("the example cannot be fitted");
  model.fit = fittedVar(estimation, p);
  return model;
}

SeriesList levels() {
  std::ifstream file(VARMODEL_SOURCE_DIR "/examples/us_macro_quarterly.csv");
  SeriesList series(3);
  std::string line;
  std::getline(file, line);
  while (std::getline(file, line)) {
    std::istringstream cells(line);
    std::string cell;
    for (std::size_t column = 0; column < 5 && std::getline(cells, cell, ','); ++column) {
      if (column >= 2) series[column - 2].push_back(std::stod(cell));
    }
  }
  return series;
}

SeriesList growth() {
  SeriesList series = levels();
  for (auto& one : series) {
    for (std::size_t t = one.size() - 1; t > 0; --t) one[t] = 100.0 * (std::log(one[t]) - std::log(one[t - 1]));
    one.erase(one.begin());
  }
  return series;
}

std::vector<double> trendColumn(std::size_t length) {
  std::vector<double> column(length);
  std::iota(column.begin(), column.end(), 0.0);
  return column;
}

SeriesList seasonColumns(std::size_t seasons, std::size_t length) {
  SeriesList columns(seasons - 1, std::vector<double>(length, -1.0 / static_cast<double>(seasons)));
  for (std::size_t t = 0; t < length; ++t) {
    if (t % seasons < columns.size()) columns[t % seasons][t] += 1.0;
  }
  return columns;
}

std::vector<double> lagged(std::vector<double> series, std::size_t lag) {
  const double first = series.front();
  std::shift_right(series.begin(), series.end(), static_cast<std::ptrdiff_t>(lag));
  std::fill_n(series.begin(), lag, first);
  return series;
}

SeriesList scaled(SeriesList series, double factor) {
  for (auto& one : series) {
    for (double& value : one) value *= factor;
  }
  return series;
}

rapidjson::Document reference(const std::string& name) {
  std::ifstream file(VARMODEL_SOURCE_DIR "/tests/data/reference/dynamics/" + name + ".json");
  std::stringstream text;
  text << file.rdbuf();
  rapidjson::Document document;
  document.Parse<rapidjson::kParseFullPrecisionFlag>(text.str().c_str());
  return document;
}

::testing::AssertionResult closeTo(double seen, double wanted, double tolerance) {
  if (std::fabs(seen - wanted) <= tolerance * std::fabs(wanted)) return ::testing::AssertionSuccess();
  return ::testing::AssertionFailure() << std::setprecision(17) << seen << " for " << wanted << ", off by "
                                       << std::fabs(seen / wanted - 1.0);
}

void expectAllClose(const Matrix& seen, const rapidjson::Value& wanted, double tolerance) {
  double largest = 0.0;
  for (std::size_t i = 0; i < seen.values.size(); ++i) {
    largest = std::max(largest, std::fabs(element(wanted, i, seen.columns)));
  }
  for (std::size_t i = 0; i < seen.values.size(); ++i) {
    EXPECT_NEAR(seen.values[i], element(wanted, i, seen.columns), tolerance * largest) << "element " << i;
  }
}

}  // namespace engine
