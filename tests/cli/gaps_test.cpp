// Holidays and gaps in the sample: what the program prints about them, given exactly as printed, mends them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <regex>

#include "program.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string kJob = "command = 'VARDYNAMICS /MODEL ENDOGENOUS=x y LAG=1'\n[dates]\ncolumn = \"date\"\n";

class Gaps : public testing::Test {
 protected:
  Workspace space;
};

// Two series of business days; `row` leaves days out or empties them.
std::string dailyRows(const std::function<std::string(const std::string& date, const std::string& values)>& row) {
  std::string text = "date,x,y\n";
  int weekday = 1;  // 2024-01-01 was a Monday
  int day = 0;
  double x = 0.0;
  for (int i = 0; i < 60; ++i, ++day, ++weekday) {
    x = 0.5 * x + (i * 7919) % 13 - 6;
    const std::string values = std::to_string(x) + "," + std::to_string(0.3 * x + (i * 104729) % 11 - 5);
    if (weekday == 6) weekday = 1, day += 2;
    const int month = day < 31 ? 1 : day < 60 ? 2 : 3;
    char date[40];
    std::snprintf(date, sizeof date, "2024-%02d-%02d", month, day - (month == 1 ? 0 : month == 2 ? 31 : 60) + 1);
    text += row(date, values);
  }
  return text;
}

TEST_F(Gaps, HolidaysAreNoGapWithThePrintedOption) {
  space.file("daily.csv", dailyRows([](const std::string& date, const std::string& values) {
               return date == "2024-01-15" || date == "2024-02-19" ? "" : date + "," + values + "\n";
             }));
  const std::vector<std::string> words{"fit", "daily.csv", "--endogenous", "x",       "y",    "--maxlag",
                                       "1",   "--dates",   "date",         "--bands", "none", "--predict",
                                       "2",   "--json",    "out.json"};
  const ProgramRun refused = space.run(words);
  EXPECT_EQ(refused.exitCode, 3);
  std::smatch remedy;
  ASSERT_TRUE(std::regex_search(refused.err, remedy,
                                std::regex("give (--\\S+) (\\S+) \\(in a job file, under \\[dates\\]: ([^)]*)\\)")))
      << refused.err;
  std::vector<std::string> mended = words;
  mended.insert(mended.end(), {remedy[1], remedy[2], "2024-03-25"});
  const ProgramRun run = space.run(mended);
  EXPECT_EQ(run.exitCode, 0) << run.err;
  EXPECT_THAT(unwrapped(run.out), AllOf(HasSubstr("2024-01-01 to 2024-03-22, 58 rows"),
                                        HasSubstr("Forecast of x for 2024-03-27"), Not(HasSubstr("dropped"))));
  space.file("job.toml", kJob + "holidays = " + after(refused.err, "holidays = ").substr(0, 8) +
                             "\n[data]\nsource = \"daily.csv\"\n");
  EXPECT_EQ(space.run({"run", "job.toml"}).exitCode, 0);
}

TEST_F(Gaps, ATrueGapLeavesTheFirstProcedureAndIsCutOffWithThePrintedOptions) {
  const auto gapAt = [](const std::vector<std::string>& dates) {
    return dailyRows([dates](const std::string& date, const std::string& values) {
      const bool gap = std::ranges::count(dates, date) > 0;
      return date + "," + (gap ? ",1" : values) + "\n";
    });
  };
  const struct {
    std::string file;
    std::vector<std::string> dates;
    std::vector<std::string> more;
    std::string remedy;
    std::string rows;
  } cases[] = {{"early.csv", {"2024-01-10"}, {"--dates", "date"}, "--from 2024-01-11", "2024-01-11 to 2024-03-22"},
               {"late.csv", {"2024-03-14"}, {"--dates", "date"}, "--to 2024-03-13", "2024-01-01 to 2024-03-13"},
               {"both.csv", {"2024-01-10", "2024-03-14"}, {}, "--from 9 --to 53", "rows 1 to 45"},
               {"both.csv", {"2024-01-10", "2024-03-14"}, {"--from", "5"}, "--from 9 --to 53", "rows 1 to 45"}};
  for (const auto& one : cases) {
    SCOPED_TRACE(one.file);
    space.file(one.file, gapAt(one.dates));
    std::vector<std::string> words{"fit", one.file, "--endogenous", "x", "y", "--maxlag", "1", "--bands", "none"};
    std::vector<std::string> given = words;
    given.insert(given.end(), one.more.begin(), one.more.end());
    given.insert(given.end(), {"--html", "out.html"});
    const ProgramRun refused = space.run(given);
    EXPECT_EQ(refused.exitCode, 1);
    EXPECT_THAT(refused.out, HasSubstr("Goodness of Fit"));
    EXPECT_THAT(space.read("out.html"), HasSubstr("VAR Model Parameters - x"));
    EXPECT_THAT(refused.err, HasSubstr("What VARMODEL found above stands."));
    const std::string remedy = after(refused.err, "part without a gap, give these options: ");
    EXPECT_EQ(remedy, one.remedy) << refused.err;
    if (one.file != "both.csv") words.insert(words.end(), one.more.begin(), one.more.end());
    const std::vector<std::string> options = shellWords(remedy);
    words.insert(words.end(), options.begin(), options.end());
    const ProgramRun mended = space.run(words);
    EXPECT_EQ(mended.exitCode, 0) << mended.err;
    EXPECT_THAT(unwrapped(mended.out), HasSubstr(one.rows));
  }
  space.file("job.toml", kJob + "[data]\nsource = \"early.csv\"\n");
  const std::string lines = space.run({"run", "job.toml"}).err;
  const std::size_t line = lines.find("from = ");
  ASSERT_NE(line, std::string::npos) << lines;
  space.file("job.toml", kJob + "[data]\nsource = \"early.csv\"\n" + lines.substr(line));
  EXPECT_EQ(space.run({"run", "job.toml"}).exitCode, 0) << lines;
}

}  // namespace
