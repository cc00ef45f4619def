// What is saved is read back, through DuckDB, bit by bit.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "tests/casefile/save_fixture.h"
#include "workbench/casefile/case_file_format.h"
#include "workbench/casefile/case_writer.h"
#include "workbench/dataset/load.h"

namespace workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

std::vector<double> awkwardValues() {
  std::vector<double> values;
  for (const double value : {0.0, 0.1, 1.0 / 3.0, 2710.349, 5e-5, 1e22, 9007199254740993.0, 0x1p-1074, 0x3p-1074,
                             0x1p-1022, 0x1.ffffffffffffep1023, std::numeric_limits<double>::infinity()}) {
    values.insert(values.end(), {value, -value});
  }
  std::uint64_t bits = 0x9e3779b97f4a7c15;  // then bit patterns of every size
  while (values.size() < 5000) {
    bits ^= bits << 13;
    bits ^= bits >> 7;
    bits ^= bits << 17;
    double value;
    std::memcpy(&value, &bits, sizeof value);
    if (!std::isnan(value)) values.push_back(value);
  }
  return values;
}

bool sameBits(const std::vector<double>& left, const std::vector<double>& right) {
  return left.size() == right.size() && std::memcmp(left.data(), right.data(), left.size() * sizeof(double)) == 0;
}

using SavedFile = EveryFormat;

TEST_P(SavedFile, ValuesAreReadBackBitByBit) {
  const std::vector<double> values = awkwardValues();
  std::vector<double> gappy = values;
  for (std::size_t i = 0; i < gappy.size(); i += 3) gappy[i] = kSystemMissing;
  gappy.back() = kSystemMissing;
  ASSERT_TRUE(save(file(), {"PRE_1", "a \"b\", c"}, {values, gappy})) << session_.saveError.text();
  EXPECT_THAT(session_.savedFiles, ElementsAre(folder_ / file()));

  const Dataset dataset = loadDataset({folder_ / file(), ""});
  ASSERT_EQ(dataset.columns.size(), 2u);
  EXPECT_EQ(dataset.columns[0].name, "PRE_1");
  EXPECT_EQ(dataset.columns[1].name, "a \"b\", c");
  EXPECT_TRUE(sameBits(dataset.columns[0].numbers, values));
  EXPECT_TRUE(sameBits(dataset.columns[1].numbers, gappy));
}

// A spreadsheet that opens the file runs none of them.
TEST_P(SavedFile, NamesLikeFormulasAreReadBackAsTheyWere) {
  const std::vector<std::string> names{"=1+1", "@SUM", "+a", "-a", "'=x", "''", "-1", "plain"};
  ASSERT_TRUE(save(file(), names, std::vector<std::vector<double>>(names.size(), {1, 2}))) << session_.saveError.text();
  std::vector<std::string> read;
  for (const Column& column : loadDataset({folder_ / file(), ""}).columns) read.push_back(column.name);
  EXPECT_EQ(read, names);
  if (file() != "out.csv") return;
  EXPECT_THAT(contents(folder_ / file()), StartsWith("'=1+1,'@SUM,'+a,'-a,''=x,"));
}

TEST_P(SavedFile, ASingleVariableKeepsItsMissingCases) {
  const std::vector<double> values{kSystemMissing, 1.5, kSystemMissing, std::nan(""), 2.5, kSystemMissing};
  ASSERT_TRUE(save(file(), {"PRE_1"}, {values})) << session_.saveError.text();
  EXPECT_THAT(loadDataset({folder_ / file(), ""}).columns[0].numbers,
              ElementsAre(kSystemMissing, 1.5, kSystemMissing, kSystemMissing, 2.5, kSystemMissing));
  // Other readers skip an empty line.
  if (file() == "out.csv") {
    EXPECT_THAT(contents(folder_ / file()), StartsWith("PRE_1\n\"\"\n1.5\n\"\"\n"));
  }
}

TEST_P(SavedFile, AnOldFileIsReplacedAndNothingElseIsLeft) {
  std::filesystem::permissions(folder_.write(file(), "old"), std::filesystem::perms(0640));
  ASSERT_TRUE(save(file(), {"PRE_1"}, {{1, 2}})) << session_.saveError.text();
  EXPECT_THAT(loadDataset({folder_ / file(), ""}).columns[0].numbers, ElementsAre(1, 2));
  EXPECT_EQ(std::filesystem::status(folder_ / file()).permissions(), std::filesystem::perms(0640));
  const std::vector<std::string> csv{"out.csv", "out.csv.meta.json"};
  EXPECT_EQ(folder_.listing(), file() == "out.csv" ? csv : std::vector{file()});
}

TEST_P(SavedFile, LabelsLevelsAndFormatsAreKept) {
  ASSERT_TRUE(save(file(), {"PRE_1", "it's"}, {{1}, {2}})) << session_.saveError.text();
  const std::string path = (folder_ / file()).string();
  std::string metadata;
  if (file() == "out.csv") {
    metadata = contents(path + ".meta.json");
  } else if (file() == "out.parquet") {
    const std::string query =
        "SELECT decode(value) FROM parquet_kv_metadata('" + path + "') WHERE decode(key) = 'varmodel'";
    metadata = loadDataset({path, query}).columns[0].texts[0];
  } else {
    metadata =
        loadDataset({path, "SELECT comment FROM duckdb_tables() WHERE table_name = 'cases'"}).columns[0].texts[0];
    EXPECT_THAT(loadDataset({path, "SELECT comment FROM duckdb_columns() WHERE table_name = 'cases'"}).columns[0].texts,
                ElementsAre("Predicted: PRE_1", "Predicted: it's"));
  }
  EXPECT_THAT(metadata, AllOf(HasSubstr(R"("label":"Saved \"values\"")"),
                              HasSubstr(R"({"name":"it's","label":"Predicted: it's","level":"scale",)"
                                        R"("printFormat":{"type":5,"width":8,"decimals":3},)"
                                        R"("writeFormat":{"type":5,"width":9,"decimals":4}})")));
}

