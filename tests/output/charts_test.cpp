#include "tests/output/output_fixture.h"

namespace varmodel {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ChartsTest : public OutputFixture {
 protected:
  void requestCharts() {
    settings.plotTimeSeries = settings.plotAcf = settings.plotRes = settings.plotResComb = true;
    settings.plotResAcf = settings.plotFit = settings.plotForecast = true;
    ASSERT_EQ(run(), 0);
  }

  std::string columns(const std::string& name) { return jsonOf(item(name)["columns"]); }
  std::string line(const std::string& name, rapidjson::SizeType i) { return item(name)["vizl"][i].GetString(); }
};

TEST_F(ChartsTest, EveryChartHasItsColumnsAndSpecification) {
  requestCharts();
  EXPECT_EQ(jsonOf(item("Time Series -y")),
            R"x({"type":"chart","name":"Time Series -y",)x"
            R"x("columns":{"xdata":["Q1","Q2","Q3","Q4","Q5"],"ydata":[1.0,2.0,3.0,4.0,5.0]},"vizl":[)x"
            R"x("SOURCE: s = userSource(id(\"Vector Autoregressive Models\"))",)x"
            R"x("DATA: xdata  = col(source(s), name(\"xdata\"), unit.category())",)x"
            R"x("DATA: ydata  = col(source(s), name(\"ydata\"))","GRAPH: begin()","SCALE: cat(dim(1), sort.data())",)x"
            R"x("GUIDE: axis(dim(2),label(\"Values\"))","GUIDE: axis(dim(1),label(\"Date\"))",)x"
            R"x("GUIDE: text.title(label(\"Time Series -y\"))",)x"
            R"x("GUIDE: legend(aesthetic(aesthetic.color), label(\"Observed\"))",)x"
            R"x("ELEMENT: line(position(xdata*ydata), color(color.red), size(size.\"1\"))","GRAPH: end()"]})x");
  EXPECT_EQ(columns("Time Series -x"), R"({"xdata":["Q1","Q2","Q3","Q4","Q5"],"ydata":[10.0,20.0,30.0,40.0,50.0]})");
  EXPECT_EQ(columns("ACF -y"), R"({"xdata":["1","2"],"ydata":[0.51,0.52]})");
  EXPECT_EQ(line("ACF -y", 5), "SCALE: linear(dim(2), min(-1), max(1))");
  EXPECT_EQ(line("ACF -y", 6), "GUIDE: axis(dim(2),label(\"ACF\"))");
  EXPECT_EQ(line("ACF -y", 7), "GUIDE: axis(dim(1),label(\"Lag Number\"))");
  EXPECT_EQ(columns("ACF Residuals -y"), R"({"xdata":["1","2"],"ydata":[0.41,0.42]})");
  EXPECT_EQ(columns("Residuals -y"), R"({"xdata":["Q3","Q4","Q5"],"ydata":[-0.5,0.25,0.75]})");
  EXPECT_EQ(line("Residuals -y", 5), "GUIDE: axis(dim(2),label(\"Residuals\"))");
  EXPECT_THAT(line("Residuals -y", 9), HasSubstr("color(color.green)"));
  EXPECT_EQ(columns("Residuals"),
            R"({"xdata":["Q3","Q4","Q5","Q3","Q4","Q5"],"ydata":[-0.5,0.25,0.75,-50.0,25.0,75.0],)"
            R"("seriesname":["y","y","y","x","x","x"]})");
  EXPECT_EQ(line("Residuals", 6), "GUIDE: axis(dim(2),label(\"Residuals\"))") << "no colour line before it";
  EXPECT_EQ(columns("Fit Values -y"), R"({"xdata":["Q3","Q4","Q5","Q3","Q4","Q5"],"ydata":[3.0,4.0,5.0,3.5,4.5,5.5],)"
                                      R"("seriesname":["Observed","Observed","Observed","Fitted","Fitted","Fitted"]})");
  EXPECT_EQ(line("Fit Values -y", 6), "GUIDE: axis(dim(2),label(\"y\"))");
  EXPECT_EQ(columns("Forecast -x"),
            R"({"xdata":["Q3","Q4","Q5","Q3","Q4","Q5","Q6","Q7"],)"
            R"("ydata":[30.0,40.0,50.0,350.0,450.0,550.0,6100.0,6200.0],)"
            R"("seriesname":["Observed","Observed","Observed","Fitted","Fitted","Fitted","Forecast","Forecast"]})");
  EXPECT_EQ(line("Forecast -x", 6),
            "SCALE: cat(aesthetic(aesthetic.color), map((\"Fitted\", color.blue), (\"Forecast\", color.blue), "
            "(\"Observed\", color.red)))");
  EXPECT_EQ(line("Forecast -x", 7), "GUIDE: axis(dim(2),label(\"x\"))");
  EXPECT_EQ(trace,
            "Time series chart using date labels: Q1 to Q5\n"
            "Time series chart generated for variable 'y' with 5 observations\n"
            "Time series chart using date labels: Q1 to Q5\n"
            "Time series chart generated for variable 'x' with 5 observations\n"
            "ACF (endogenous) chart generated for variable 'y' with 2 lags\n"
            "ACF (endogenous) chart generated for variable 'x' with 2 lags\n"
            "ACF (residuals) chart generated for variable 'y' with 2 lags\n"
            "ACF (residuals) chart generated for variable 'x' with 2 lags\n"
            "Residuals chart generated for variable 'y' with 3 residuals\n"
            "Residuals chart generated for variable 'x' with 3 residuals\n"
            "Combined residuals chart generated with 6 data points across 2 variables\n"
            "Fit Values chart generated for variable 'y' with 3 observations\n"
            "Fit Values chart generated for variable 'x' with 3 observations\n"
            "Forecast chart generated for variable 'y' with 3 observed, 3 fitted, 2 forecast points\n"
            "Forecast chart generated for variable 'x' with 3 observed, 3 fitted, 2 forecast points\n");
}

TEST_F(ChartsTest, WhatHasNoNumbersIsLeftOutAndWhatHasNoDateIsCounted) {
  settings.timeAxis.historicalLabels.pop_back();
  settings.timeAxis.forecastLabels.pop_back();
  results[0].seriesACF.clear();
  results[0].forecasts.clear();
  results[0].residuals = {{}};
  results[1].seriesACF = {0.7};
  results[1].residualACF.clear();
  results[1].fittedValues.clear();
  requestCharts();
  EXPECT_THAT(itemNames(), ElementsAre("Time Series -y", "Time Series -x", "ACF -x", "ACF Residuals -y", "Residuals -x",
                                       "Residuals", "Fit Values -y", "Forecast -x"));
  EXPECT_EQ(columns("Time Series -x"), R"({"xdata":["1","2","3","4","5"],"ydata":[10.0,20.0,30.0,40.0,50.0]})");
  EXPECT_EQ(columns("ACF -x"), R"({"xdata":["1"],"ydata":[0.7]})");
  EXPECT_EQ(columns("Residuals -x"), R"({"xdata":["3","4","5"],"ydata":[-50.0,25.0,75.0]})");
  EXPECT_EQ(jsonOf(item("Forecast -x")["columns"]["xdata"]), R"(["3","4","5","Q6","F+2"])");
  EXPECT_EQ(trace,
            "Time series chart using numeric labels (no date info)\n"
            "Time series chart generated for variable 'y' with 5 observations\n"
            "Time series chart using numeric labels (no date info)\n"
            "Time series chart generated for variable 'x' with 5 observations\n"
            "Warning: No endogenous ACF values for variable 'y\n"
            "ACF (endogenous) chart generated for variable 'x' with 1 lags\n"
            "ACF (residuals) chart generated for variable 'y' with 2 lags\n"
            "Warning: No residuals ACF values for variable 'x\n"
            "Warning: No residuals available for variable 'y\n"
            "Residuals chart generated for variable 'x' with 3 residuals\n"
            "Warning: No residuals for variable 'y' in combined chart\n"
            "Combined residuals chart generated with 3 data points across 1 variables\n"
            "Fit Values chart generated for variable 'y' with 3 observations\n"
            "Warning: No predicted values for variable 'x\n"
            "Warning: No forecast values for variable 'y', skipping forecast chart\n"
            "Forecast chart generated for variable 'x' with 3 observed, 0 fitted, 2 forecast points\n");
  results[1].residuals.clear();
  requestCharts();
  EXPECT_THAT(itemNames(), testing::Not(testing::Contains("Residuals")));
  EXPECT_THAT(trace, HasSubstr("Error: VAROutputGen::generateResidualsCombinedChart - No data to plot\n"));
}

}  // namespace
}  // namespace varmodel
