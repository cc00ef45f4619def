// Mistakes on the command line and in the job file: each message names the place and what to write instead.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <regex>
#include <sstream>

#include "document.h"
#include "program.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

using Words = std::vector<std::string>;

constexpr int usage = 2;

struct Mistake {
  Words words;
  std::string says;
  Words mended = {};  // as the message says; empty where it names no one way
};

class Usage : public testing::Test {
 protected:
  Usage() { space.example("us_macro_quarterly.csv").example("us_macro.toml"); }

  Workspace space;
};

Words fit(Words more, const std::string& series = "") {
  Words words = {"fit", "us_macro_quarterly.csv", "-q", "--lag", "2", "--endogenous"};
  if (series.empty()) {
    words.insert(words.end(), {"realgdp", "realcons"});
  } else {
    words.push_back(series);
  }
  words.insert(words.end(), more.begin(), more.end());
  return words;
}

std::vector<Mistake> mistakes() {
  const std::string data = "us_macro_quarterly.csv";
  return {
      {{}, "Give a subcommand: run, check, describe, fit, analyze. varmodel --help lists what there is."},
      {{"fti", data}, "there is no subcommand \"fti\". Did you mean fit?"},
      {{data}, "as in varmodel fit us_macro_quarterly.csv --endogenous A B."},
      {{"run", data}, "us_macro_quarterly.csv is a data file, and run takes a job file. For data: varmodel fit"},
      {{"run", "nowhere.toml"}, "there is no job file nowhere.toml."},
      {{"fit", data}, "--endogenous is missing."},
      {fit({"--dates", "d", "--start", "year=1990"}), " exclude each other. Leave out one of the two."},
      {{"run"}, "JOB is missing. varmodel run --help lists what there is."},
      {{"run", "us_macro.toml", "again.toml"}, "\"again.toml\" belongs to no option."},
      {fit({"--horizn", "8"}), "fit has no option --horizn."},
      {fit({"--predct", "8"}), "fit has no option --predct. Did you mean --predict?", fit({"--predict", "8"})},
      {fit({"--predict", "0"}), "--predict: 0 is no number from 1 on. Leave it out where no forecast is wanted.",
       fit({})},
      {fit({"--predict", "soon"}),
       "--predict takes a number of periods, or a period such as 2011Q3; \"soon\" is neither."},
      {fit({"--cilevel", "0.95"}), "0.95 is a share, and the level is a percentage. Did you mean 95?",
       fit({"--cilevel", "95"})},
      {fit({"--start", "year=59"}), "\"year=59\" is a year of the first century. Did you mean year=1959?",
       fit({"--start", "year=1959"})},
      {fit({"--start", "1959"}),
       "\"1959\" is no part of a date. Write them as UNIT=NUMBER, such as year=1959 quarter=1."},
      {fit({"--bands", "bootsrap"}), "there is no \"bootsrap\". Did you mean BOOTSTRAP?",
       fit({"--bands", "BOOTSTRAP"})},
      {fit({"--jobs"}), "--jobs needs a value behind it."},
      {fit({}, "realgdp,realcons"), "The words of a list are parted by blanks: --endogenous a b c.", fit({})},
      {{"analyze", data, "-q", "--endogenous", "realgdp", "realcons", "--lag", "2", "--select", "bic"},
       "--lag and --select exclude each other. Leave out one of the two."},
  };
}

TEST_F(Usage, MistakesOnTheCommandLineNameWhatToWriteInstead) {
  for (const Mistake& mistake : mistakes()) {
    const ProgramRun refused = space.run(mistake.words);
    EXPECT_EQ(refused.exitCode, usage) << refused.err;
    EXPECT_THAT(refused.err, AllOf(testing::StartsWith("error: "), HasSubstr(mistake.says)));
    if (mistake.mended.empty()) continue;
    const ProgramRun mended = space.run(mistake.mended);
    EXPECT_EQ(mended.exitCode, 0) << mended.err;
  }
}

TEST_F(Usage, MistakesInAJobFileNameTheirPlace) {
  const std::string command = "command = 'VARMODEL /MODEL ENDOGENOUS=realgdp realcons MAXLAG=2 /METHOD TYPE=[OLS]'\n";
  const std::string data = "[data]\nsource = 'us_macro_quarterly.csv'\n";
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"# it's\ncommand = \"VARMODEL\n[data]\n",
       "job.toml, line 2, column 11: the quote \" is opened here and never closed."},
      {"a = 'x'\ncommand = '''\nVARMODEL\n[data]\n",
       "job.toml, line 2, column 11: the quote ''' is opened here and never"},
      {command + "data = \n", "job.toml, line 2, column "},
      {command + data + "sorce = 'x'\n",
       "line 4: 'data.sorce' is no key of [data]. Did you mean source? Its keys: source, query,"},
      {"jobs = 0\n" + command + data, "'jobs' must be a number of threads from 1 to 1024, such as 2."},
      {data, "there is no 'command' with the text of the command."},
  };
  for (const auto& [job, says] : cases) {
    space.file("job.toml", job);
    const ProgramRun run = space.run({"run", "job.toml"});
    EXPECT_EQ(run.exitCode, usage);
    EXPECT_THAT(run.err, HasSubstr(says));
  }
}

