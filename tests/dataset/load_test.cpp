#include "workbench/dataset/load.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

#include "tests/dataset/fault.h"
#include "tests/dataset/temp_folder.h"
#include "workbench/base/errors.h"
#include "workbench/dataset/duckdb_connection.h"

namespace workbench {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;

constexpr std::int64_t kDay = 86'400'000'000;

std::string failure(const DataRequest& request) {
  return faultOf<DataError>([&] { loadDataset(request); });
}

Column valueOf(const std::string& sql, ColumnKind kind, MeasurementLevel level) {
  const Column column = loadDataset({{}, "SELECT " + sql + " AS x"}).columns.at(0);
  EXPECT_EQ(column.kind, kind) << sql;
  EXPECT_EQ(column.level, level) << sql;
  return column;
}

TEST(Load, NumbersOfEveryTypeBecomeDoubles) {
  const std::vector<std::pair<std::string, double>> cases = {
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
      {"'-inf'::DOUBLE", -std::numeric_limits<double>::infinity()},
      {"12.3::DECIMAL(4,1)", 12.3},
      {"(-28.98)::DECIMAL(9,2)", -28.98},
      {"2710.349::DECIMAL(18,3)", 2710.349},
      {"0.1::DECIMAL(38,10)", 0.1},
      {"sum(7)", 7},
      {"'nan'::DOUBLE", kSystemMissing},
      {"NULL::DECIMAL(9,2)", kSystemMissing},
  };
  for (const auto& [value, expected] : cases) {
    const Column column = valueOf(value, ColumnKind::number, MeasurementLevel::scale);
    EXPECT_THAT(column.numbers, ElementsAre(expected)) << value;
  }
}

TEST(Load, TextsKeepTheirBytes) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"'short'", "short"},
      {"'longer than the twelve bytes kept inline'", "longer than the twelve bytes kept inline"},
      {"'München'", "München"},
      {"NULL::VARCHAR", ""},
      {"'b'::ENUM('a','b')", "b"},
      {"'f0112233-4455-6677-8899-aabbccddeeff'::UUID", "f0112233-4455-6677-8899-aabbccddeeff"},
  };
  for (const auto& [value, expected] : cases) {
    const Column column = valueOf(value, ColumnKind::text, MeasurementLevel::nominal);
    EXPECT_THAT(column.texts, ElementsAre(expected)) << value;
    EXPECT_EQ(column.textWidth, std::max(1, static_cast<int>(expected.size()))) << value;
  }
}

TEST(Load, DatesAndTimestampsBecomeMicroseconds) {
  const std::vector<std::pair<std::string, std::int64_t>> cases = {
      {"DATE '1970-01-02'", kDay},
      {"DATE '1959-01-01'", -4018 * kDay},
      {"TIMESTAMP '1970-01-01 00:00:00.000001'", 1},
      {"TIMESTAMPTZ '1970-01-01 02:00:00+02'", 0},
      {"'1969-12-31 23:59:59'::TIMESTAMP_S", -1'000'000},
      {"'1970-01-01 00:00:00.007'::TIMESTAMP_MS", 7000},
      {"'1970-01-01 00:00:00.000001999'::TIMESTAMP_NS", 1},
      {"'1969-12-31 23:59:59.999999999'::TIMESTAMP_NS", -1},
      {"DATE 'infinity'", kMissingInstant},
      {"DATE '5877642-06-25 (BC)'", kMissingInstant},  // a day count outside 64-bit microseconds
      {"NULL::TIMESTAMP", kMissingInstant},
  };
  for (const auto& [value, expected] : cases) {
    const Column column = valueOf(value, ColumnKind::instant, MeasurementLevel::scale);
    EXPECT_THAT(column.instants, ElementsAre(expected)) << value;
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

TEST(Load, MistakesNameThePlaceAndTheRemedy) {
  const TempFolder folder;
  const auto good = folder.write("macro.csv", "a,b\n1,2\n");
  const std::vector<std::pair<DataRequest, std::vector<std::string>>> cases = {
      {{{}, ""}, {"name a data file"}},
      {{folder / "macr.csv", ""}, {"macr.csv", "no such file", "Did you mean \"macro.csv\"?"}},
      {{folder.path(), ""}, {folder.path(), "folder"}},
      {{folder.write("empty.csv", ""), ""}, {"empty.csv", "no cases"}},
      {{good, "SELECT * FROM source WHERE a > 5"}, {"query", "macro.csv", "no cases"}},
      {{good, "SELECT missing FROM source"}, {"query", "\"missing\" not found"}},
      {{good, "SELEC 1"}, {"query", "syntax error", "LINE 1: SELEC 1"}},
      {{good, "SELECT 1 AS a, 2 AS \"A\""}, {"\"A\"", "AS other_name"}},
      {{good, "SELECT 1 AS a, [1, 2] AS odd"}, {"column \"odd\"", "EXCLUDE (\"odd\")"}},
      {{good, "SELECT TIME '12:00' AS odd"}, {"column \"odd\"", "EXCLUDE (\"odd\")"}},
      {{folder.write("bad.parquet", "not parquet"), ""}, {"bad.parquet", "parquet"}},
      {{folder.write("bad.duckdb", "not a database"), ""}, {"bad.duckdb", "not a valid DuckDB database"}},
      {{folder.write("sheet.xls", std::string("\xd0\xcf\0\0", 4)), ""}, {"sheet.xls", "binary", "Save it as CSV"}},
      {{folder.write("ragged.csv", "a,b,c\n1,2,3\n4,5\n6,7,8\n9,1,2\n"), ""},
       {"ragged.csv", "as many values as its header", "Line: 3", "Expected Number of Columns: 3 Found: 2"}},
  };
  for (const auto& [request, parts] : cases) {
    const std::string text = failure(request);
    for (const std::string& part : parts) EXPECT_THAT(text, HasSubstr(part));
    EXPECT_THAT(text, Not(HasSubstr("read_csv('"))) << "our own SQL shows";
    EXPECT_THAT(text, Not(HasSubstr("sample_size"))) << "the reader's settings show";
  }
}

}  // namespace
}  // namespace workbench
