#include "workbench/dataset/load.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/dataset/temp_folder.h"
#include "workbench/dataset/duckdb_connection.h"
#include "workbench/session/errors.h"

namespace workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr std::int64_t kDay = 86'400'000'000;

std::string failure(const DataRequest& request) {
  try {
    loadDataset(request);
  } catch (const DataError& error) {
    return error.what();
  }
  return "no error";
}

Column onlyColumn(const std::string& sql) {
  Dataset dataset = loadDataset({{}, sql});
  EXPECT_EQ(dataset.columns.size(), 1u);
  return dataset.columns.at(0);
}

TEST(Load, NumbersOfEveryTypeBecomeDoubles) {
  const struct {
    const char* value;
    double expected;
  } cases[] = {
      {"true", 1},
      {"(-128)::TINYINT", -128},
      {"(-32768)::SMALLINT", -32768},
      {"(-2147483648)::INTEGER", -2147483648.0},
      {"9007199254740991::BIGINT", 9007199254740991.0},
      {"255::UTINYINT", 255},
      {"65535::USMALLINT", 65535},
      {"4294967295::UINTEGER", 4294967295.0},
      {"18446744073709551615::UBIGINT", 18446744073709551616.0},
      {"(-170141183460469231731687303715884105727)::HUGEINT", -0x1p127},
      {"340282366920938463463374607431768211455::UHUGEINT", 0x1p128},
      {"0.1::FLOAT", static_cast<double>(0.1f)},
      {"5e-324::DOUBLE", std::numeric_limits<double>::denorm_min()},
      {"'-inf'::DOUBLE", -kInfinity},
      {"12.3::DECIMAL(4,1)", 12.3},
      {"(-28.98)::DECIMAL(9,2)", -28.98},
      {"2710.349::DECIMAL(18,3)", 2710.349},
      {"0.1::DECIMAL(38,10)", 0.1},
      {"sum(7)", 7},
      {"'nan'::DOUBLE", kSystemMissing},
      {"'nan'::FLOAT", kSystemMissing},
      {"NULL::DECIMAL(9,2)", kSystemMissing},
      {"NULL", kSystemMissing},
  };
  for (const auto& c : cases) {
    const Column column = onlyColumn(std::string("SELECT ") + c.value + " AS x");
    EXPECT_EQ(column.kind, ColumnKind::number) << c.value;
    EXPECT_EQ(column.level, MeasurementLevel::scale) << c.value;
    EXPECT_THAT(column.numbers, ElementsAre(c.expected)) << c.value;
  }
}

TEST(Load, TextsKeepTheirBytes) {
  const struct {
    const char* value;
    const char* expected;
  } cases[] = {
      {"'short'", "short"},
      {"'longer than the twelve bytes kept inline'", "longer than the twelve bytes kept inline"},
      {"'München'", "München"},
      {"NULL::VARCHAR", ""},
      {"'b'::ENUM('a','b')", "b"},
      {"'00112233-4455-6677-8899-aabbccddeeff'::UUID", "00112233-4455-6677-8899-aabbccddeeff"},
      {"'f0112233-4455-6677-8899-aabbccddeeff'::UUID", "f0112233-4455-6677-8899-aabbccddeeff"},
  };
  for (const auto& c : cases) {
    const Column column = onlyColumn(std::string("SELECT ") + c.value + " AS x");
    EXPECT_EQ(column.kind, ColumnKind::text) << c.value;
    EXPECT_EQ(column.level, MeasurementLevel::nominal) << c.value;
    EXPECT_THAT(column.texts, ElementsAre(std::string(c.expected))) << c.value;
    EXPECT_EQ(column.textWidth, std::max(1, static_cast<int>(std::string(c.expected).size()))) << c.value;
  }
}

TEST(Load, DatesAndTimestampsBecomeMicroseconds) {
  const struct {
    const char* value;
    std::int64_t expected;
  } cases[] = {
      {"DATE '1970-01-02'", kDay},
      {"DATE '1959-01-01'", -4018 * kDay},
      {"TIMESTAMP '1970-01-01 00:00:00.000001'", 1},
      {"TIMESTAMPTZ '1970-01-01 02:00:00+02'", 0},
      {"'1969-12-31 23:59:59'::TIMESTAMP_S", -1'000'000},
      {"'1970-01-01 00:00:00.007'::TIMESTAMP_MS", 7000},
      {"'1970-01-01 00:00:00.000001999'::TIMESTAMP_NS", 1},
      {"'1969-12-31 23:59:59.999999999'::TIMESTAMP_NS", -1},
      {"DATE 'infinity'", kMissingInstant},
      {"TIMESTAMP '-infinity'", kMissingInstant},
      {"DATE '5877642-06-25 (BC)'", kMissingInstant},  // a day count outside 64-bit microseconds
      {"NULL::TIMESTAMP", kMissingInstant},
  };
  for (const auto& c : cases) {
    const Column column = onlyColumn(std::string("SELECT ") + c.value + " AS x");
    EXPECT_EQ(column.kind, ColumnKind::instant) << c.value;
    EXPECT_THAT(column.instants, ElementsAre(c.expected)) << c.value;
  }
}

