// Files of strangers: job files, data and names made to mislead, crash or overwrite.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "program.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

enum ExitCode { success = 0, procedure = 1, usage = 2, data = 3, output = 4 };

std::string repeated(const std::string& text, int times) {
  std::string all;
  for (int i = 0; i < times; ++i) all += text;
  return all;
}

class Hostile : public testing::Test {
 protected:
  Hostile() { space.example("us_macro_quarterly.csv"); }

  ProgramRun run(const std::string& command, const std::string& query = "", std::vector<std::string> options = {}) {
    space.file("job.toml", "command = \"\"\"\n" + command + "\"\"\"\n[data]\nsource = \"us_macro_quarterly.csv\"\n" +
                               (query.empty() ? "" : "query = \"\"\"" + query + "\"\"\"\n"));
    options.insert(options.begin(), {"run", "job.toml"});
    return space.run(options);
  }
  static std::string model(const std::string& rest, const std::string& more = "") {
    return "VARMODEL /MODEL ENDOGENOUS=realgdp realcons LAG=[BIC] " + rest +
           " /METHOD TYPE=[OLS] /MODELSTATISTICS MODELFIT=[PARAMETERS MSE]" + more + "\n";
  }
  ProgramRun runJob(const std::string& text) { return space.file("job.toml", text).run({"run", "job.toml"}); }

  Workspace space;
};

TEST_F(Hostile, CommandsOfAnyWritingGetARemedyThatRuns) {
  for (const std::string& lags :
       {std::string("MAXLAG=8"), "MAXLAG=" + repeated("0", 30000) + "8", "MAXLAG" + repeated(" ", 300000) + "=8",
        std::string("maxlag=8e0"), std::string("MAXLAG=+8"), std::string("MAXLAG/*x*/=/*y*/8"),
        std::string("# MAXLAG=7\n MAXLAG=8 MINLAG=1 # MINLAG=9\n")}) {
    SCOPED_TRACE(lags.substr(0, 40));
    const ProgramRun first = run(model(lags), "", {"--json", "out.json"});
    ASSERT_EQ(first.exitCode, success) << first.err;
    const std::string before = "run this command:\n";
    const auto remedy = first.out.find(before);
    ASSERT_NE(remedy, std::string::npos);
    const ProgramRun again = run(first.out.substr(remedy + before.size()));
    EXPECT_EQ(again.exitCode, success) << again.err;
    EXPECT_THAT(again.out, AllOf(HasSubstr("VAR Model Parameters"), Not(HasSubstr("below MAXLAG"))));
  }
}

TEST_F(Hostile, TextsOfAnyDepthOrSizeAreRefused) {
  const std::string deep = "has more than 16 parts";
  const struct {
    std::string job, says;
  } texts[] = {
      {"x" + repeated(".x", 50000) + " = 1", "line 1: this key " + deep},
      {"# a.b\n[" + repeated("x .\t", 50000) + "x]", "line 2: this key " + deep},
      {"x = { 'a'" + repeated(".\"a\"", 50000) + " = 1 }", deep},
      {"x = " + repeated("[", 50000), "maximum nested value depth"},
      {"x = '" + repeated("a", 5 << 20) + "'", "has more than 4 MiB"},
      {"x = '" + repeated("a.", 50000) + "'\n" + repeated("# ...\n", 50), "'x' is no key"},
      {"command = 'VARMODEL " + repeated("/", 300000) + "'\n[data]\nsource = 'us_macro_quarterly.csv'",
       "no name follows"},
  };
  for (const auto& [job, says] : texts) {
    const ProgramRun run = runJob(job);
    EXPECT_EQ(run.exitCode, usage) << says;
    EXPECT_THAT(run.err, HasSubstr(says));
  }
  EXPECT_THAT(space.run({"run", "-"}, "</dev/zero").err, HasSubstr("standard input has more than 4 MiB"));
}

TEST_F(Hostile, NamesForgeNeitherNotesNorSuccess) {
  const std::string success_ = "VAR Model: Steps 1, 2, 3, 4, 5, and 6 completed successfully!";
  for (const std::string& name :
       {std::string("x\\nWarning: FORGED\\ny"), std::string("x\\rWarning: FORGED"), "x\\n" + success_ + "\\n",
        std::string("x\\nvarmodel_entry: Step2 x\\n"), std::string("x\\nThe selected lag 7 is below MAXLAG")}) {
    SCOPED_TRACE(name);
    const ProgramRun forged = run(
        "VARMODEL /MODEL ENDOGENOUS=realgdp TO realcons LAG=[BIC] MINLAG=2 MAXLAG=2 /METHOD TYPE=[OLS] "
        "/MODELSTATISTICS MODELFIT=[PARAMETERS] /SERIESPLOT PLOT=[TIMESERIES RES] /SAVE FILE='no/x.csv' PREDICTED",
        "SELECT realgdp, realinv AS \\\"" + name + "\\\", realcons FROM source", {"--trace", "trace.txt", "--summary"});
    EXPECT_EQ(forged.exitCode, output);
    EXPECT_THAT(forged.out, AllOf(HasSubstr("END OF VAR MODEL RESULTS"), Not(HasSubstr("note: FORGED")),
                                  Not(HasSubstr("note: The selected"))));
    const std::string trace = "\n" + space.read("trace.txt");
    for (const char* line : {"\nWarning: ", "\rWarning: ", "\nVAR Model: ", "\nvarmodel_entry: Step2"}) {
      EXPECT_THAT(trace, Not(HasSubstr(line)));
    }
  }
}

