// Errors of a composed command speak of the options it was composed from, and what they advise is done as printed.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>

#include "program.h"

namespace {

using testing::HasSubstr;
using testing::Not;

using Words = std::vector<std::string>;

struct Mistake {
  const char* name;
  Words words;  // after the series
  std::string says;
  // What the message asks for beside "Give --option value", which is taken from it.
  Words mended = {};
};

Words with(Words words, const Words& more) {
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

// The words with the option of "Give --option value." in place of what was given for it.
Words asPrinted(const std::string& message, Words words) {
  static const std::regex remedy(R"(Give (--\w+) '?([^ ']+?)'?( or less)?\.(\s|$))");
  std::smatch found;
  if (!std::regex_search(message, found, remedy)) return {"no remedy: " + message};
  const auto given = std::find(words.begin(), words.end(), found[1].str());
  if (given == words.end()) return {found[1].str() + " was not given"};
  *std::next(given) = found[2].str();
  return words;
}

const Words series = {"--endogenous", "realgdp", "realcons"};
const Words dates = {"--start", "year=1959", "quarter=1"};

std::vector<Mistake> mistakesOfAnalyze() {
  return {
      {"Lag", {"--lag", "80", "--bands", "none"}, "too short for --lag 80"},
      {"Maxlag", {"--maxlag", "80", "--bands", "none"}, "the largest usable lag is 66. Give --maxlag 66."},
      {"Range", {"--minlag", "5", "--maxlag", "2"}, "--minlag 5 is greater than --maxlag 2. Give --minlag 2 or less."},
      {"Bound", {"--lag", "0"}, "--lag takes a number of at least 1;", {"--lag", "1"}},
      {"Level", {"--cilevel", "100"}, "--cilevel is a percentage above 0 and below 100. Give --cilevel 95."},
      {"Seasons", {"--seasonal"}, "Date the cases, or leave out --seasonal.", with({"--seasonal"}, dates)},
      {"Condition", {"--conditional", "--predict", "3"}, "or leave out --conditional.", {"--predict", "3"}},
      {"File", {"--save", "r.txt"}, "--save has no file that can be written. Give --save 'results.csv'."},
      {"Future", {"--exogenous", "infl", "--predict", "3"}, "or leave out --predict.", {"--exogenous", "infl"}},
      {"Twice", {"--exogenous", "realgdp"}, "\"realgdp\" is listed in --endogenous already.", {"--exogenous", "infl"}},
      {"Draws",
       {"--lag", "66", "--bands", "bootstrap"},
       "Use a smaller lag, or give --bands none.",
       {"--lag", "66", "--bands", "none"}},
      {"Horizon", {"--predict", "2000"}, "--predict takes a number from 1 to 1000;", {"--predict", "1000"}},
  };
}

std::vector<Mistake> mistakesOfFit() {
  return {
      {"LagBesideRange",
       {"--lag", "2", "--maxlag", "4"},
       "--lag 2 gives the lag order, --maxlag belongs",
       {"--lag", "2"}},
      {"LagBesideChoice", {"--lag", "2", "--select", "bic"}, "Leave out one of the two.", {"--select", "bic"}},
      {"NoLag",
       {"--lag", "two"},
       "as in --lag 2, nor a criterion that chooses it, as in --select bic.",
       {"--lag", "2"}},
      {"TwoLags", {"--lag", "2", "3"}, "neither one lag order", {"--select", "bic"}},
      {"LagOfModel", {"--lag", "90"}, "--lag takes a number from 1 to 25;", {"--lag", "25"}},
      {"Range",
       {"--minlag", "4", "--maxlag", "2"},
       "--minlag must not be greater than --maxlag.",
       {"--minlag", "2", "--maxlag", "4"}},
  };
}

class OptionRemedies : public testing::Test {
 protected:
  OptionRemedies() { space.example("us_macro_quarterly.csv"); }

  void expectMended(const std::string& program, const Mistake& mistake) {
    const Words head = with({program, "us_macro_quarterly.csv", "-q"}, series);
    const ProgramRun refused = space.run(with(head, mistake.words));
    EXPECT_NE(refused.exitCode, 0);
    EXPECT_THAT(refused.err, HasSubstr(mistake.says));
    const std::string sentence = refused.err.substr(0, refused.err.find('\n'));
    EXPECT_FALSE(std::regex_search(sentence, std::regex("\\b[A-Z]{3,}\\b"))) << "a keyword is left: " << sentence;
    const ProgramRun mended =
        space.run(with(head, mistake.mended.empty() ? asPrinted(sentence, mistake.words) : mistake.mended));
    EXPECT_EQ(mended.exitCode, 0) << mended.err;
  }

  Workspace space;
};

TEST_F(OptionRemedies, OfAnalyze) {
  for (const Mistake& mistake : mistakesOfAnalyze()) {
    SCOPED_TRACE(mistake.name);
    expectMended("analyze", mistake);
  }
}

TEST_F(OptionRemedies, OfFit) {
  for (const Mistake& mistake : mistakesOfFit()) {
    SCOPED_TRACE(mistake.name);
    expectMended("fit", mistake);
  }
}

TEST_F(OptionRemedies, LeaveNamesOfVariablesAndCommandsOfJobsAlone) {
  const std::string query =
      "SELECT realgdp, realcons, realgdp + realcons AS LAG, realgdp - realcons AS SAVE FROM source";
  const Words named = {
      "analyze", "us_macro_quarterly.csv", "-q", "--query", query, "--endogenous", "realgdp", "LAG", "SAVE", "--lag",
      "80"};
  EXPECT_THAT(space.run(named).err, HasSubstr("too short for LAG=80"));
  space.file(
      "job.toml",
      "command = 'VARDYNAMICS /MODEL ENDOGENOUS=realgdp realcons LAG=80'\n[data]\nsource = 'us_macro_quarterly.csv'\n");
  EXPECT_THAT(space.run({"run", "job.toml"}).err, testing::AllOf(HasSubstr("Give LAG=66."), Not(HasSubstr("--lag"))));
}

TEST_F(OptionRemedies, LagOfFitIsANumberOrTheNamesOfCriteria) {
  const auto fit = [&](const Words& words) {
    return space.run(with(with({"fit", "us_macro_quarterly.csv", "--all", "--model-only"}, series), words)).out;
  };
  EXPECT_THAT(fit({"--lag", "3"}), HasSubstr("LAG=[BIC] MINLAG=3 MAXLAG=3\n"));
  EXPECT_THAT(fit({"--select", "aic", "hqic", "--maxlag", "3"}), HasSubstr("LAG=[AIC HQIC] MAXLAG=3\n"));
  EXPECT_EQ(fit({"--lag", "aic", "hqic", "--maxlag", "3"}), fit({"--select", "aic", "hqic", "--maxlag", "3"}));
}

}  // namespace
