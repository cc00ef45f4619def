// `fit`: the choice of the lag, the model and what follows from it, as one run.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <regex>
#include <sstream>

#include "document.h"
#include "program.h"

namespace {

using testing::AllOf;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

using Words = std::vector<std::string>;

class Fit : public testing::Test {
 protected:
  Fit() { space.example("us_macro_quarterly.csv"); }

  ProgramRun fit(const Words& more) {
    Words words = {"fit",          "us_macro_quarterly.csv",
                   "--endogenous", "realgdp",
                   "realcons",     "--start",
                   "year=1959",    "quarter=1",
                   "--maxlag",     "4"};
    words.insert(words.end(), more.begin(), more.end());
    words.insert(words.end(), {"--json", "out.json", "--html", "out.html"});
    return space.run(words);
  }
  OutputDocument document() const { return OutputDocument(space.read("out.json")); }
  std::vector<std::string> commands() const {
    const OutputDocument output = document();
    std::vector<std::string> texts;
    for (const auto& command : output.record()["run"]["commands"].GetArray())
      texts.push_back(command["text"].GetString());
    return texts;
  }

  Workspace space;
};

TEST_F(Fit, TellsTheWholeStoryOfOneModelWithOneForecast) {
  const ProgramRun seen = fit({"--predict", "3", "--save", "out.csv"});
  ASSERT_EQ(seen.exitCode, 0) << seen.err;
  EXPECT_EQ(seen.err, "");
  EXPECT_THAT(commands(),
              ElementsAre(AllOf(StartsWith("VARMODEL\n"), HasSubstr("MAXLAG=4")),
                          AllOf(StartsWith("VARMODEL\n"), HasSubstr("MINLAG=4 MAXLAG=4"), Not(HasSubstr("SAVE"))),
                          AllOf(StartsWith("VARDYNAMICS\n"), HasSubstr(" LAG=4\n"), HasSubstr("/FORECAST HORIZON=3\n"),
                                HasSubstr("RESIDUALS FORECASTS\n"))));
  const OutputDocument output = document();
  EXPECT_THROW(output.item("Forecast"), std::runtime_error) << "VARMODEL's table";
  EXPECT_EQ(output.cells("Forecast - realcons").size(), 3u);
  const auto model = output.cells("VAR Model Parameters - realgdp");
  const auto dynamics = output.cells("Parameters - realgdp");
  ASSERT_EQ(model.size(), dynamics.size());
  for (std::size_t i = 0; i < model.size(); ++i)
    EXPECT_NEAR(model[i][0], dynamics[i][0], 1e-9 * std::fabs(model[i][0]));
  EXPECT_THAT(space.read("out.csv"), StartsWith("row,YEAR_,QUARTER_,realgdp_residual,realgdp_forecast,"));
}

TEST_F(Fit, ShowsTheMainTablesAtFirstSightAndAllOnRequest) {
  const ProgramRun first = fit({"--predict", "3"});
  EXPECT_THAT(first.out, AllOf(StartsWith("At a Glance\n"), HasSubstr("\nGoodness of Fit"),
                               HasSubstr("\nForecast - realcons\n"), HasSubstr("--all"), Not(HasSubstr("VARMODEL\n")),
                               Not(HasSubstr("Parameters")), Not(HasSubstr("with --predict"))));
  std::istringstream lines(first.out);
  for (std::string line; std::getline(lines, line);) {
    const auto continued = std::count_if(line.begin(), line.end(), [](char c) { return (c & 0xC0) == 0x80; });
    EXPECT_LE(line.size() - static_cast<std::size_t>(continued), 80u) << line;
  }
  const ProgramRun all = fit({"--all"});
  EXPECT_THAT(all.out, AllOf(StartsWith("VARMODEL\n"), HasSubstr("\nVAR Model Parameters - realgdp"),
                             HasSubstr("\nGranger Causality"), HasSubstr("\nCommand 3\n")));
  EXPECT_THAT(fit({}).out, HasSubstr("Forecasts are made with --predict N."));
}

TEST_F(Fit, SaysWhyThisLagWhereTheReportBegins) {
  const auto opening = [&](const Words& words) {
    const std::string out = unwrapped(fit(words).out);
    EXPECT_THAT(out, Not(HasSubstr("was given. •")));
    return out.substr(0, out.find("Goodness"));
  };
  EXPECT_THAT(opening({}), HasSubstr("Lag 4 was chosen: it has the smallest BIC of the lags 1 to 4."));
  const std::string page = space.read("out.html");
  EXPECT_LT(page.find("Lag 4 was chosen: it has"), page.find("id=\"command-1\""));
  EXPECT_THAT(opening({"--select", "aic", "bic"}), HasSubstr("smallest AIC, BIC of the lags 1 to 4."));
  EXPECT_THAT(opening({"--lang", "de"}), HasSubstr("Verzögerung 4 wurde gewählt: "));
  const Words given = {"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--lag", "2"};
  EXPECT_THAT(space.run(given).out, HasSubstr("Lag 2 was given."));
}

TEST_F(Fit, KeepsTheModelWhereItsDynamicsFail) {
  const ProgramRun seen = fit({"--exogenous", "infl", "--predict", "3"});
  EXPECT_EQ(seen.exitCode, 1);
  EXPECT_THAT(seen.err, AllOf(HasSubstr("command 3: The forecast of 3 periods needs values of infl"),
                              HasSubstr("leave out --predict."), HasSubstr("give --model-only.")));
  EXPECT_THAT(seen.out, HasSubstr("Goodness of Fit"));
  EXPECT_EQ(fit({"--exogenous", "infl", "--predict", "3", "--model-only"}).exitCode, 0);
  EXPECT_THAT(commands(), Not(Contains(StartsWith("VARDYNAMICS"))));
  EXPECT_EQ(document().columnLabels("Forecast").size(), 3u);
}

}  // namespace
