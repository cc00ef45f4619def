// Text files as people have them: what must be told to read them, and what is said when it was not told.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/dataset/fault.h"
#include "tests/dataset/temp_folder.h"
#include "workbench/base/errors.h"
#include "workbench/dataset/duckdb_connection.h"
#include "workbench/dataset/header_names.h"
#include "workbench/dataset/load.h"
#include "workbench/dataset/text_numbers.h"

namespace workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::FieldsAre;
using testing::HasSubstr;
using testing::Not;

constexpr double kNone = kSystemMissing;

class TextFiles : public testing::Test {
 protected:
  Dataset load(const std::string& text, const FileFormat& format = {}, const std::string& query = "") {
    return loadDataset({folder.write("a.csv", text), query, {}, format});
  }
  std::string failure(const std::string& text, const FileFormat& format = {}) {
    return faultOf<DataError>([&] { load(text, format); });
  }

  const TempFolder folder;
};

TEST(ReadNumber, TakesWhatPeopleWriteAndNothingElse) {
  struct Case {
    const char* text;
    NumberFormat format;
    std::optional<double> value;
  };
  for (const Case& one : std::vector<Case>{{"1.5", {}, 1.5},
                                           {" -3.5 % ", {}, -3.5},
                                           {"+2", {}, 2.0},
                                           {"1e3", {}, 1000.0},
                                           {"-1.234.567,5", {',', '.'}, -1234567.5},
                                           {"234,5", {',', '.'}, 234.5},
                                           {"1234,5", {',', '.'}, 1234.5},
                                           {"1 234", {',', ' '}, 1234.0},
                                           {"1,234", {'.', ','}, 1234.0},
                                           {"1.2.2001", {',', '.'}, {}},
                                           {"12.34", {',', '.'}, {}},
                                           {"1.5", {',', '\0'}, {}},
                                           {"1234.567,5", {',', '.'}, {}},
                                           {"nan", {}, {}},
                                           {"", {}, {}},
                                           {"%", {}, {}},
                                           {"2001Q1", {}, {}}}) {
    EXPECT_EQ(readNumber(one.text, one.format), one.value) << one.text;
  }
}

TEST_F(TextFiles, AreReadAsToldAlsoByAQuery) {
  const std::string text = "d;gdp;rate;share\n1;1.234,5;n/a;3,5%\n2;234,25;-;4 %\n3;1.250;2,25;-999\n";
  const FileFormat format{{',', '.'}, {"n/a", "-", "-999"}};
  for (const char* query : {"", "SELECT * FROM source"}) {
    const Dataset dataset = load(text, format, query);
    EXPECT_THAT(dataset.columns[1].numbers, ElementsAre(1234.5, 234.25, 1250)) << query;
    EXPECT_THAT(dataset.columns[2].numbers, ElementsAre(kNone, kNone, 2.25)) << query;
    EXPECT_THAT(dataset.columns[3].numbers, ElementsAre(3.5, 4, kNone)) << query;
    EXPECT_EQ(dataset.columns[3].level, MeasurementLevel::scale);
  }
  EXPECT_THAT(load("note\n\nx;y\n1;2\n", {.numbers = {}, .missing = {}, .skip = 2}).columns[1].numbers, ElementsAre(2));
  EXPECT_EQ(load("x;y\n1;\xe9t\xe9\n", {.numbers = {}, .encoding = "Latin1"}).columns[1].texts[0], "été");
  EXPECT_THAT(faultOf<UsageError>([] { requirePossible({{',', ','}}); }), HasSubstr("cannot both be"));
  EXPECT_THAT(faultOf<UsageError>([] { encodingName("cp1252"); }), HasSubstr("latin1"));
}

// What it finds, given as told, reads every column.
TEST_F(TextFiles, NumbersReadAsTextAreFoundWithTheFormatThatReadsThem) {
  struct Case {
    const char* text;
    const char* options;
    std::size_t row;
    const char* value;
  };
  for (const Case& one : std::vector<Case>{{"x;y\n1,5;a\n2,5;b\n", "--decimal=,", 0, "1,5"},
                                           {"x;y\n1;a\n1.234,5;b\n2,5;b\n", "--decimal=, --thousands=.", 0, "1"},
                                           {"x;y\n\"1,234.5\";a\n\"1,250\";b\n", "--thousands=,", 0, "1,234.5"},
                                           {"x;y\n1 234,5;a\n2 345,5;b\n", "--decimal=, --thousands=' '", 0, "1 234,5"},
                                           {"x;y\n1;a\n..;b\n3;b\n", "--na=..", 1, ".."},
                                           {"x;y\n1;a\n-;b\n3;b\nn. a.;b\n7;c\n", "--na='-,n. a.'", 1, "-"},
                                           {"x;y\npercent;a\n3%;b\n7%;c\n", "--na=percent", 0, "percent"}}) {
    const Dataset dataset = load(one.text);
    const auto found = findTextNumbers(dataset, {});
    ASSERT_TRUE(found) << one.text;
    std::string options;
    for (const WrittenSetting& setting : writtenSettings(found->format)) {
      options += (options.empty() ? "" : " ") + setting.option();
    }
    EXPECT_EQ(options, one.options) << one.text;
    ASSERT_EQ(found->columns.size(), 1u) << one.text;
    EXPECT_EQ(found->columns[0].column, "x");
    const Dataset mended = load(one.text, found->format);
    EXPECT_EQ(mended.columns[0].kind, ColumnKind::number) << one.text;
    EXPECT_FALSE(findTextNumbers(mended, found->format)) << one.text;
  }
  for (const char* text : {"x;y\n2001Q1;a\n2001Q2;b\n", "x;y\n1.2.2001;a\n13.2.2001;b\n", "x;y\nA1;a\n17;b\n",
                           "x;y\nA1;a\n17;b\nB2;c\n18;d\n", "x;y\n12:30;a\n12:31;b\n", "x;y\n1;2\n2;3\n"}) {
    EXPECT_FALSE(findTextNumbers(load(text), {})) << text;
  }
  EXPECT_FALSE(findTextNumbers(loadDataset({{}, "SELECT unnest(['01', '02', '03']) AS code"}), {}));
}

