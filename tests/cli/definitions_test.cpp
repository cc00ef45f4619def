// Where a table's definition is not what a reader assumes, a note below it says so, in the terminal and in the report.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <regex>

#include "document.h"
#include "program.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

int count(const std::string& text, const std::string& part) {
  int found = 0;
  for (auto at = text.find(part); at != std::string::npos; at = text.find(part, at + 1)) ++found;
  return found;
}

// What stands below the table with this title, up to the next blank line.
std::string below(const std::string& out, const std::string& title) {
  const auto begin = out.find("\n" + title);
  return begin == std::string::npos ? "" : unwrapped(out.substr(begin, out.find("\n\n", begin) - begin));
}

class Definitions : public testing::Test {
 protected:
  Definitions() { space.example("us_macro_quarterly.csv"); }

  ProgramRun run(const std::string& model, const std::string& keywords, const std::string& toml,
                 std::vector<std::string> options = {}) {
    space.file("job.toml", "command = '''\nVARMODEL PREDICT\n/MODEL " + model +
                               "\n/METHOD TYPE=[OLS]\n/MODELSTATISTICS MODELFIT=[" + keywords +
                               "]\n'''\n[data]\nsource = \"us_macro_quarterly.csv\"\n" + toml);
    options.insert(options.begin(), {"run", "job.toml", "--json", "out.json", "--html", "out.html"});
    return space.run(options);
  }

  Workspace space;
};

const std::string everything =
    "PARAMETERS RSQUARE ARSQUARE MSE RMSE MAE MAPE RESIDACF TNORM TAUTO FORECASTS CORRMATRIX EIGEN";
const std::string forecast = "[dates]\nstart = { year = 1959, quarter = 1 }\n[predict]\nthru = 206\n";

TEST_F(Definitions, StandOnceBelowTheirTable) {
  const ProgramRun seen =
      run("ENDOGENOUS=realgdp realcons EXOGENOUS=realinv LAG=[BIC] MINLAG=1 MAXLAG=5", everything, forecast);
  ASSERT_EQ(seen.exitCode, 0) << seen.err;
  const OutputDocument document(space.read("out.json"));
  const auto tests = document.cells("Test for Residuals");
  char tail[32];
  std::snprintf(tail, sizeof tail, "%.1e", std::exp(-tests[1][3] / 2));
  const std::vector<std::pair<std::string, std::string>> notes = {
      {"VAR Model Parameters - realgdp",
       "Student's t with 186 degrees of freedom, the confidence limits from the normal"},
      {"Model Fit Statistics",
       "counts all 203 rows of the sample, not the 198 that are regressed. Exogenous variables"},
      {"Model Fit Statistics",
       "0 stands for not computed in MSE, RMSE, MAE, MAPE: they are computed only when the "
       "selected lag (2) is MAXLAG (5)."},
      {"Test for Residuals", "Ljung-Box test is taken with 4 degrees of freedom"},
      {"Test for Residuals", std::string("is 10 or more. The tail of its distribution is: realcons ") + tail + "."},
      {"Forecast\n", "The exogenous terms are not part of the forecasts"}};
  const std::string page = std::regex_replace(space.read("out.html"), std::regex("&#39;"), "'");
  for (const auto& [table, note] : notes) {
    EXPECT_THAT(below(seen.out, table), HasSubstr(note)) << table;
    EXPECT_EQ(count(unwrapped(seen.out), note), 1) << note;
    EXPECT_EQ(count(page, note), 1) << note;
  }
  // What the notes say is so: df is 2 less, Sig. that of 4; the statistic of realcons is above 10.
  const double q = tests[0][0];
  EXPECT_EQ(tests[0][1], 2);
  EXPECT_NEAR(tests[0][2], std::exp(-q / 2) * (1 + q / 2), 1e-12);
  EXPECT_GE(tests[1][3], 10);
  EXPECT_EQ(tests[1][4], 1e-6);
  EXPECT_EQ(document.cells("Model Fit Statistics")[0][2], 0);
  EXPECT_EQ(document.cells("VAR Model Parameters - realgdp").size(), 12u);  // 203 - 5 - 12 = 186
}

