#include "workbench/report/vega_lite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "procedures/common/chart_specification.h"
#include "workbench/report/chart_description.h"
#include "workbench/report/column_store.h"

namespace workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;

class VegaLite : public ::testing::Test {
 protected:
  // The chart of a kind over columns given as JSON.
  void read(std::int32_t kind, const char* columns) {
    procedures::ChartDescription chart;
    chart.xAxisLabel = "Date";
    chart.yAxisLabel = "Share";
    chart.kind = kind;
    columns_.Parse(columns);
    spec_ = parseVizl(procedures::chartSpecification(chart, "s", "Title"), columnNames(columns_, "seriesname"));
    data_ = readChartData(columns_, spec_);
  }

  rapidjson::Document columns_;
  ChartSpec spec_;
  ChartData data_;
};

constexpr const char* kForecast =
    R"({"xdata": ["1959Q1", "1959Q2", "1959Q1", "1959Q2", "1959Q3"], "ydata": [1, 2, 1.5, null, 9],
        "seriesname": ["Observed", "Observed", "Fitted", "Fitted", "Forecast"]})";

TEST_F(VegaLite, KeepsCategoriesAndSeriesInTheOrderOfTheData) {
  read(procedures::kSeriesLines, kForecast);
  EXPECT_THAT(data_.categories, ElementsAre("1959Q1", "1959Q2", "1959Q3"));
  ASSERT_EQ(data_.series.size(), 3U);
  EXPECT_EQ(data_.series[1].name, "Fitted");
  EXPECT_THAT(data_.series[1].x, ElementsAre(0U, 1U));
  EXPECT_TRUE(std::isnan(data_.series[1].y[1]));
  EXPECT_THAT(data_.series[2].x, ElementsAre(2U));
  EXPECT_TRUE(data_.series[2].contiguous());

  read(procedures::kLineChart, R"({"xdata": ["b", "c", "a"], "ydata": [1, 2, 3]})");
  EXPECT_THAT(data_.categories, ElementsAre("b", "c", "a"));
  spec_.dataOrder = false;
  data_ = readChartData(columns_, spec_);
  EXPECT_THAT(data_.categories, ElementsAre("a", "b", "c"));
  EXPECT_THAT(data_.series[0].x, ElementsAre(1U, 2U, 0U));
  EXPECT_FALSE(data_.series[0].contiguous());
}

TEST_F(VegaLite, ChoosesScientificNumbersForTheVeryLargeAndSmall) {
  for (const auto& [value, scientific] :
       {std::pair{"12990.3", false}, {"0", false}, {"0.001", false}, {"2e9", true}, {"-3e-7", true}}) {
    read(0, (R"({"xdata": ["1"], "ydata": [)" + std::string(value) + "]}").c_str());
    const rapidjson::Value chart = vegaLite(spec_, data_, 7, "words", columns_.GetAllocator());
    EXPECT_EQ(chart["encoding"]["y"]["axis"].HasMember("format"), scientific) << value;
  }
}

TEST_F(VegaLite, SaysWhyThereIsNothingToDraw) {
  const std::pair<const char*, const char*> cases[] = {
      {R"({"ydata": [1]})", "no data column 'xdata'"},
      {R"({"xdata": ["1"], "ydata": 3})", "no data column 'ydata'"},
      {R"({"xdata": ["1"], "ydata": [1]})", "no data column 'seriesname'"},
      {R"({"xdata": [], "ydata": [], "seriesname": []})", "no points"},
      {"[]", "no data column"},
  };
  for (const auto& [columns, problem] : cases) {
    read(procedures::kSeriesLines, columns);
    EXPECT_THAT(data_.problem, HasSubstr(problem));
    EXPECT_THAT(describeChart(spec_, data_), HasSubstr(problem));
  }
  read(9, R"({"xdata": ["1"], "ydata": [1]})");
  EXPECT_THAT(data_.problem, HasSubstr("nothing to draw"));
}

TEST_F(VegaLite, NamesSeriesApartThatLookAlike) {
  read(procedures::kSeriesLines, "{\"xdata\": [\"1\", \"1\"], \"ydata\": [1, 2], \"seriesname\": [\"\\u0001\", \"^A\"]}");
  ASSERT_EQ(data_.series.size(), 2U);
  EXPECT_EQ(data_.series[0].name, "^A");
  EXPECT_EQ(data_.series[1].name, "^A (2)");
}

TEST_F(VegaLite, DescribesTheNumbers) {
  read(procedures::kSeriesLines, kForecast);
  EXPECT_EQ(describeChart(spec_, data_),
            "Line chart: Title. Share by Date, 1959Q1 to 1959Q3. Observed: 2 values from 1 at 1959Q1 to 2 at 1959Q2; "
            "lowest 1 at 1959Q1, highest 2 at 1959Q2. Fitted: 1.5 at 1959Q1. Forecast: 9 at 1959Q3.");
  EXPECT_THAT(describeChart(spec_, data_, {","}), HasSubstr("Fitted: 1,5 at 1959Q1."));
}

TEST(ColumnStore, HoldsEqualColumnsOnceAndDoublesInFull) {
  ColumnStore store;
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(store.add(std::vector<double>{0.1, nan, 1e300}), 0U);
  EXPECT_EQ(store.add(std::vector<std::string>{"</script>"}), 1U);
  EXPECT_EQ(store.add(std::vector<double>{0.1, nan, 1e300}), 0U);
  EXPECT_EQ(store.json(), "[[0.1,null,1e+300],\n[\"\\u003c/script\\u003e\"]]");
}

}  // namespace
}  // namespace workbench
