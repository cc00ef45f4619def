// A saved file read back holds the numbers of the document, in every format alike.

#include <cmath>

#include "tests/dataset/temp_folder.h"
#include "tests/vardynamics/run_fixture.h"
#include "workbench/dataset/load.h"

namespace vardynamics {
namespace {

using testing::Pointwise;

const double kMissing = std::nan("");

// As tests compare them: missing is NaN.
std::vector<double> numbersOf(const workbench::Dataset& dataset, const std::string& name) {
  const int index = dataset.find(name);
  EXPECT_GE(index, 0) << name;
  if (index < 0) return {};
  std::vector<double> values = dataset.columns[static_cast<std::size_t>(index)].numbers;
  for (double& value : values) {
    if (value == workbench::kSystemMissing) value = kMissing;
  }
  return values;
}

auto sameAs(const std::vector<double>& wanted) {
  return Pointwise(testing::NanSensitiveDoubleEq(), wanted);
}

// 40 quarters from 2000Q1, the first of them incomplete, and two to come.
class SavedFile : public RunTest, public testing::WithParamInterface<const char*> {
 protected:
  void SetUp() override {
    session.baseFolder = folder.path();
    auto series = relatedSeries(42);
    series[0][0] = series[0][40] = series[1][40] = series[0][41] = series[1][41] = kMissing;
    columns({{"a", series[0]}, {"b", series[1]}, {"x", engine::noise(3, 42)}});
  }
  workbench::Dataset saved(const std::string& keywords) {
    const std::string file = std::string("r.") + GetParam();
    EXPECT_TRUE(run("VARDYNAMICS /MODEL ENDOGENOUS=a b EXOGENOUS=x LAG=2 /FORECAST /SAVE FILE='" + file + "' " +
                    keywords + " /AUXILIARY CILEVEL=80 97.5"))
        << firstError() << session.saveError.text();
    return workbench::loadDataset({.source = folder / file, .query = ""});
  }
  // A column of the forecast's table after so many periods without a value.
  std::vector<double> forecastColumn(const std::string& series, std::size_t column, std::size_t before) const {
    std::vector<double> values(before, kMissing);
    for (const auto& row : cells("Forecast - " + series)) values.push_back(row[column]);
    return values;
  }
};

TEST_P(SavedFile, HoldsTheForecastsOfTheDocument) {
  const workbench::Dataset dataset = saved("FORECASTS");
  const std::vector<std::string> endings = {"forecast", "se", "lower80", "upper80", "lower97.5", "upper97.5"};
  EXPECT_THAT(numbersOf(dataset, "row"), sameAs({41, 42}));
  EXPECT_THAT(numbersOf(dataset, "YEAR_"), sameAs({2010, 2010}));
  EXPECT_THAT(numbersOf(dataset, "QUARTER_"), sameAs({1, 2}));
  for (const std::string series : {"a", "b"}) {
    for (std::size_t i = 0; i < endings.size(); ++i) {
      EXPECT_THAT(numbersOf(dataset, series + "_" + endings[i]), sameAs(forecastColumn(series, i, 0))) << endings[i];
    }
  }
}

// With residuals the file begins with the sample, whose first p rows have none.
TEST_P(SavedFile, HoldsTheResidualsBesideTheRowsOfTheSample) {
  const workbench::Dataset dataset = saved("FORECASTS RESIDUALS");
  ASSERT_EQ(dataset.rowCount, 41u);  // rows 2 to 42
  EXPECT_EQ(numbersOf(dataset, "row").front(), 2);
  EXPECT_EQ(numbersOf(dataset, "QUARTER_").front(), 2);
  EXPECT_THAT(numbersOf(dataset, "a_forecast"), sameAs(forecastColumn("a", 0, 39)));
  std::vector<std::vector<double>> residuals;
  for (const std::string name : {"a_residual", "b_residual"}) {
    std::vector<double> values = numbersOf(dataset, name);
    for (const std::size_t row : {0u, 1u, 39u, 40u}) EXPECT_TRUE(std::isnan(values[row])) << row;
    residuals.emplace_back(values.begin() + 2, values.begin() + 39);
  }
  const double degrees = cells("Model Summary").back()[0];
  for (std::size_t i = 0; i < 2; ++i) {
    for (std::size_t j = 0; j < 2; ++j) {
      double product = 0.0;
      for (std::size_t r = 0; r < residuals[i].size(); ++r) product += residuals[i][r] * residuals[j][r];
      EXPECT_NEAR(cells("Residual Covariance")[i][j], product / degrees, 1e-13);
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Formats, SavedFile, testing::Values("csv", "parquet", "duckdb"));

// The remedy is in the command's words.
TEST_F(RunTest, TwoSavedColumnsOfOneNameAreRefused) {
  session.baseFolder = folder.path();
  const auto series = relatedSeries(40);
  columns({{"a", series[0]}, {"b", series[1]}});
  session.dataset.columns[static_cast<std::size_t>(session.dataset.find("QUARTER_"))].name = "a_residual";
  session.saveRemedies.equalNames = "rename one of the variables";
  EXPECT_FALSE(run("VARDYNAMICS /MODEL ENDOGENOUS=a b LAG=1 /SAVE FILE='r.csv' RESIDUALS"));
  EXPECT_EQ(session.saveError.text(),
            "two variables of the saved file would be named \"a_residual\": rename one of the variables.");
  EXPECT_THAT(folder.listing(), testing::IsEmpty());
}

}  // namespace
}  // namespace vardynamics