TEST_F(Definitions, ThatDoNotMatterAreNotMentioned) {
  // One lag of yearly data: as many autocorrelations as df shown. No measure is 0.
  const ProgramRun seen =
      run("ENDOGENOUS=realgdp realcons LAG=[BIC] MINLAG=1 MAXLAG=1", "PARAMETERS RSQUARE MSE TAUTO FORECASTS",
          "query = \"SELECT * FROM source WHERE quarter = 1 ORDER BY year\"\n[dates]\nvariables = { "
          "year = \"year\" }\n[predict]\nthru = { year = 2011 }\n");
  ASSERT_EQ(seen.exitCode, 0) << seen.err;
  EXPECT_EQ(count(seen.out, "note: "), 1) << seen.out;
  EXPECT_THAT(below(seen.out, "VAR Model Parameters - realgdp"), HasSubstr("Student's t with 47 degrees"));
}

TEST_F(Definitions, AreGermanInGermanRuns) {
  const ProgramRun seen = run("ENDOGENOUS=realgdp realcons EXOGENOUS=realinv LAG=[BIC] MINLAG=1 MAXLAG=5", everything,
                              forecast, {"--lang", "de"});
  EXPECT_THAT(unwrapped(seen.out),
              AllOf(HasSubstr("Student-t-Verteilung mit 186 Freiheitsgraden"), HasSubstr("alle 203 Zeilen"),
                    HasSubstr("0 steht bei MSE, RMSE, MAE, MAPE für „nicht berechnet“"),
                    HasSubstr("beim Ljung-Box-Test wird mit 4 Freiheitsgraden"),
                    testing::ContainsRegex("realcons [0-9],[0-9]e-0"), HasSubstr("exogenen Terme")));
}

std::string summaryOf(const std::string& out) {
  return out.substr(out.find("VAR MODEL RESULTS SUMMARY"));
}

TEST_F(Definitions, SummaryIsFollowedByTheColumnsThatWereNotComputed) {
  const std::string model = "ENDOGENOUS=realgdp realcons LAG=[BIC] MINLAG=2 MAXLAG=2";
  const ProgramRun bare = run(model, "PARAMETERS RSQUARE", "", {"--summary"});
  const std::string after = bare.out.substr(bare.out.find("END OF VAR MODEL RESULTS"));
  EXPECT_THAT(
      unwrapped(after),
      AllOf(HasSubstr("not computed, and 0, OK and No in them mean nothing: Adj.R², JB Stat, JB p-val, Normality, "
                      "MSE, RMSE, MAE, MAPE(%), LB Stat, LB p-val, AutoCorr, [5], [6], [7]."),
            HasSubstr("This subcommand fills them:")));
  std::smatch keywords;
  ASSERT_TRUE(std::regex_search(after, keywords, std::regex("/MODELSTATISTICS MODELFIT=\\[(.*)\\]"))) << after;
  const ProgramRun full = run(model, keywords[1], "", {"--summary"});
  ASSERT_EQ(full.exitCode, 0) << full.err;
  EXPECT_THAT(summaryOf(full.out), AllOf(HasSubstr("λ2"), HasSubstr("Lag 2"), Not(HasSubstr("note:")),
                                         Not(HasSubstr(" 0.0000           OK"))));
  // Nothing but MAXLAG itself fills the error measures.
  const ProgramRun below5 = run("ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=5", keywords[1], "", {"--summary"});
  EXPECT_THAT(unwrapped(summaryOf(below5.out)), HasSubstr("MAPE(%) stay 0 in the summary unless MINLAG and MAXLAG are "
                                                          "both the selected lag, 4."));
}

}  // namespace