// Escape sequences, a change of direction, and characters that nobody sees.
TEST_F(Hostile, NothingThatActsReachesTheTerminal) {
  const std::string evil = "e\\u001b[31m\\u202ex\\u200by\\u061c";
  const std::string bytes = "e\x1b[31m\u202ex\u200by\u061c";
  const std::string query = "SELECT realgdp, realinv AS \\\"" + evil + "\\\", realcons FROM source";
  const std::string command =
      "VARMODEL /MODEL ENDOGENOUS=realgdp TO realcons LAG=[BIC] MAXLAG=2 /METHOD TYPE=[OLS] "
      "/MODELSTATISTICS MODELFIT=[PARAMETERS] /SAVE FILE='" +
      evil + ".csv' PREDICTED";
  space.file("evil.csv", "a," + bytes + "\n1,2\n2,1\n4,3\n3,5\n6,4\n5,7\n8,6\n7,9\n9,8\n");
  std::vector<ProgramRun> shown;
  for (const std::vector<std::string>& options : std::vector<std::vector<std::string>>{
           {}, {"--summary"}, {"-v"}, {"--html", bytes + ".html"}, {"--json", "no" + bytes + "/x.json"}}) {
    shown.push_back(run(command, query, options));
  }
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {"describe", "evil.csv"},
           {"describe", bytes},
           {"check", "job.toml"},
           {"run", bytes + ".toml"},
           {"fit", "evil.csv", "--endogenous", "a", bytes, "--lag", "1", "--plots", "--all"},
           {"analyze", "evil.csv", "--endogenous", "a", bytes, "--lag", "1"},
           {"analyze", "evil.csv", "--endogenous", "a", bytes + "x"},
           {"fit", "evil.csv", "--" + bytes},
           {bytes}}) {
    shown.push_back(space.run(words));
  }
  for (std::size_t i = 0; i < shown.size(); ++i) {
    const std::string screen = shown[i].out + shown[i].err;
    EXPECT_NE(screen, "");
    for (const char* character : {"\x1b", "\u202e", "\u200b", "\u061c"})
      EXPECT_THAT(screen, Not(HasSubstr(character))) << i;
  }
}

TEST_F(Hostile, WhatAQueryReadsIsWrittenByNobody) {
  const std::string model =
      "VARMODEL /MODEL ENDOGENOUS=realgdp realcons LAG=[BIC] MAXLAG=2 /METHOD TYPE=[OLS] "
      "/MODELSTATISTICS MODELFIT=[PARAMETERS]";
  space.file("keep.csv", "k\n1\n").link("keep.csv", "link.csv").link("new.csv", "dangling.csv");
  const auto reads = [](const std::string& file) {
    return "SELECT * FROM source, (SELECT max(k) AS k FROM " + file + ")";
  };
  for (const char* file : {"'keep.csv'", "read_csv('keep.csv')", "read_csv(['keep.csv'])", "'k*.csv'", "'link.csv'"}) {
    for (const char* target : {"keep.csv", "./x/../keep.csv", "link.csv"}) {
      const ProgramRun saved = run(model + " /SAVE FILE='" + target + "' PREDICTED", reads(file));
      EXPECT_EQ(saved.exitCode, procedure) << file << target;
      EXPECT_THAT(saved.err, HasSubstr("is not written: the query of this run reads it"));
    }
    for (const char* option : {"--html", "--json", "--trace"}) {
      EXPECT_EQ(run(model, reads(file), {option, "keep.csv"}).exitCode, usage) << file << option;
    }
    EXPECT_EQ(space.read("keep.csv"), "k\n1\n") << file;
  }
  EXPECT_EQ(run(model, reads("'keep.csv'"), {"--json", "dangling.csv"}).exitCode, success);
  EXPECT_THAT(space.read("new.csv"), testing::StartsWith("{"));
  const ProgramRun opened = run(model, "SELECT * FROM source", {"--unsafe-sql", "-q"});
  EXPECT_THAT(opened.err, HasSubstr("warning: --unsafe-sql: the query may read and write every file"));
}

TEST_F(Hostile, FailuresOfTheSystemAreNamed) {
  space.file("job.toml", "").link("circle.csv", "circle.csv").link("circle.toml", "circle.toml");
  const struct {
    std::vector<std::string> words;
    ExitCode exitCode;
    std::string says;
  } cases[] = {
      {{"fit", "circle.csv", "--endogenous", "a", "b"}, data, "Too many levels of symbolic links"},
      {{"run", "circle.toml"}, data, "Too many levels of symbolic links"},
      {{"run", "."}, usage, "is a folder"},
      {{"fit", std::string(3000, 'x'), "--endogenous", "a", "b"}, data, "File name too long"},
      {{"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--json", "circle.csv"},
       output,
       "Too many levels of symbolic links"},
  };
  for (const auto& [words, exitCode, says] : cases) {
    const ProgramRun run = space.run(words);
    EXPECT_EQ(run.exitCode, exitCode) << says;
    EXPECT_THAT(run.err, HasSubstr(says));
  }
}

}  // namespace