TEST(Load, TypesWithoutMeaningHereNameTheColumnAndTheRemedy) {
  for (const char* value : {"[1, 2]", "{'a': 1}", "INTERVAL 1 DAY", "TIME '12:00'", "'ab'::BLOB"}) {
    EXPECT_THAT(failure({{}, std::string("SELECT 1 AS a, ") + value + " AS odd"}),
                AllOf(HasSubstr("column \"odd\""), HasSubstr("EXCLUDE (\"odd\")")))
        << value;
  }
}

TEST(Load, CasesKeepTheirOrderAcrossManyChunks) {
  const TempFolder folder;
  DuckdbConnection(0).query("COPY (SELECT i, i % 3 = 0 AS third, CASE WHEN i % 5 = 0 THEN NULL ELSE i END AS gappy, " +
                            std::string("'t' || i AS text FROM range(300000) r(i)) TO ") +
                            sqlText((folder / "long.parquet").string()));
  const Dataset dataset = loadDataset({folder / "long.parquet", ""});
  ASSERT_EQ(dataset.rowCount, 300000u);
  for (std::size_t i = 0; i < dataset.rowCount; ++i) {
    const auto number = static_cast<double>(i);
    ASSERT_EQ(dataset.columns[0].numbers[i], number);
    ASSERT_EQ(dataset.columns[1].numbers[i], i % 3 == 0 ? 1.0 : 0.0);
    ASSERT_EQ(dataset.columns[2].numbers[i], i % 5 == 0 ? kSystemMissing : number);
    ASSERT_EQ(dataset.columns[3].texts[i], "t" + std::to_string(i));
  }
}

TEST(Load, FilesOfEveryKindGiveTheSameCases) {
  const TempFolder folder;
  const std::string select = "SELECT * FROM (VALUES (1959, 1.5::DOUBLE, 'x'), (1960, NULL, 'y')) v(year, b, c)";
  for (const char* name : {"a.csv", "a.tsv", "a.csv.gz", "a.parquet", "a.json", "no_extension", "odd*[1]?.csv"}) {
    DuckdbConnection(1).query("COPY (" + select + ") TO " + sqlText((folder / name).string()));
  }
  std::filesystem::rename(folder / "a.parquet", folder / "parquet_without_extension");
  DuckdbConnection(1).query("ATTACH " + sqlText((folder / "a.duckdb").string()) +
                            " AS f; CREATE SCHEMA f.\"s\"\"1\"; " + "CREATE TABLE f.\"s\"\"1\".\"my table\" AS " +
                            select);
  for (const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    for (const char* query : {"", "SELECT * FROM source ORDER BY year"}) {
      const Dataset dataset = loadDataset({entry.path(), query});
      ASSERT_EQ(dataset.columns.size(), 3u) << entry.path();
      EXPECT_THAT(dataset.columns[0].numbers, ElementsAre(1959, 1960)) << entry.path();
      EXPECT_THAT(dataset.columns[1].numbers, ElementsAre(1.5, kSystemMissing)) << entry.path();
      EXPECT_THAT(dataset.columns[2].texts, ElementsAre("x", "y")) << entry.path();
      EXPECT_EQ(dataset.origin, entry.path().string());
    }
  }
}

TEST(Load, CsvWordsForMissingDoNotTurnNumbersIntoText) {
  const TempFolder folder;
  const Dataset dataset = loadDataset({folder.write("a.csv", "x,y,when\n1,NA,12:30\n.,2.5,12:31\n,NaN,12:32\n"), ""});
  EXPECT_THAT(dataset.columns[0].numbers, ElementsAre(1, kSystemMissing, kSystemMissing));
  EXPECT_THAT(dataset.columns[1].numbers, ElementsAre(kSystemMissing, 2.5, kSystemMissing));
  EXPECT_EQ(dataset.columns[2].kind, ColumnKind::text);
}

// DuckDB alone would take the column for integers and round: 0.5 would be read as 1.
TEST(Load, FractionsThatBeginLateInALargeCsvAreNotRounded) {
  const TempFolder folder;
  for (const std::size_t rows : {30'000u, 400'000u}) {
    std::string text = "x,y\n";
    for (std::size_t i = 0; i < rows; ++i) text += i + 1 < rows ? "3,4\n" : "0.5,4\n";
    const Dataset dataset = loadDataset({folder.write("late.csv", text), ""});
    EXPECT_EQ(dataset.columns[0].numbers.back(), 0.5) << rows;
    EXPECT_EQ(dataset.columns[0].numbers.front(), 3.0) << rows;
  }
}

