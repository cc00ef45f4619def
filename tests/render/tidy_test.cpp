#include "workbench/render/tidy_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/render/render_fixture.h"

namespace workbench {
namespace {

const TidyShape kCoefficients{.id = "parameters", .file = "coefficients", .subject = "equation", .rows = "term"};
const TidyShape kForecast{.id = "forecast", .file = "forecasts", .subject = "response", .rows = "period"};
const TidyShape kForecasts{.id = "forecast", .file = "forecasts", .rows = "period", .groups = "response"};
const TidyShape kShares{.id = "shares",
                        .file = "shares",
                        .subject = "response",
                        .rows = "horizon",
                        .groups = "shock",
                        .shared = 1,
                        .mark = "type",
                        .marked = "orthogonal"};

// A table with these columns, as JSON, and cells, read as the shapes say; the text of the only file that came of it.
std::string tidy(const std::string& id, const std::string& columns, const std::string& rows, const std::string& cells,
                 const Language& language = {}) {
  TidyFiles files(language);
  const std::string json =
      R"({"type": "table", "columns": )" + columns + R"(, "rows": )" + rows + R"(, "cells": )" + cells + "}";
  files.add(id, tableFromJson(json, language), {{kCoefficients, kForecast, kForecasts, kShares}, 90}, "P", 2);
  const auto texts = files.texts();
  EXPECT_EQ(texts.size(), 1U);
  return texts.begin()->first + "\r\n" + texts.begin()->second;
}

TEST(Tidy, CoefficientsHaveTheColumnsThatProgramsKnowInEveryLanguage) {
  const std::string cells = "[[0.1, 2, -0.05, 1e-300, null, 0.3]]";
  const std::string wanted =
      "coefficients\r\nequation,term,estimate,std.error,statistic,p.value,conf.low,conf.high,procedure,command\r\n"
      "\"a,b\",x(t-1),0.1,2,-0.05,1e-300,,0.3,P,2\r\n";
  EXPECT_EQ(tidy("parameters:a,b",
                 R"([{"label": "Coefficient"}, {"label": "Std. Error"}, {"label": "t"}, {"label": "Sig."},
                     {"label": "95% Lower"}, {"label": "95% Upper"}])",
                 R"x(["x(t-1)"])x", cells),
            wanted);
  const Language german("de", MessageCatalogue({{"Coefficients", "Koeffizienten"},
                                                {"Standard Error", "Standardfehler"},
                                                {"^1 CI Lower", "^1-KI unten"},
                                                {"^1 CI Upper", "^1-KI oben"}}));
  EXPECT_EQ(tidy("parameters:a,b",
                 R"([{"label": "Koeffizienten"}, {"label": "Standardfehler"}, {"label": "t"}, {"label": "Sig."},
                     {"label": "99,5%-KI unten"}, {"label": "99,5%-KI oben"}])",
                 R"x(["x(t-1)"])x", cells, german),
            wanted);
}

TEST(Tidy, LimitsAtSeveralLevelsAreARowEach) {
  EXPECT_EQ(tidy("forecast:y",
                 R"([{"label": "Forecast"}, {"label": "68% Lower"}, {"label": "68% Upper"}, {"label": "99.5% Lower"},
                     {"label": "99.5% Upper"}, {"label": "Unconditional"}])",
                 R"(["2001Q1"])", "[[5, 4, 6, 3, 7, 5.5]]"),
            "forecasts\r\n"
            "response,period,estimate,std.error,conf.level,conf.low,conf.high,unconditional,procedure,command\r\n"
            "y,2001Q1,5,,68,4,6,5.5,P,2\r\ny,2001Q1,5,,99.5,3,7,5.5,P,2\r\n");
  const Language german("de", MessageCatalogue({{"Forecast", "Prognose"}, {"^1 Lower", "^1 unten"}}));
  EXPECT_THAT(
      tidy("forecast:y", R"([{"label": "Prognose"}, {"label": "99,5 % unten"}])", R"(["1"])", "[[5, 4]]", german),
      testing::EndsWith("\r\ny,1,5,,99.5,4,,,P,2\r\n"));
}

TEST(Tidy, ColumnsThatAreSeriesBecomeRows) {
  EXPECT_EQ(
      tidy("forecast", R"([{"label": "Forecast"}, {"label": "Std. Error"}])", R"(["1", "2"])", "[[1, 2], [3, null]]"),
      "forecasts\r\n"
      "response,period,estimate,std.error,conf.level,conf.low,conf.high,unconditional,procedure,command\r\n"
      "Forecast,1,1,,,,,,P,2\r\nStd. Error,1,2,,,,,,P,2\r\nForecast,2,3,,,,,,P,2\r\n")
      << "a missing cell gives no row";
  EXPECT_EQ(tidy("shares:y",
                 R"([{"label": "Std. Error"}, {"label": "x", "children": ["Share", "Lower", "Upper"]},
                     {"label": "y", "children": ["Share", "Lower", "Upper"]}])",
                 R"(["4"])", "[[0.5, 30, 20, 40, 70, 60, 80]]"),
            "shares\r\n"
            "response,shock,type,horizon,estimate,conf.level,conf.low,conf.high,std.error,procedure,command\r\n"
            "y,x,orthogonal,4,30,90,20,40,0.5,P,2\r\ny,y,orthogonal,4,70,90,60,80,0.5,P,2\r\n");
}

TEST(Tidy, WhatHasNoShapeOrNoPlaceIsWrittenCellByCell) {
  const std::string head = "values\r\ntable,variable,row,group,column,value,procedure,command\r\n";
  EXPECT_EQ(
      tidy("roots", R"([{"label": "Test", "children": ["df"]}, {"label": "Modulus"}])", R"(["1"])", "[[3, null]]"),
      head + "roots,,1,Test,df,3,P,2\r\nroots,,1,,Modulus,,P,2\r\n");
  EXPECT_EQ(tidy("parameters:y", R"([{"label": "Coefficient"}, {"label": "Beta"}])", R"(["x"])", "[[1, 2]]"),
            head + "parameters,y,x,,Coefficient,1,P,2\r\nparameters,y,x,,Beta,2,P,2\r\n");
}

}  // namespace
}  // namespace workbench
