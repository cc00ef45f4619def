// What is saved is read back, through DuckDB, bit by bit.

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>

#include "tests/casefile/save_fixture.h"
#include "workbench/casefile/case_file_spec.h"
#include "workbench/dataset/load.h"

namespace workbench {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::UnorderedElementsAreArray;

using Limits = std::numeric_limits<double>;

std::vector<double> awkwardValues() {
  std::vector<double> values{0.0,
                             -0.0,
                             0.1,
                             1.0 / 3.0,
                             -2710.349,
                             Limits::denorm_min(),
                             -3 * Limits::denorm_min(),
                             Limits::min(),
                             Limits::max(),
                             -std::nextafter(Limits::max(), 0.0),
                             9007199254740993.0,
                             1e22,
                             123456789.01234567,
                             5e-5,
                             Limits::infinity(),
                             -Limits::infinity()};
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

class SavedFile : public SaveTest, public testing::WithParamInterface<const char*> {
 protected:
  std::string file() const { return std::string("out") + GetParam(); }
};

TEST_P(SavedFile, ValuesAreReadBackBitByBit) {
  const std::vector<double> values = awkwardValues();
  std::vector<double> gappy = values;
  for (std::size_t i = 0; i < gappy.size(); i += 3) gappy[i] = kSystemMissing;
  gappy.back() = kSystemMissing;
  ASSERT_TRUE(save(file(), {"PRE_1", "a \"b\", c"}, {values, gappy})) << session_.saveError;
  EXPECT_THAT(session_.savedFiles, ElementsAre(folder_ / file()));

  const Dataset dataset = loadDataset({folder_ / file(), ""});
  ASSERT_EQ(dataset.columns.size(), 2u);
  EXPECT_EQ(dataset.columns[0].name, "PRE_1");
  EXPECT_EQ(dataset.columns[1].name, "a \"b\", c");
  EXPECT_TRUE(sameBits(dataset.columns[0].numbers, values));
  EXPECT_TRUE(sameBits(dataset.columns[1].numbers, gappy));
}

TEST_P(SavedFile, ASingleVariableKeepsItsMissingCases) {
  const std::vector<double> values{kSystemMissing, 1.5, kSystemMissing, Limits::quiet_NaN(), 2.5, kSystemMissing};
  ASSERT_TRUE(save(file(), {"PRE_1"}, {values})) << session_.saveError;
  EXPECT_THAT(loadDataset({folder_ / file(), ""}).columns[0].numbers,
              ElementsAre(kSystemMissing, 1.5, kSystemMissing, kSystemMissing, 2.5, kSystemMissing));
}

TEST_P(SavedFile, AnOldFileIsReplacedAndNothingElseIsLeft) {
  std::filesystem::permissions(folder_.write(file(), "old"), std::filesystem::perms(0640));
  ASSERT_TRUE(save(file(), {"PRE_1"}, {{1, 2}})) << session_.saveError;
  EXPECT_THAT(loadDataset({folder_ / file(), ""}).columns[0].numbers, ElementsAre(1, 2));
  EXPECT_EQ(std::filesystem::status(folder_ / file()).permissions(), std::filesystem::perms(0640));
  std::vector<std::string> expected{file()};
  if (file() == "out.csv") expected.push_back("out.csv.meta.json");
  EXPECT_THAT(filesInFolder(), UnorderedElementsAreArray(expected));
}

TEST_P(SavedFile, LabelsLevelsAndFormatsAreKept) {
  ASSERT_TRUE(save(file(), {"PRE_1", "it's"}, {{1}, {2}})) << session_.saveError;
  const std::string path = (folder_ / file()).string();
  std::string metadata;
  if (file() == "out.csv") {
    metadata = contents(path + ".meta.json");
  } else if (file() == "out.parquet") {
    const std::string query =
        "SELECT decode(value) FROM parquet_kv_metadata('" + path + "') WHERE decode(key) = 'varmodel'";
    metadata = loadDataset({{}, query}).columns[0].texts[0];
  } else {
    metadata =
        loadDataset({path, "SELECT comment FROM duckdb_tables() WHERE table_name = 'cases'"}).columns[0].texts[0];
    EXPECT_THAT(loadDataset({path, "SELECT comment FROM duckdb_columns() WHERE table_name = 'cases'"}).columns[0].texts,
                ElementsAre("Predicted: PRE_1", "Predicted: it's"));
  }
  const char* format = R"({"type":5,"width":8,"decimals":3})";
  EXPECT_THAT(metadata, AllOf(HasSubstr(R"("label":"Saved \"values\"")"),
                              HasSubstr(R"({"name":"it's","label":"Predicted: it's","level":"scale","printFormat":)" +
                                        std::string(format) + R"(,"writeFormat":)" + format + "}")));
}

INSTANTIATE_TEST_SUITE_P(Formats, SavedFile, testing::Values(".csv", ".parquet", ".duckdb"),
                         [](const auto& format) { return format.param + 1; });

TEST_F(SaveTest, SpecificationsTakeKnownExtensionsOnly) {
  const struct {
    const char* path;
    bool accepted;
    const char* reason;
  } cases[] = {
      {"out.csv", true, ""},
      {"OUT.CSV", true, ""},
      {"a b.parquet", true, ""},
      {"x.duckdb", true, ""},
      {"", false, "no file"},
      {"out", false, "extension"},
      {"out.sav", false, ".csv, .parquet or .duckdb"},
      {"folder.csv", false, "folder"},
  };
  std::filesystem::create_directory(folder_ / "folder.csv");
  for (const auto& c : cases) {
    session_.saveError.clear();
    UserCaseFileSpec specification;
    EXPECT_EQ(specification.Init(c.path, false, true), c.accepted) << c.path;
    EXPECT_EQ(specification.IsInit(), c.accepted) << c.path;
    EXPECT_THAT(session_.saveError, HasSubstr(c.reason)) << c.path;
  }
}

TEST_F(SaveTest, FilesThatTheRunReadsAreNotOverwritten) {
  const auto source = folder_.write("data.csv", "a\n1\n");
  std::filesystem::create_symlink(source, folder_ / "link.csv");
  std::filesystem::create_hard_link(source, folder_ / "hard.csv");
  session_.protectedPaths = {source, folder_ / "x.csv.meta.json", folder_ / "not_there_yet.csv"};
  for (const char* name : {"data.csv", "link.csv", "hard.csv", "x.csv", "./sub/../data.csv", "not_there_yet.csv"}) {
    session_.saveError.clear();
    EXPECT_FALSE(UserCaseFileSpec().Init(name, true, true)) << name;
    EXPECT_THAT(session_.saveError, HasSubstr("Choose another name")) << name;
  }
  EXPECT_EQ(contents(source), "a\n1\n");
  EXPECT_THAT(session_.savedFiles, IsEmpty());
  EXPECT_EQ(refusedTarget(folder_ / "free.csv", session_.protectedPaths), std::nullopt);
}

TEST_F(SaveTest, WhatCannotBeSavedWholeIsNotSaved) {
  folder_.write("out.csv", "old");
  EXPECT_FALSE(save("out.csv", {"X_1", "x_1"}, {{1}, {2}}));
  EXPECT_THAT(session_.saveError, AllOf(HasSubstr("\"x_1\""), HasSubstr("different prefixes")));
  EXPECT_FALSE(save("out.csv", {"line\nbreak"}, {{1}}));
  EXPECT_THAT(session_.saveError, HasSubstr("control character"));
  EXPECT_FALSE(save("out.csv", {}, {{}}));
  EXPECT_THAT(session_.saveError, HasSubstr("Add PREDICTED or NRESIDUAL"));
  EXPECT_FALSE(save("nowhere/out.csv", {"PRE_1"}, {{1}}));
  EXPECT_THAT(session_.saveError, AllOf(HasSubstr("nowhere/out.csv"), HasSubstr("Create its folder")));
  EXPECT_FALSE(UserOutputCaseFile(UserCaseFileSpec()).Close());
  {
    UserCaseFileSpec specification;
    ASSERT_TRUE(specification.Init("out.csv", true, true));
    UserOutputCaseFile neverClosed(specification);
    addVariable(neverClosed.DataSource(), "PRE_1", "");
  }
  EXPECT_EQ(contents(folder_ / "out.csv"), "old");
  EXPECT_THAT(filesInFolder(), ElementsAre("out.csv"));
}

TEST_F(SaveTest, CasesMustFitTheDataset) {
  UserCaseFileSpec specification;
  UserOutputCaseFile output(specification);
  UserOutputCaseFile other(specification);
  std::vector<double> buffer;
  VEXA_Case early(output.DataSource(), buffer);
  addVariable(output.DataSource(), "a", "");
  EXPECT_FALSE(output.DataSource().AddCase(early)) << "made before the variable";
  early.InitCase();
  EXPECT_THAT(buffer, ElementsAre(kSystemMissing));
  EXPECT_FALSE(early.SetColumnValue(1, 5));
  EXPECT_FALSE(early.SetColumnValue(-1, 5));
  EXPECT_FALSE(other.DataSource().AddCase(early)) << "a case of another file";
  EXPECT_TRUE(output.DataSource().AddCase(early));
  EXPECT_EQ(output.DataSource().CaseCount(), 1);
}

}  // namespace
}  // namespace workbench