TEST_F(Usage, IsGermanInGerman) {
  Words words = fit({"--predct", "8", "--lang", "de"});
  EXPECT_THAT(space.run(words).err, HasSubstr("Fehler: fit hat keine Option --predct. Meinten Sie --predict?"));
  words = fit({"--lang", "de"}, "realgdp,realcons");
  EXPECT_THAT(space.run(words).err, HasSubstr("Die Wörter einer Liste werden durch Leerzeichen getrennt"));
  for (const Mistake& mistake : mistakes()) {
    if (mistake.words.empty() || mistake.words.size() == 1) continue;
    words = mistake.words;
    words.insert(words.begin() + 1, {"--lang", "de"});
    EXPECT_THAT(space.run(words).err, Not(HasSubstr(mistake.says)));
  }
  space.file("job.toml", "command = \"VARMODEL\n");
  EXPECT_THAT(space.run({"run", "job.toml", "--lang", "de"}).err,
              HasSubstr("Zeile 1, Spalte 11: Das Anführungszeichen"));
}

TEST_F(Usage, HelpFitsTheTerminalAndTellsEveryOption) {
  for (const char* name : {"run", "fit", "analyze"}) {
    const ProgramRun help = space.run({name, "--help"});
    EXPECT_EQ(help.exitCode, 0);
    EXPECT_FALSE(std::regex_search(help.out, std::regex("[^\\n]{81}"))) << help.out;
    EXPECT_THAT(help.out, HasSubstr("--jobs N"));
  }
  const std::string fit = space.run({"fit", "--help"}).out;
  EXPECT_THAT(unwrapped(fit), AllOf(HasSubstr("--lag N"), HasSubstr("--select aic|bic|hqic"),
                                    HasSubstr("(with --model-only: predicted values"), HasSubstr("--order VAR"),
                                    HasSubstr("--write-job FILE")));
}

TEST_F(Usage, TheExamplesOfEveryHelpRun) {
  std::filesystem::copy(VARMODEL_SOURCE_DIR "/examples", space.folder() + "/examples");
  for (const Words& subcommand :
       {Words{}, Words{"describe"}, Words{"fit"}, Words{"analyze"}, Words{"run"}, Words{"check"}}) {
    Words asked = subcommand;
    asked.emplace_back("--help");
    const std::string help = std::regex_replace(space.run(asked).out, std::regex("\\\\\n"), "");
    int examples = 0;
    for (std::size_t at = 0; (at = help.find("\n  varmodel ", at)) != std::string::npos; ++at, ++examples) {
      std::istringstream line(help.substr(at + 12, help.find('\n', at + 1) - at - 12));
      const Words words{std::istream_iterator<std::string>(line), {}};
      const ProgramRun run = space.run(words);
      EXPECT_EQ(run.exitCode, 0) << line.str() << "\n" << run.err;
    }
    EXPECT_GE(examples, 1) << help;
  }
}

TEST_F(Usage, WrittenJobsDoTheRunAgain) {
  for (const Words& options : {Words{}, Words{"--model-only"}, Words{"--exogenous", "infl", "--model-only"}}) {
    Words words = {"fit",
                   "us_macro_quarterly.csv",
                   "--query",
                   "SELECT *, realgdp / 1e7 AS gdp, realcons / 1e7 AS cons FROM source WHERE infl > -99",
                   "--endogenous",
                   "cons",
                   "gdp",
                   "--maxlag",
                   "2",
                   "--start",
                   "year=1959",
                   "quarter=1",
                   "--predict",
                   "3",
                   "-q",
                   "--json",
                   "out.json",
                   "--write-job",
                   "again.toml"};
    words.insert(words.end(), options.begin(), options.end());
    ASSERT_EQ(space.run(words).exitCode, 0);
    const std::string record = space.read("out.json");
    const ProgramRun again = space.run({"run", "again.toml", "-q", "--json", "again.json"});
    EXPECT_EQ(again.exitCode, 0) << again.err << space.read("again.toml");
    const std::string repeated = space.read("again.json");
    EXPECT_TRUE(repeated.substr(repeated.find("\"documents\"")) == record.substr(record.find("\"documents\"")))
        << space.read("again.toml");
  }
}

}  // namespace