// As many separators in the title as in the table: the names are a row of texts then.
TEST_F(TextFiles, NamesBelowATitleAreFoundByTheirRow) {
  const std::string text = "Rates;Monthly;\nSource;;\nMonth;x;y\nJan-2005;1,5;2,5\nFeb-2005;2,5;\nMar-2005;3;4\n";
  const auto found = findTextNumbers(load(text), {});
  ASSERT_TRUE(found);
  EXPECT_EQ(found->format.skip, 2);
  EXPECT_TRUE(found->format.missing.empty());
  const Dataset mended = load(text, found->format);
  EXPECT_EQ(mended.columns[1].name, "x");
  EXPECT_EQ(mended.columns[2].kind, ColumnKind::number);
}

// Decimal commas in the first column tempt a reader to part the rows there.
TEST_F(TextFiles, ArePartedAtTheSeparatorOnWhichHeaderAndRowsAgree) {
  struct Case {
    const char* text;
    std::vector<std::string> names;
    const char* first;  // text of the first column, as written
  };
  for (const Case& one :
       std::vector<Case>{{"gdp;rate\n1.213,31;n/a\n1.220,5;2,5\n1.231,07;2,75\n", {"gdp", "rate"}, "1.213,31"},
                         {"gdp;rate\n1.213,31;2,25\n1.220,5;2,5\n\n", {"gdp", "rate"}, "1.213,31"},
                         {"gdp\trate\n1,31\t\n1,5\t2,5\n", {"gdp", "rate"}, "1,31"},
                         {"gdp|rate\n1,31|2,5\n1,5|2,5\n", {"gdp", "rate"}, "1,31"},
                         {"gdp;x,y\n1,31;\"a;b\"\n1,5;2,5\n", {"gdp", "x,y"}, "1,31"}}) {
    const Dataset dataset = load(one.text);
    std::vector<std::string> names;
    for (const Column& column : dataset.columns) names.push_back(column.name);
    EXPECT_EQ(names, one.names) << one.text;
    ASSERT_FALSE(dataset.columns[0].texts.empty()) << one.text;
    EXPECT_EQ(dataset.columns[0].texts[0], one.first) << one.text;
  }
  EXPECT_EQ(load("note, too\nx;y\n1,5;2,5\n2,5;3,5\n", {.numbers = {}, .missing = {}, .skip = 1}).columns[0].name, "x");
  const auto packed = folder / "a.csv.gz";
  DuckdbConnection(1).query("COPY (SELECT unnest(['1,31', '1,5']) AS gdp, unnest(['n/a', '2,5']) AS rate) TO " +
                            sqlText(packed.string()) + " (FORMAT csv, HEADER, DELIMITER ';', COMPRESSION gzip)");
  EXPECT_EQ(loadDataset({packed, "", {}, {}}).columns[0].name, "gdp");
  EXPECT_EQ(load("a,b;c,d\n1,2;3,4\n5,6;7,8\n").columns.size(), 3u);  // not told: both agree
}

TEST_F(TextFiles, WhatIsNoTableIsToldWithTheLineAndTheOption) {
  const std::string table = "period;a;b\n2001Q1;1;2\n2001Q2;3;4\n";
  std::string late = "i,x\n";
  for (int i = 0; i < 70000; ++i) late += "1,2.500000000000\n";
  const std::vector<std::pair<std::string, std::vector<std::string>>> cases = {
      {"Report\nof the bank; all; in; EUR\n" + table, {"line 3 (\"period;a;b\")", "--skip=2", "skip = 2"}},
      {"Report\nof the bank; all; in; EUR\n" + table + "End\n", {"--skip=2", "line 6 (\"End\")"}},
      {"Monthly, report, x, y\nperiod,a,b\n2001Q1,1,2\n2001Q2,3,4\n", {"line 2 (\"period,a,b\")", "--skip=1"}},
      {"a,b,c\n1,2,3,4\n2,3,4,5\n", {"header (\"a,b,c\")", "line 2 (\"1,2,3,4\")"}},
      {"x,y\n\xe9t\xe9,1\n", {"line 2", "--encoding=latin1", "encoding = \"latin1\""}},
      {std::string("\xff\xfex\0,\0y\0\n\0", 10), {"--encoding=utf-16"}},
      {late + "1,n/a\n", {"Line: 70002", "--na=n/a", "na = [\"n/a\"]"}},
      {late + "1,\"7,5\"\n", {"Line: 70002", "--decimal=, "}}};
  for (const auto& [text, parts] : cases) {
    const std::string message = failure(text);
    for (const std::string& part : parts) EXPECT_THAT(message, HasSubstr(part));
    EXPECT_THAT(message, AllOf(Not(HasSubstr("Possible")), Not(HasSubstr("sample_size"))));
  }
}

TEST_F(TextFiles, NamesGivenTwiceAreFound) {
  const Dataset twice = load("gdp,x,gdp,X\n1,2,3,4\n");
  EXPECT_THAT(repeatedNames(twice, folder / "a.csv"),
              ElementsAre(FieldsAre("gdp", 3, "gdp_1"), FieldsAre("X", 4, "X_1")));
  EXPECT_THAT(repeatedNames(load("gdp,gdp_1\n1,2\n"), folder / "a.csv"), ElementsAre());
}

}  // namespace
}  // namespace workbench
