#include "workbench/report/vega_lite.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "output/chart_specification.h"
#include "workbench/report/chart_description.h"
#include "workbench/report/column_store.h"

namespace workbench {
namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;

class VegaLite : public ::testing::Test {
 protected:
  // The chart of a kind over columns given as JSON.
  void read(std::int32_t kind, const char* columns, std::map<std::string, std::string> colors = {}) {
    varmodel::ChartDescription chart;
    chart.xAxisLabel = "Date";
    chart.yAxisLabel = "Share";
    chart.kind = kind;
    chart.seriesColors = std::move(colors);
    columns_.Parse(columns);
    ASSERT_FALSE(columns_.HasParseError());
    spec_ = parseVizl(varmodel::chartSpecification(chart, "s", "Title"), columnNames(columns_, "seriesname"));
    data_ = readChartData(columns_, spec_);
  }

  const rapidjson::Value& build() {
    json_ = vegaLite(spec_, data_, 7, "words", pool_.GetAllocator());
    return json_;
  }

  std::vector<std::string> texts(const rapidjson::Value& array) {
    std::vector<std::string> out;
    for (const auto& text : array.GetArray()) out.emplace_back(text.GetString());
    return out;
  }

  rapidjson::Document columns_;
  rapidjson::Document pool_;
  rapidjson::Value json_;
  ChartSpec spec_;
  ChartData data_;
};

constexpr const char* kForecast =
    R"({"xdata": ["1959Q1", "1959Q2", "1959Q1", "1959Q2", "1959Q3"], "ydata": [1, 2, 1.5, null, 9],
        "seriesname": ["Observed", "Observed", "Fitted", "Fitted", "Forecast"]})";

TEST_F(VegaLite, KeepsCategoriesAndSeriesInTheOrderOfTheData) {
  read(varmodel::kSeriesLines, kForecast);
  EXPECT_THAT(data_.categories, ElementsAre("1959Q1", "1959Q2", "1959Q3"));
  ASSERT_EQ(data_.series.size(), 3U);
  EXPECT_EQ(data_.series[1].name, "Fitted");
  EXPECT_THAT(data_.series[1].x, ElementsAre(0U, 1U));
  EXPECT_TRUE(std::isnan(data_.series[1].y[1]));
  EXPECT_THAT(data_.series[2].x, ElementsAre(2U));
  EXPECT_TRUE(data_.series[2].contiguous());

  read(varmodel::kLineChart, R"({"xdata": ["b", "c", "a"], "ydata": [1, 2, 3]})");
  EXPECT_THAT(data_.categories, ElementsAre("b", "c", "a"));
  spec_.dataOrder = false;
  data_ = readChartData(columns_, spec_);
  EXPECT_THAT(data_.categories, ElementsAre("a", "b", "c"));
  EXPECT_THAT(data_.series[0].x, ElementsAre(1U, 2U, 0U));
  EXPECT_FALSE(data_.series[0].contiguous());
}

TEST_F(VegaLite, GivesSeriesTheirColorsAndTellsEqualOnesApart) {
  read(varmodel::kSeriesLines, kForecast,
       {{"Observed", "color.red"}, {"Fitted", "color.blue"}, {"Forecast", "color.blue"}});
  const auto& chart = build();
  const auto& scale = chart["encoding"]["color"]["scale"];
  EXPECT_THAT(texts(scale["domain"]), ElementsAre("Observed", "Fitted", "Forecast"));
  EXPECT_THAT(texts(scale["range"]), ElementsAre("var(--chart-red)", "var(--chart-blue)", "var(--chart-blue)"));
  const auto& dashes = chart["layer"][0]["encoding"]["strokeDash"]["scale"]["range"];
  EXPECT_EQ(dashes[0].Size(), 0U);
  EXPECT_EQ(dashes[1].Size(), 0U);
  EXPECT_EQ(dashes[2].Size(), 2U);
  EXPECT_STREQ(chart["encoding"]["color"]["legend"]["title"]["signal"].GetString(), "chartText(7, 'legendTitle')");

  read(varmodel::kSeriesLines, kForecast);  // no map: the palette, solid lines
  const auto& plain = build();
  EXPECT_THAT(texts(plain["encoding"]["color"]["scale"]["range"]),
              ElementsAre("var(--chart-1)", "var(--chart-2)", "var(--chart-3)"));
  EXPECT_FALSE(plain["layer"][0].HasMember("encoding"));
}