INSTANTIATE_TEST_SUITE_P(Formats, SavedFile, testing::Values("csv", "parquet", "duckdb"));

TEST(Metadata, NamesEveryLevel) {
  Dataset dataset;
  for (const MeasurementLevel level : {MeasurementLevel::nominal, MeasurementLevel::ordinal, MeasurementLevel::scale}) {
    dataset.columns.emplace_back().level = level;
  }
  EXPECT_THAT(metadataJson(dataset), testing::ContainsRegex(R"("nominal".*"ordinal".*"scale")"));
}

TEST_F(SaveTest, SpecificationsTakeKnownExtensionsOnly) {
  const std::vector<std::pair<std::string, std::string>> cases = {
      {"OUT.CSV", ""},
      {"a b.parquet", ""},
      {"x.duckdb", ""},
      {"", "no file"},
      {"out", "extension"},
      {"out.sav", "one of .csv, .parquet, .duckdb"},
      {"folder.csv", "SAVE FILE folder.csv is a folder. Name a file in it."}};
  std::filesystem::create_directory(folder_ / "folder.csv");
  for (const auto& [path, reason] : cases) {
    session_.saveError = {};
    UserCaseFileSpec specification;
    EXPECT_EQ(specification.Init(path, false, true), reason.empty()) << path;
    EXPECT_EQ(specification.IsInit(), reason.empty()) << path;
    EXPECT_THAT(session_.saveError.text(), HasSubstr(reason)) << path;
  }
}

TEST_F(SaveTest, FilesThatTheRunReadsOrWritesAreNotOverwritten) {
  const auto source = folder_.write("data.csv", "a\n1\n");
  std::filesystem::create_symlink(source, folder_ / "link.csv");
  std::filesystem::create_hard_link(source, folder_ / "hard.csv");
  session_.takenFiles = {{source, "this run reads it"},
                         {folder_ / "x.csv.meta.json", "--json is written to it"},
                         {folder_ / "not_there_yet.csv", "--html is written to it"}};
  for (const char* name : {"data.csv", "link.csv", "hard.csv", "x.csv", "./sub/../data.csv", "not_there_yet.csv"}) {
    session_.saveError = {};
    EXPECT_FALSE(UserCaseFileSpec().Init(name, true, true)) << name;
    EXPECT_THAT(session_.saveError.text(), HasSubstr("Choose another name")) << name;
  }
  EXPECT_EQ(contents(source), "a\n1\n");
  EXPECT_THAT(session_.savedFiles, IsEmpty());
  EXPECT_FALSE(refusedTarget(folder_ / "free.csv", session_.takenFiles).has_value());
}

TEST_F(SaveTest, WhatCannotBeSavedWholeIsNotSaved) {
  folder_.write("out.csv", "old");
  EXPECT_FALSE(save("out.csv", {"X_1", "x_1"}, {{1}, {2}}));
  EXPECT_THAT(session_.saveError.text(), AllOf(HasSubstr("\"x_1\""), HasSubstr("rename one of them")));
  EXPECT_FALSE(save("out.csv", {"line\nbreak"}, {{1}}));
  EXPECT_THAT(session_.saveError.text(), HasSubstr("control character"));
  EXPECT_FALSE(UserOutputCaseFile(UserCaseFileSpec()).Close());
  {
    UserCaseFileSpec specification;
    ASSERT_TRUE(specification.Init("out.csv", true, true));
    UserOutputCaseFile neverClosed(specification);
    addVariable(neverClosed.DataSource(), "PRE_1", "");
  }
  EXPECT_EQ(contents(folder_ / "out.csv"), "old");
  EXPECT_THAT(folder_.listing(), ElementsAre("out.csv"));
}

TEST_F(SaveTest, WhatDoesNotFitIsRefused) {
  UserCaseFileSpec specification;
  EXPECT_FALSE(specification.Init("out.csv", true, false));
  EXPECT_EQ(session_.saveError.text(), "Saved files can only be written here.");
  ASSERT_TRUE(specification.Init("out.csv", true, true));
  UserOutputCaseFile output(specification);
  IndependentDataStore& store = output.DataSource();
  std::vector<double> narrowBuffer;
  const VEXA_Case narrow(store, narrowBuffer);  // made before the variable
  addVariable(store, "PRE_1", "");
  std::vector<double> buffer;
  VEXA_Case oneCase(store, buffer);
  EXPECT_FALSE(oneCase.SetColumnValue(-1, 7) || oneCase.SetColumnValue(1, 7));
  EXPECT_TRUE(oneCase.SetColumnValue(0, 7));
  EXPECT_FALSE(store.AddCase(narrow));
  UserOutputCaseFile other(specification);
  addVariable(other.DataSource(), "PRE_1", "");
  EXPECT_FALSE(other.DataSource().AddCase(oneCase));
  EXPECT_TRUE(store.AddCase(oneCase));
  ASSERT_TRUE(output.Close());
  EXPECT_FALSE(store.AddCase(oneCase) || output.Close());
  EXPECT_EQ(contents(folder_ / "out.csv"), "PRE_1\n7.0\n");
}

}  // namespace
}  // namespace workbench
