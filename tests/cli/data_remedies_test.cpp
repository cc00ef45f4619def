// Data as people have them: what the program prints about them, given exactly as printed, reads them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>

#include "program.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

// The words of printed options; quotes are the shell's.
std::vector<std::string> shellWords(const std::string& text) {
  std::vector<std::string> words;
  bool quoted = false;
  bool open = false;
  for (const char c : text) {
    if (c == '\'') {
      quoted = !quoted;
    } else if (c == ' ' && !quoted) {
      open = false;
      continue;
    } else {
      if (!open) words.emplace_back();
      words.back() += c;
    }
    open = true;
  }
  return words;
}

std::string after(const std::string& text, const std::string& what) {
  const auto at = text.find(what);
  return at == std::string::npos ? "" : text.substr(at + what.size(), text.find('\n', at) - at - what.size());
}

// Forty quarters of two series, written by a row's number.
std::string series(const std::function<std::string(int, double, double)>& line, int rows = 40) {
  std::string text;
  double x = 1000.0;
  double y = 2.0;
  for (int i = 0; i < rows; ++i) {
    x += 3.0 + 7.0 * ((i * 7919) % 13 - 6) / 6.0;
    y += 0.1 * ((i * 104729) % 11 - 5) / 5.0;
    text += line(i, x, y) + "\n";
  }
  return text;
}

std::string fixed(double value, int decimals, char point = '.') {
  char text[40];
  std::snprintf(text, sizeof text, "%.*f", decimals, value);
  std::string result = text;
  std::replace(result.begin(), result.end(), '.', point);
  return result;
}

std::string german(double value) {
  std::string text = fixed(value, 2, ',');
  return text.size() > 6 ? text.insert(text.size() - 6, ".") : text;
}

class DataRemedies : public testing::Test {
 protected:
  ProgramRun fit(const std::string& file, std::vector<std::string> more = {}) const {
    std::vector<std::string> words{"fit", file, "--endogenous", "x", "y", "--maxlag", "1", "--model-only"};
    words.insert(words.end(), more.begin(), more.end());
    return space.run(words);
  }
  ProgramRun runJob(const std::string& data) {
    space.file("job.toml", "command = 'VARMODEL /MODEL ENDOGENOUS=x y MAXLAG=1 /METHOD TYPE=[OLS]'\n[data]\n" + data);
    return space.run({"run", "job.toml"});
  }

  Workspace space;
};

TEST_F(DataRemedies, NumbersWrittenOtherwiseAreReadWithThePrintedOptionsOrLines) {
  const std::string text = "period;x;y\n" + series([](int i, double x, double y) {
                             return std::to_string(i) + ";" + german(x) + ";" + (i == 0 ? "n/a" : german(y) + "%");
                           });
  space.file("de.csv", text);
  const ProgramRun refused = fit("de.csv");
  EXPECT_EQ(refused.exitCode, 1);
  EXPECT_THAT(refused.err, HasSubstr("x (row 1 holds \"996,00\"), y (row 1 holds \"n/a\")"));
  const ProgramRun mended = fit("de.csv", shellWords(after(refused.err, "Give these options: ")));
  EXPECT_EQ(mended.exitCode, 0) << mended.err;
  EXPECT_THAT(unwrapped(mended.out), HasSubstr("40 read, 39 used"));

  const ProgramRun job = runJob("source = \"de.csv\"\n");
  const std::string lines = job.err.substr(job.err.find("give [data] in the job file these lines:"));
  const ProgramRun again = runJob("source = \"de.csv\"" + lines.substr(lines.find('\n')));
  EXPECT_EQ(again.exitCode, 0) << again.err << lines;
}

TEST_F(DataRemedies, FilesThatAreNoPlainTableAreReadWithThePrintedOption) {
  const auto line = [](int i, double x, double y) { return std::to_string(i) + ";" + fixed(x, 3) + ";" + fixed(y, 4); };
  space.file("report.csv", "Report\nof the bank; all; in; EUR\ni;x;y\n" + series(line));
  space.file("latin.csv", "name;x;y\n" + series([&](int i, double x, double y) { return "\xe9" + line(i, x, y); }));
  for (const char* file : {"report.csv", "latin.csv"}) {
    const ProgramRun refused = fit(file);
    EXPECT_EQ(refused.exitCode, 3) << file;
    std::smatch remedy;
    ASSERT_TRUE(std::regex_search(refused.err, remedy,
                                  std::regex("Give (--\\S+) \\(in a job file, under \\[data\\]: ([^)]*)\\)")))
        << refused.err;
    EXPECT_EQ(fit(file, {remedy[1]}).exitCode, 0) << file;
    EXPECT_EQ(runJob("source = \"" + std::string(file) + "\"\n" + remedy[2].str() + "\n").exitCode, 0) << file;
  }
}

TEST_F(DataRemedies, SuspiciousValuesGetANoteAndStayAsTheyAre) {
  space.file("codes.csv",
             "x,y\n" + series([](int i, double x, double y) {
               return (i == 9 ? "-9999" : i == 20 ? "inf" : fixed(x, 3)) + "," + fixed(i == 30 ? y * 1e4 : y, 4);
             }));
  const ProgramRun noted = fit("codes.csv");
  const std::string said = unwrapped(noted.out + noted.err);
  EXPECT_THAT(
      said, AllOf(HasSubstr("x holds -9999 in row 10, which looks like a mark"), HasSubstr("x is infinite in row 21."),
                  HasSubstr("y is at least 1,000 times its neighbours in row 31 (")));
  const ProgramRun mended = fit("codes.csv", {"--na=-9999,inf"});
  EXPECT_EQ(mended.exitCode, 0) << mended.err;
  EXPECT_THAT(unwrapped(mended.out), AllOf(HasSubstr("40 read, 38 used"), Not(HasSubstr("mark for missing"))));
  EXPECT_THAT(mended.out, Not(HasSubstr("infinite")));
}

TEST_F(DataRemedies, HeaderNamesGivenTwiceGetANote) {
  space.file("twice.csv",
             "x,y,x\n" + series([](int, double x, double y) { return fixed(x, 3) + "," + fixed(y, 4) + ",1"; }));
  EXPECT_THAT(unwrapped(fit("twice.csv").out),
              HasSubstr("note: The header names \"x\" twice: column 3 is called \"x_1\" here."));
}

TEST_F(DataRemedies, SettingsThatCannotBeMeantAreRefused) {
  space.file("a.csv", "x,y\n1,2\n");
  for (const std::vector<std::string>& words : std::vector<std::vector<std::string>>{
           {"--decimal=;"}, {"--decimal=,", "--thousands=,"}, {"--encoding=cp1252"}, {"--skip=-1"}}) {
    const ProgramRun run = fit("a.csv", words);
    EXPECT_EQ(run.exitCode, 2) << words[0] << run.err;
  }
  EXPECT_THAT(runJob("source = \"a.csv\"\nskip = -1\n").err, HasSubstr("must be a number of lines"));
}

}  // namespace