TEST(Load, QueriesSeeTheFileItsFolderAndItsTables) {
  const TempFolder folder;
  const auto file = folder.write("a.csv", "year,b\n1960,2\n1959,1\n");
  folder.write("other.csv", "k\n42\n");
  const DataRequest requests[] = {
      {file, "FROM source ORDER BY year"},
      {file, "SELECT year || 'Q1' AS q, b FROM source WHERE year < 1961 ORDER BY b; -- a comment"},
      {file, "SELECT k FROM 'other.csv'"},
      {{}, "SELECT 42 AS k"},
  };
  EXPECT_THAT(loadDataset(requests[0]).columns[1].numbers, ElementsAre(1, 2));
  EXPECT_THAT(loadDataset(requests[1]).columns[0].texts, ElementsAre("1959Q1", "1960Q1"));
  EXPECT_THAT(loadDataset(requests[2]).columns[0].numbers, ElementsAre(42));
  EXPECT_THAT(loadDataset(requests[3]).columns[0].numbers, ElementsAre(42));

  const auto database = folder / "two.duckdb";
  DuckdbConnection(1).query("ATTACH " + sqlText(database.string()) +
                            " AS f; CREATE TABLE f.one AS SELECT 1 AS x; CREATE TABLE f.two AS SELECT 2 AS x");
  EXPECT_THAT(failure({database, ""}), AllOf(HasSubstr("(one, two)"), HasSubstr("SELECT * FROM \"one\"")));
  EXPECT_THAT(loadDataset({database, "FROM two"}).columns[0].numbers, ElementsAre(2));
}

TEST(Load, MistakesNameThePlaceAndTheRemedy) {
  const TempFolder folder;
  const auto good = folder.write("macro.csv", "a,b\n1,2\n");
  const struct {
    DataRequest request;
    std::vector<const char*> parts;
  } cases[] = {
      {{{}, ""}, {"name a data file"}},
      {{folder / "macr.csv", ""}, {"macr.csv", "no such file", "Did you mean \"macro.csv\"?"}},
      {{folder / "nowhere" / "x.csv", ""}, {"nowhere", "no such file"}},
      {{folder.path(), ""}, {folder.path().c_str(), "folder"}},
      {{folder.write("empty.csv", ""), ""}, {"empty.csv", "no cases"}},
      {{folder.write("header.csv", "a,b\n"), ""}, {"header.csv", "no cases"}},
      {{good, "SELECT * FROM source WHERE a > 5"}, {"query", "macro.csv", "no cases"}},
      {{good, "SELECT missing FROM source"}, {"query", "\"missing\" not found"}},
      {{good, "SELEC 1"}, {"query", "syntax error", "LINE 1: SELEC 1"}},
      {{good, "CREATE TABLE t(i INT)"}, {"query", "SELECT"}},
      {{good, "SELECT 1 AS a, 2 AS \"A\""}, {"\"A\"", "AS other_name"}},
      {{folder.write("bad.parquet", "not parquet"), ""}, {"bad.parquet", "parquet"}},
      {{folder.write("bad.duckdb", "not a database"), ""}, {"bad.duckdb", "not a valid DuckDB database"}},
      {{folder.write("sheet.xlsx", std::string("PK\0\0", 4)), ""}, {"sheet.xlsx", "binary", "Save it as CSV"}},
      {{folder.write("latin.csv", "a,b\n\xe9t,1\n"), ""}, {"latin.csv", "not utf-8"}},
      {{folder.write("ragged.csv", "a,b,c\n1,2,3\n4,5\n6,7,8\n9,1,2\n"), ""},
       {"ragged.csv", "as many values as its header", "Line: 3", "Expected Number of Columns: 3 Found: 2"}},
  };
  for (const auto& c : cases) {
    const std::string text = failure(c.request);
    for (const char* part : c.parts) EXPECT_THAT(text, HasSubstr(part));
    EXPECT_THAT(text, Not(HasSubstr("read_csv('"))) << "our own SQL shows";
    EXPECT_THAT(text, Not(HasSubstr("sample_size"))) << "the reader's settings show";
  }
}

TEST(Load, LeavesNothingBehind) {
  const TempFolder folder;
  const auto file = folder.write("a.csv", "a\n2\n1\n");
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder.path());
  loadDataset({file, "FROM source ORDER BY a"});
  std::filesystem::current_path(before);
  const auto entries = std::distance(std::filesystem::directory_iterator(folder.path()), {});
  EXPECT_EQ(entries, 1);
}

}  // namespace
}  // namespace workbench
