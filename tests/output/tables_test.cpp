#include "tests/output/output_fixture.h"

namespace varmodel {
namespace {

class TablesTest : public OutputFixture {
 protected:
  // Compares a table with its JSON text after the title.
  void expectTable(const std::string& name, const std::string& rest) {
    SCOPED_TRACE(name);
    EXPECT_EQ(jsonOf(item(name)), R"({"type":"table","name":")" + name + R"(","title":")" + name + "\"," + rest);
  }

  std::string member(const std::string& table, const char* name) { return jsonOf(item(table)[name]); }
};

TEST_F(TablesTest, EveryTableHasItsLabelsCellsAndFormats) {
  requestEverything();
  settings.ciLevel = 97.5;
  algo.residualCovarianceDeterminant = 2.0 / 3.0;
  ASSERT_EQ(run(), 0);
  const std::string variables = R"x("rowDimension":{"label":"Variable","shown":true},)x";
  const std::string statistics = R"x("columnDimension":{"label":"Statistics","shown":false},)x";
  const std::string unnamed = variables + R"x("columnDimension":{"label":" ","shown":false},)x";
  const std::string names = R"x("columns":[{"label":"y"},{"label":"x"}],"rows":["y","x"],)x";
  const std::string threeDecimals = R"x("cellFormat":{"type":5,"width":10,"decimals":3})x";
  const std::string fourDecimals = R"x("cellFormat":{"type":5,"width":10,"decimals":4})x";
  const std::string widths = R"x(,"columnWidth":{"min":100,"max":300}})x";
  expectTable("Descriptive Statistics",
              variables + statistics +
                  R"x("columns":[{"label":"N"},{"label":"Mean"},{"label":"Std. Deviation"},{"label":"Minimum"},)x"
                  R"x({"label":"Maximum"}],"rows":["y","x"],)x"
                  R"x("cells":[[5.0,11.0,12.0,13.0,14.0],[5.0,1100.0,1200.0,1300.0,1400.0]],)x" +
                  threeDecimals + R"x(,"columnFormats":{"0":{"type":5,"width":10,"decimals":0}})x" + widths);
  expectTable("Goodness of Fit",
              R"x("titleFootnotes":[0],)x"
              R"x("footnotes":["Optimal lag:  1 .AIC : Lag 2 , BIC : Lag 1 , HQIC : Lag 1"],)x"
              R"x("rowDimension":{"label":"Lag Order","shown":true},)x"
              R"x("columnDimension":{"label":"Criteria","shown":false},)x"
              R"x("columns":[{"label":"Log Likelihood"},{"label":"AIC"},{"label":"BIC"},{"label":"HQIC"}],)x"
              R"x("rows":["Lag 1","Lag 2"],"cells":[[-10.0,1.0,3.0,5.0],[-9.0,2.0,4.0,6.0]],)x" +
                  threeDecimals + "}");
  expectTable("VAR Model Parameters - y",
              variables + statistics +
                  R"x("columns":[{"label":"Coefficients"},{"label":"Standard Error"},{"label":"t"},{"label":"Sig."},)x"
                  R"x({"label":"97.5% CI Lower"},{"label":"97.5% CI Upper"}],)x"
                  R"x("rows":["Constant","y(t-1)","x(t-1)","y(t-2)","x(t-2)"],)x"
                  R"x("cells":[[1.0,2.0,3.0,4.0,5.0,6.0],[1.1,2.1,3.1,4.1,5.1,6.1],[1.2,2.2,3.2,4.2,5.2,6.2],)x"
                  R"x([1.3,2.3,3.3,4.3,5.3,6.3],[1.4,2.4,3.4,4.4,5.4,6.4]],)x" +
                  fourDecimals + "}");
  EXPECT_EQ(item("VAR Model Parameters - x")["cells"][4][5].GetDouble(), results[1].upperLimits[0][4]);
  expectTable("Correlation Matrix of Residuals",
              R"x("titleShown":true,"titleFootnotes":[0],)x"
              R"x("footnotes":["Eigen Values of Residual Correlation Matrix  : 1.500000, 0.500000"],)x" +
                  unnamed + names + R"x("cells":[[1.0,0.5],[0.5,1.0]],)x" + fourDecimals + widths);
  expectTable("Covariance Matrix of Residuals",
              R"x("titleShown":true,"titleFootnotes":[0],)x"
              R"x("footnotes":["Determinant of Residual Covariance matrix is 0.666667"],)x" +
                  unnamed + names + R"x("cells":[[4.0,1.0],[1.0,9.0]],)x" + threeDecimals + widths);
  expectTable("Model Fit Statistics",
              R"x("titleShown":true,)x" + unnamed +
                  R"x("columns":[{"label":"Residual Sum of Squares"},{"label":"R Square"},)x"
                  R"x({"label":"Adjusted R Square"},{"label":"MSE"},{"label":"RMSE"},{"label":"MAE"},)x"
                  R"x({"label":"MAPE"}],"rows":["y","x"],"cells":[[21.0,22.0,23.0,24.0,25.0,26.0,27.0],)x"
                  R"x([2100.0,2200.0,2300.0,2400.0,2500.0,2600.0,2700.0]],)x" +
                  threeDecimals + widths);
  expectTable("Test for Residuals",
              R"x("titleShown":true,)x" + unnamed +
                  R"x("columns":[{"label":"Test for Autocorrelation of Residuals",)x"
                  R"x("children":["Ljung-Box Statistic","df","Sig."]},{"label":"Test for Normality of Residuals",)x"
                  R"x("children":["Jarque-Bera Statistic","Sig."]},{"label":"Residual ACF"}],"rows":["y","x"],)x"
                  R"x("cells":[[31.0,15.0,32.0,33.0,34.0,0.41],[3100.0,15.0,3200.0,3300.0,3400.0,41.0]],)x" +
                  threeDecimals + widths);
  expectTable("Forecast", R"x("titleShown":true,)x" + variables +
                              R"x("columnDimension":{"label":"Forecast","shown":true},)x"
                              R"x("columns":[{"label":"Q6"},{"label":"Q7"}],"rows":["y","x"],)x"
                              R"x("cells":[[61.0,62.0],[6100.0,6200.0]],)x" +
                              threeDecimals + widths);
}

TEST_F(TablesTest, TablesHoldWhatIsRequestedOfThem) {
  settings.showGoodFit = settings.useHqic = settings.showParameters = settings.showCorrMatrix = true;
  settings.showRSquare = settings.showMae = settings.showTestNormality = true;
  settings.exogenousNames = {"oil", "war"};
  results[0].coefficients[0].insert(results[0].coefficients[0].end(), {7.0, 8.0});
  results[1].residualACF.clear();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(member("Goodness of Fit", "columns"), R"x([{"label":"Log Likelihood"},{"label":"HQIC"}])x");
  EXPECT_EQ(member("Goodness of Fit", "cells"), "[[-10.0,5.0],[-9.0,6.0]]");
  EXPECT_EQ(member("Goodness of Fit", "footnotes"), R"x(["Optimal lag:  1 ., HQIC : Lag 1"])x");
  EXPECT_EQ(member("VAR Model Parameters - y", "rows"),
            R"x(["Constant","y(t-1)","x(t-1)","y(t-2)","x(t-2)","oil","war"])x");
  EXPECT_EQ(item("VAR Model Parameters - y")["cells"][6][0].GetDouble(), 8.0);
  EXPECT_FALSE(item("Correlation Matrix of Residuals").HasMember("footnotes"));
  EXPECT_EQ(member("Model Fit Statistics", "cells"), "[[22.0,26.0],[2200.0,2600.0]]");
  EXPECT_EQ(member("Test for Residuals", "columns"),
            R"x([{"label":"Test for Normality of Residuals","children":["Jarque-Bera Statistic","Sig."]},)x"
            R"x({"label":"Residual ACF"}])x");
  EXPECT_EQ(member("Test for Residuals", "cells"), "[[33.0,34.0,0.41],[3300.0,3400.0,0.0]]");
  algo.residualCovariance.clear();
  ASSERT_EQ(run(), 0);
  EXPECT_THAT(itemNames(), testing::Not(testing::Contains(testing::HasSubstr("Matrix"))));
}

TEST_F(TablesTest, ForecastTakesDatesOrElsePeriods) {
  settings.showForecasts = true;
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(trace, "Forecast for y: 61, 62\nForecast for x: 6100, 6200\n");
  settings.timeAxis.forecastLabels.pop_back();
  results[0].forecasts.clear();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(member("Forecast", "columns"), R"x([{"label":"Period 1"},{"label":"Period 2"}])x");
  EXPECT_EQ(member("Forecast", "cells"), "[[0.0,0.0],[6100.0,6200.0]]");
  EXPECT_EQ(trace,
            "Warning: Using generic period labels. forecastDates size: 1, forecastHorizon: 2\n"
            "Warning: No forecast values for y\n"
            "Forecast for x: 6100, 6200\n");
  results[1].forecasts.clear();
  ASSERT_EQ(run(), 0);
  EXPECT_EQ(items().Size(), 0u);
  EXPECT_EQ(trace, "VAROutputGen::generateForecastTable - No forecast values available, skipping table\n");
}

}  // namespace
}  // namespace varmodel
