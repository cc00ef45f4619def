#include "tests/engine/dynamics_fixture.h"

#include <Eigen/Dense>
#include <fstream>
#include <iomanip>
#include <numeric>
#include <sstream>

namespace engine {
namespace {

using Extended = Eigen::Matrix<long double, Eigen::Dynamic, Eigen::Dynamic>;

Extended designOf(const Example& model) {
  const FittedVar& fit = model.fit;
  const std::size_t n = model.series.front().size() - fit.firstRow;
  const std::size_t k = model.series.size();
  Extended z(n, (fit.constant ? 1 : 0) + fit.lag * k + model.known.size());
  for (std::size_t r = 0; r < n; ++r) {
    Eigen::Index c = 0;
    const auto row = static_cast<Eigen::Index>(r);
    if (fit.constant) z(row, c++) = 1.0L;
    for (std::size_t l = 1; l <= fit.lag; ++l) {
      for (const auto& series : model.series) z(row, c++) = series[fit.firstRow + r - l];
    }
    for (const auto& known : model.known) z(row, c++) = known[fit.firstRow + r];
  }
  return z;
}

Matrix rounded(const Extended& a) {
  Matrix result(static_cast<std::size_t>(a.rows()), static_cast<std::size_t>(a.cols()));
  for (std::size_t i = 0; i < result.rows; ++i) {
    for (std::size_t j = 0; j < result.columns; ++j) {
      result(i, j) = static_cast<double>(a(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j)));
    }
  }
  return result;
}

double element(const rapidjson::Value& list, std::size_t index, std::size_t columns) {
  if (!list[0].IsArray()) return list[static_cast<rapidjson::SizeType>(index)].GetDouble();
  return list[static_cast<rapidjson::SizeType>(index / columns)][static_cast<rapidjson::SizeType>(index % columns)]
      .GetDouble();
}

}  // namespace

Example fitted(SeriesList series, std::size_t lag, bool constant, SeriesList known) {
  Example model{std::move(series), std::move(known), {}};
  model.fit.lag = model.fit.firstRow = lag;
  model.fit.constant = constant;
  const Extended z = designOf(model);
  Extended y(z.rows(), model.series.size());
  for (Eigen::Index r = 0; r < y.rows(); ++r) {
    for (Eigen::Index i = 0; i < y.cols(); ++i) {
      y(r, i) = model.series[static_cast<std::size_t>(i)][lag + static_cast<std::size_t>(r)];
    }
  }
  const Eigen::HouseholderQR<Extended> qr(z);
  const Extended b = qr.solve(y);
  const Extended e = y - z * b;
  const Extended root = qr.matrixQR().topRows(z.cols()).triangularView<Eigen::Upper>();
  const Extended inverseRoot = root.triangularView<Eigen::Upper>().solve(Extended::Identity(z.cols(), z.cols()));
  model.fit.coefficients = rounded(b.transpose());
  model.fit.inverse = rounded(inverseRoot * inverseRoot.transpose());
  const Matrix residuals = rounded(e);
  for (std::size_t i = 0; i < residuals.columns; ++i) model.fit.residuals.push_back(columnOf(residuals, i));
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