TEST_F(VegaLite, DrawsEveryElement) {
  constexpr const char* kColumns = R"({"xdata": ["1", "2"], "ydata": [0.5, -0.25], "seriesname": ["a", "a"]})";
  const std::pair<std::int32_t, const char*> cases[] = {{0, "line"}, {1, "bar"}, {2, "area"}, {3, "line"}, {4, "line"}};
  for (const auto& [kind, mark] : cases) {
    SCOPED_TRACE(kind);
    read(kind, kColumns);
    const auto& chart = build();
    EXPECT_STREQ(chart["layer"][0]["mark"]["type"].GetString(), mark);
    EXPECT_STREQ(chart["encoding"]["x"]["axis"]["title"]["signal"].GetString(), "chartText(7, 'xLabel')");
    EXPECT_STREQ(chart["encoding"]["y"]["axis"]["title"]["signal"].GetString(), "chartText(7, 'yLabel')");
    EXPECT_STREQ(chart["title"]["text"]["signal"].GetString(), "chartText(7, 'title')");
    EXPECT_STREQ(chart["description"].GetString(), "words");
    EXPECT_EQ(chart["params"][1]["value"].GetDouble(), 1.5);  // the last place and a half
    EXPECT_EQ(chart["encoding"]["y"]["scale"].HasMember("domain"), kind == 1);
  }
}

TEST_F(VegaLite, ChoosesScientificNumbersForTheVeryLargeAndSmall) {
  const std::pair<const char*, bool> cases[] = {
      {"12990.3", false}, {"0", false}, {"0.001", false}, {"2e9", true}, {"-3e-7", true}};
  for (const auto& [value, scientific] : cases) {
    SCOPED_TRACE(value);
    read(0, (R"({"xdata": ["1"], "ydata": [)" + std::string(value) + "]}").c_str());
    EXPECT_EQ(build()["encoding"]["y"]["axis"].HasMember("format"), scientific);
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
    read(varmodel::kSeriesLines, columns);
    EXPECT_THAT(data_.problem, HasSubstr(problem));
    EXPECT_THAT(describeChart(spec_, data_), HasSubstr(problem));
  }
  read(9, R"({"xdata": ["1"], "ydata": [1]})");
  EXPECT_THAT(data_.problem, HasSubstr("nothing to draw"));
}

TEST_F(VegaLite, NamesSeriesApartThatLookAlike) {
  read(varmodel::kSeriesLines, "{\"xdata\": [\"1\", \"1\"], \"ydata\": [1, 2], \"seriesname\": [\"\\u0001\", \"^A\"]}");
  ASSERT_EQ(data_.series.size(), 2U);
  EXPECT_EQ(data_.series[0].name, "^A");
  EXPECT_EQ(data_.series[1].name, "^A (2)");
}

TEST_F(VegaLite, DescribesTheNumbers) {
  read(varmodel::kSeriesLines, kForecast);
  const std::string words = describeChart(spec_, data_);
  EXPECT_EQ(words,
            "Line chart: Title. Share by Date, 1959Q1 to 1959Q3. Observed: 2 values from 1 at 1959Q1 to 2 at 1959Q2; "
            "lowest 1 at 1959Q1, highest 2 at 1959Q2. Fitted: 1.5 at 1959Q1. Forecast: 9 at 1959Q3.");
}

TEST_F(VegaLite, DescribesInTheLocale) {
  read(varmodel::kSeriesLines, kForecast);
  const std::string words = describeChart(spec_, data_, {.decimalSeparator = ","});
  EXPECT_THAT(words, HasSubstr("Fitted: 1,5 at 1959Q1."));
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
