// Data as people have them: what the program prints about them, given exactly as printed, reads them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <minizip/zip.h>

#include <cmath>
#include <functional>
#include <regex>
#include <sstream>

#include "program.h"

namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

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

std::string inUtf16(const std::string& ascii) {
  std::string text = "\xff\xfe";
  for (const char c : ascii) text += {c, '\0'};
  return text;
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

TEST_F(DataRemedies, DecimalCommasInTheFirstColumnAreTold) {
  const std::string rows = series([](int, double x, double y) { return german(x) + ";" + german(y); });
  for (const char* first : {"1.213,31;n/a\n", "1.213,31;2,25\n"}) {
    space.file("de.csv", "x;y\n" + std::string(first) + rows);
    const std::string told = unwrapped(space.run({"describe", "de.csv"}).out);
    EXPECT_THAT(told, AllOf(HasSubstr("41 rows, 2 variables"), HasSubstr("x (row 1 holds \"1.213,31\")")));
    const std::string options = after(told, "Give these options: ");
    const ProgramRun fitted = fit("de.csv", shellWords(options));
    EXPECT_EQ(fitted.exitCode, 0) << options << fitted.err;
    EXPECT_EQ(after(fit("de.csv").err, "Give these options: "), options);
  }
}

TEST_F(DataRemedies, FilesThatAreNoPlainTableAreReadWithThePrintedOption) {
  const auto line = [](int i, double x, double y) { return std::to_string(i) + ";" + fixed(x, 3) + ";" + fixed(y, 4); };
  space.file("report.csv", "Report\nof the bank; all; in; EUR\ni;x;y\n" + series(line));
  space.file("latin.csv", "name;x;y\n" + series([&](int i, double x, double y) { return "\xe9" + line(i, x, y); }));
  space.file("wide.csv", inUtf16("i;x;y\n" + series(line)));
  // Beyond a mebibyte the types are found from the first rows: later ones no longer fit.
  const auto late = [](const char* odd) {
    return "i,x,y\n" + series(
                           [&](int i, double x, double y) {
                             return std::to_string(i) + "," + (i == 59'000 ? odd : fixed(x, 3)) + "," + fixed(y, 12);
                           },
                           60'000);
  };
  space.file("late_mark.csv", late("n.v."));
  space.file("late_comma.csv", late("\"1000,5\""));
  for (const char* file : {"report.csv", "latin.csv", "wide.csv", "late_mark.csv"}) {
    const ProgramRun refused = fit(file);
    EXPECT_EQ(refused.exitCode, 3) << file;
    std::smatch remedy;
    ASSERT_TRUE(std::regex_search(refused.err, remedy,
                                  std::regex("[Gg]ive (--\\S+) \\(in a job file, under \\[data\\]: ([^)]*)\\)")))
        << refused.err;
    EXPECT_EQ(fit(file, {remedy[1]}).exitCode, 0) << file;
    EXPECT_EQ(runJob("source = \"" + std::string(file) + "\"\n" + remedy[2].str() + "\n").exitCode, 0) << file;
  }
  EXPECT_THAT(fit("late_comma.csv").err, HasSubstr("Give --decimal=, (in a job file"));
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
  // Each of the two remedies keeps what was given before.
  const std::string first = after(noted.out + noted.err, "Give these options: ");
  const ProgramRun half = fit("codes.csv", shellWords(first.substr(0, first.find("  "))));
  const ProgramRun mended = fit("codes.csv", shellWords(after(half.out + half.err, "Give these options: ")));
  EXPECT_EQ(mended.exitCode, 0) << first << mended.err;
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

// Rows of quarters in the given order, dated by texts; row numbers count from 0.
std::string datedRows(const std::vector<int>& rows) {
  std::istringstream lines(series([](int i, double x, double y) {
    return std::to_string(2001 + i / 4) + "Q" + std::to_string(i % 4 + 1) + "," + fixed(x, 3) + "," + fixed(y, 4);
  }));
  std::vector<std::string> all;
  for (std::string line; std::getline(lines, line);) all.push_back(line);
  std::string text = "period,x,y\n";
  for (const int row : rows) text += all[static_cast<std::size_t>(row)] + "\n";
  return text;
}

TEST_F(DataRemedies, RowsOutOfOrderOrWithGapsAreDatedWithThePrintedOption) {
  std::vector<int> descending;
  std::vector<int> gap;
  std::vector<int> mixed{39};
  for (int row = 0; row < 40; ++row) {
    descending.push_back(39 - row);
    if (row != 7) gap.push_back(row);
    if (row != 39) mixed.push_back(row);
  }
  struct Case {
    std::vector<int> rows;
    const char* says;
    const char* last;
  };
  for (const Case& one : {Case{descending, "the rows run from the last date to the first", "2010Q4"},
                          Case{mixed, "row 2 (2001Q1) does not follow row 1 (2010Q4)", "2010Q4"},
                          Case{gap, "row 8 (2003Q1) does not follow row 7 (2002Q3): 2002Q4 is missing", "2010Q4"}}) {
    space.file("a.csv", datedRows(one.rows));
    const ProgramRun refused = fit("a.csv", {"--dates", "period", "--predict", "2011Q2"});
    EXPECT_EQ(refused.exitCode, 3);
    EXPECT_THAT(refused.err, HasSubstr(one.says));
    std::smatch remedy;
    ASSERT_TRUE(std::regex_search(refused.err, remedy,
                                  std::regex("Give (--\\S+) \\(in a job file, under \\[dates\\]: ([^)]*)\\)")))
        << refused.err;
    const ProgramRun mended =
        fit("a.csv", {"--dates", "period", "--predict", "2011Q2", remedy[1], "--json", "out.json"});
    EXPECT_EQ(mended.exitCode, 0) << mended.err;
    EXPECT_THAT(space.read("out.json"),
                AllOf(HasSubstr("\"2011Q1\""), HasSubstr("\"2011Q2\""), Not(HasSubstr("\"2011Q3\""))));
    EXPECT_EQ(runJob("source = \"a.csv\"\n[dates]\ncolumn = \"period\"\n" + remedy[2].str() + "\n").exitCode, 0);
  }
}

// Days of twelve months that are months as well, and a leap in the middle.
TEST_F(DataRemedies, DaysThatCouldBeMonthsAreToldAndReadTheOtherWayWithThePrintedOption) {
  const auto file = [&](const char* head) {
    space.file("days.csv", "day,x,y\n" + series(
                                             [&](int i, double x, double y) {
                                               return head + std::to_string(i + 1) + "/2001," + fixed(x, 3) + "," +
                                                      fixed(y, 4);
                                             },
                                             12));
  };
  for (const char* head : {"1/", "01/"}) {
    file(head);
    const auto read = [&](const std::vector<std::string>& more) {
      std::vector<std::string> words{"--dates", "day", "--json", "out.json"};
      words.insert(words.end(), more.begin(), more.end());
      const ProgramRun run = fit("days.csv", words);
      EXPECT_EQ(run.exitCode, 0) << run.err;
      EXPECT_THAT(space.read("out.json"), HasSubstr("\"id\":\"dates.order\""));
      return unwrapped(run.out);
    };
    const std::string taken = read({});
    std::smatch said;
    ASSERT_TRUE(std::regex_search(
        taken, said,
        std::regex("row 2 is read as (\\S+); with day and month exchanged it would be (\\S+)\\..*give "
                   "(--\\S+) \\(")))
        << taken;
    EXPECT_THAT(read({said[3].str()}), HasSubstr("row 2 is read as " + said[2].str() + ";"));
    EXPECT_EQ(runJob("source = \"days.csv\"\n[dates]\ncolumn = \"day\"\nexchange_day_month = true\n").exitCode, 0);
  }
}

TEST_F(DataRemedies, UnevenRowsAreNumberedWithThePrintedOption) {
  space.file("uneven.csv", "day,x,y\n" + series(
                                             [](int i, double x, double y) {
                                               const int day = 1 + 2 * i - (i > 3 ? 1 : 0);
                                               return (day < 10 ? "2001-01-0" : "2001-01-") + std::to_string(day) +
                                                      "," + fixed(x, 3) + "," + fixed(y, 4);
                                             },
                                             12));
  const ProgramRun refused = fit("uneven.csv", {"--dates", "day"});
  EXPECT_THAT(refused.err, HasSubstr("row 5 (2001-01-08) does not follow row 4 (2001-01-07): it comes 1 day later"));
  const std::string start = after(refused.err, "number the cases instead: ");
  EXPECT_EQ(fit("uneven.csv", shellWords(start.substr(0, start.find(" (")))).exitCode, 0) << refused.err;
}

// One table in two sheets.
void writeWorkbook(const std::string& file) {
  zipFile zip = zipOpen64(file.c_str(), APPEND_STATUS_CREATE);
  const auto add = [&](const char* name, const std::string& text) {
    zipOpenNewFileInZip(zip, name, nullptr, nullptr, 0, nullptr, 0, nullptr, 0, 0);
    zipWriteInFileInZip(zip, text.data(), static_cast<unsigned>(text.size()));
    zipCloseFileInZip(zip);
  };
  const std::string head = "<row><c t='inlineStr'><is><t>x</t></is></c><c t='inlineStr'><is><t>y</t></is></c></row>";
  const std::string rows = series([](int, double x, double y) {
    return "<row><c><v>" + fixed(x, 3) + "</v></c><c><v>" + fixed(y, 4) + "</v></c></row>";
  });
  add("xl/workbook.xml",
      "<workbook><sheets><sheet name='Data 1' r:id='a'/><sheet name='B' r:id='a'/></sheets></workbook>");
  add("xl/_rels/workbook.xml.rels", "<Relationships><Relationship Id='a' Target='worksheets/s.xml'/></Relationships>");
  add("xl/worksheets/s.xml", "<worksheet><sheetData>" + head + rows + "</sheetData></worksheet>");
  zipClose(zip, nullptr);
}

TEST_F(DataRemedies, OfAWorkbookTheSheetIsNamedWithThePrintedOption) {
  writeWorkbook(space.folder() + "/book.xlsx");
  const ProgramRun refused = fit("book.xlsx");
  EXPECT_EQ(refused.exitCode, 3);
  const std::string remedy = after(refused.err, "Name one: ");
  EXPECT_EQ(fit("book.xlsx", shellWords(remedy.substr(0, remedy.find(" (in")))).exitCode, 0) << refused.err;
}

TEST_F(DataRemedies, AYearAfterPredictIsAYearWhereTheCasesAreYears) {
  space.file("years.csv", "year,x,y\n" + series([](int i, double x, double y) {
                            return std::to_string(1970 + i) + "," + fixed(x, 3) + "," + fixed(y, 4);
                          }));
  EXPECT_EQ(fit("years.csv", {"--dates", "year", "--predict", "2011", "--json", "out.json"}).exitCode, 0);
  EXPECT_THAT(space.read("out.json"), AllOf(HasSubstr("\"2011\""), Not(HasSubstr("\"2012\""))));
  EXPECT_THAT(fit("years.csv", {"--dates", "year", "--predict", "1990"}).err,
              HasSubstr("1990 does not lie after the last case (2009). Give a later period, such as 2010."));
  EXPECT_EQ(fit("years.csv", {"--predict", "1000", "--json", "out.json"}).exitCode, 0);
  EXPECT_THAT(space.read("out.json"), HasSubstr("\"1040\""));
}

TEST_F(DataRemedies, DatesOfComponentsAndPredictTakeWhatTheirMessagesSay) {
  space.example("us_macro_quarterly.csv");
  const auto dated = [&](const std::vector<std::string>& more) {
    std::vector<std::string> words{
        "analyze",   "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--maxlag", "1", "--dates",
        "year=year", "quarter=quarter"};
    words.insert(words.end(), more.begin(), more.end());
    return space.run(words);
  };
  EXPECT_THAT(unwrapped(dated({"--predict", "2010Q2"}).out), HasSubstr("Forecast of realgdp for 2010Q2"));
  const ProgramRun wrong = dated({"--predict", "2010-05"});
  EXPECT_EQ(wrong.exitCode, 2);
  EXPECT_THAT(wrong.err, HasSubstr("\"2010-05\" is no quarter"));
  EXPECT_EQ(dated({"--predict", after(wrong.err, "Write it as ").substr(0, 6)}).exitCode, 0) << wrong.err;
  EXPECT_EQ(dated({"--predict", "0"}).exitCode, 2);
  EXPECT_THAT(dated({"--predict", "2001Q1"}).err, HasSubstr("does not lie after the last case (2009Q3)"));
  const ProgramRun numbers = space.run({"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons",
                                        "--maxlag", "1", "--model-only", "--dates", "realgdp"});
  EXPECT_EQ(numbers.exitCode, 2);
  EXPECT_THAT(numbers.err, HasSubstr("column \"realgdp\" holds no dates (row 1: 2710.349)"));
  std::vector<std::string> start = shellWords(after(numbers.err, "such as "));
  start.resize(3);
  start.insert(start.begin(), {"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--maxlag", "1",
                               "--model-only"});
  EXPECT_EQ(space.run(start).exitCode, 0);
}

TEST_F(DataRemedies, TotalsAreLeftOutWithThePrintedOption) {
  double sum = 0.0;
  const std::string rows = series([&](int, double, double y) {
    const std::string text = fixed(y * y, 3);
    sum += std::stod(text);
    return text + "," + fixed(y, 4);
  });
  space.file("total.csv", "x,y\n" + rows + fixed(sum, 3) + ",2.1\n");
  const std::string said = unwrapped(fit("total.csv").out);
  EXPECT_THAT(said, HasSubstr("The last value of x, in row 41, is the sum of all others"));
  const ProgramRun mended = fit("total.csv", {after(said, "Give these options: ").substr(0, 7)});
  EXPECT_EQ(mended.exitCode, 0) << mended.err;
  EXPECT_THAT(unwrapped(mended.out), Not(HasSubstr("sum of all others")));
}

std::vector<double> numbersIn(const std::string& text) {
  const std::regex number(R"(-?\d+\.\d+(e-?\d+)?)");
  std::vector<double> found;
  for (std::sregex_iterator at(text.begin(), text.end(), number), end; at != end; ++at) {
    found.push_back(std::stod(at->str()));
  }
  return found;
}

// The same as over data that were transformed and cut by a query.
TEST_F(DataRemedies, TransformedAndCutSeriesKeepTheirDates) {
  space.example("us_macro_quarterly.csv");
  const auto documents = [&](const std::vector<std::string>& more) {
    std::vector<std::string> words{"fit",
                                   "us_macro_quarterly.csv",
                                   "--endogenous",
                                   "realgdp",
                                   "realcons",
                                   "--minlag",
                                   "2",
                                   "--maxlag",
                                   "2",
                                   "--predict",
                                   "2",
                                   "--model-only",
                                   "--json",
                                   "out.json",
                                   "--dates",
                                   "year=year",
                                   "quarter=quarter"};
    words.insert(words.end(), more.begin(), more.end());
    const ProgramRun run = space.run(words);
    EXPECT_EQ(run.exitCode, 0) << run.err;
    const std::string record = space.read("out.json");
    return record.substr(record.find("\"documents\":"));
  };
  const std::string asked =
      documents({"--from", "1984Q1", "--to", "2007Q4", "--transform", "realgdp=dlog*100", "realcons=dlog*100"});
  const std::string wanted = documents(
      {"--query",
       "SELECT year, quarter, 100 * (ln(realgdp) - lag(ln(realgdp)) OVER (ORDER BY year, quarter)) AS realgdp, "
       "100 * (ln(realcons) - lag(ln(realcons)) OVER (ORDER BY year, quarter)) AS realcons FROM source "
       "QUALIFY year BETWEEN 1984 AND 2007"});
  EXPECT_THAT(asked, AllOf(HasSubstr("\"1984Q1\""), HasSubstr("\"2008Q2\""), Not(HasSubstr("\"2008Q3\""))));
  const std::vector<double> found = numbersIn(asked);
  const std::vector<double> expected = numbersIn(wanted);
  ASSERT_EQ(found.size(), expected.size());
  ASSERT_GT(found.size(), 500u);
  constexpr double kRounding = 1e-8;  // logarithms of two programs may differ in their last digit
  for (std::size_t i = 0; i < found.size(); ++i) {
    ASSERT_NEAR(found[i], expected[i], kRounding * std::max(1.0, std::fabs(expected[i]))) << i;
  }
}

TEST_F(DataRemedies, DescribeTellsWhatAFileHoldsAndHowToDateIt) {
  space.example("us_macro_quarterly.csv");
  const ProgramRun told = space.run({"describe", "us_macro_quarterly.csv"});
  EXPECT_EQ(told.exitCode, 0) << told.err;
  EXPECT_THAT(told.out, AllOf(HasSubstr("us_macro_quarterly.csv: 203 rows"), HasSubstr("realgdp"),
                              HasSubstr("2710.349"), HasSubstr("gives 1959Q1 to 2009Q3, one row a quarter.")));
  std::vector<std::string> dates = shellWords(after(told.out, "Dates: "));
  dates.resize(3);
  dates.insert(dates.begin(), {"fit", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--maxlag", "1",
                               "--model-only"});
  EXPECT_EQ(space.run(dates).exitCode, 0);
  EXPECT_EQ(told.out.find("\nyear ", told.out.find("Unit-Root Tests")), std::string::npos);
  // The transformation that it names leaves series without a unit root.
  const std::vector<std::string> changes = shellWords(after(told.out, "Stationary series: "));
  ASSERT_THAT(changes, testing::Contains("realgdp=dlog*100"));
  std::vector<std::string> analyze{
      "analyze", "us_macro_quarterly.csv", "--endogenous", "realgdp", "realcons", "--bands", "none", "--all"};
  analyze.insert(analyze.end(), changes.begin(), changes.end());
  EXPECT_THAT(unwrapped(space.run(analyze).out), HasSubstr("realgdp looks stationary around a constant"));
  EXPECT_THAT(space.run({"describe", "us_macro_quarterly.csv", "--lang", "de"}).out,
              AllOf(HasSubstr("eine Zeile im Quartal"), HasSubstr("Einheitswurzel"), HasSubstr("0,998")));
  space.file("gap.csv", "period,x\n2001Q1,\"1,5\"\n2001Q2,\"2,5\"\n2001Q4,3\n");
  EXPECT_THAT(unwrapped(space.run({"describe", "gap.csv"}).out),
              AllOf(HasSubstr("--dates period is refused."), HasSubstr("2001Q3 is missing"), HasSubstr("--decimal=,")));
  EXPECT_EQ(space.run({"describe", "none.csv"}).exitCode, 3);
}

TEST_F(DataRemedies, CheckTellsWhatARunWouldRefuseAndRunsNothing) {
  space.file("a.csv", datedRows({0, 1, 2, 3, 4, 5}));
  const auto check = [&](const std::string& variables, const std::string& column) {
    space.file("job.toml", "command = '''VARMODEL /MODEL ENDOGENOUS=" + variables +
                               " MAXLAG=1 /METHOD TYPE=[OLS] /SAVE FILE=\"out.csv\" PREDICTED'''\n[data]\nsource = "
                               "\"a.csv\"\n[dates]\ncolumn = \"" +
                               column + "\"\n");
    return space.run({"check", "job.toml"});
  };
  const ProgramRun good = check("x y", "period");
  EXPECT_EQ(good.exitCode, 0) << good.err;
  EXPECT_THAT(good.out, HasSubstr("Nothing speaks against running job.toml: 6 rows, 2001Q1 to 2002Q2, commands: 1."));
  const ProgramRun bad = check("x y", "perod");
  EXPECT_EQ(bad.exitCode, 2);
  EXPECT_THAT(bad.err, HasSubstr("Did you mean \"period\"?"));
  EXPECT_EQ(check("x z", "period").exitCode, 2);
  EXPECT_THAT(space.listing(), Not(testing::Contains("out.csv")));
}

}  // namespace
