// The saved file of predicted values and residuals, read back.

#include "save/save_out_file.h"

#include <filesystem>
#include <fstream>

#include "tests/procedure/procedure_fixture.h"
#include "workbench/dataset/load.h"

namespace varmodel {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::StartsWith;

class SaveTest : public ProcedureTest {
 protected:
  void SetUp() override {
    path = std::filesystem::path(testing::TempDir()) / "varmodel_saved.parquet";
    std::filesystem::remove(path);
    results.resize(2);
    results[0].equationName = "gdp";
    results[0].fittedValues = {{1.25, 1.0 / 3.0}};
    results[0].residuals = {{-0.5, 0.5, 4.0}};
    results[1].equationName = "cons";
    results[1].fittedValues = {{7.0}};
    results[1].residuals = {{1e-300, 2.0, 3.0}};
  }
  // Asks for the file, with the prefixes given ("" for a kind that is not asked for).
  void ask(const std::string& predicted, const std::string& residual) {
    settings.saveFile = settings.saveFileSpec.Init(path.string(), true, true);
    ASSERT_TRUE(settings.saveFile);
    settings.savePredicted = !predicted.empty();
    settings.predictedPrefix = predicted;
    settings.saveResiduals = !residual.empty();
    settings.residualPrefix = residual;
  }
  std::int32_t save() { return VARSaveOutFile(settings, results).run(); }
  std::vector<std::string> columnNames(const workbench::Dataset& dataset) {
    std::vector<std::string> names;
    for (const workbench::Column& column : dataset.columns) names.push_back(column.name);
    return names;
  }

  std::filesystem::path path;
  VARInputSettings settings{nullptr, nullptr, nullptr};
  std::vector<EquationResult> results;
};

TEST_F(SaveTest, WritesEveryEquationsVectorsSideBySide) {
  ask("PRE_", "RES_");
  ASSERT_EQ(save(), 0) << session.saveError;
  const workbench::Dataset saved = workbench::loadDataset({path, ""});
  EXPECT_THAT(columnNames(saved), ElementsAre("PRE_1", "RES_1", "PRE_2", "RES_2"));
  EXPECT_THAT(saved.columns[0].numbers, ElementsAre(1.25, 1.0 / 3.0, kSystemMissing));
  EXPECT_THAT(saved.columns[1].numbers, ElementsAre(-0.5, 0.5, 4.0));
  EXPECT_THAT(saved.columns[2].numbers, ElementsAre(7.0, kSystemMissing, kSystemMissing));
  EXPECT_THAT(saved.columns[3].numbers, ElementsAre(1e-300, 2.0, 3.0));
  EXPECT_THAT(session.savedFiles, ElementsAre(path));
}

TEST_F(SaveTest, WritesOnlyTheKindAskedForAsLongAsTheLongestResult) {
  ask("p", "");
  ASSERT_EQ(save(), 0) << session.saveError;
  const workbench::Dataset saved = workbench::loadDataset({path, ""});
  EXPECT_THAT(columnNames(saved), ElementsAre("p1", "p2"));
  EXPECT_EQ(saved.rowCount, 3U);
}

TEST_F(SaveTest, NothingAskedForIsASuccessWithoutAFile) {
  EXPECT_EQ(save(), 0);
  EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(SaveTest, WhatCannotBeWrittenLeavesNoFile) {
  ask("PRE_", "RES_");
  results.clear();
  EXPECT_EQ(save(), 1);
  SetUp();
  ask("", "");  // FILE alone
  EXPECT_EQ(save(), 1);
  EXPECT_THAT(err.lines(), Contains("Error: VARSaveOutFile::close - Close the external output file failed"));
  ask("X_", "X_");  // two variables of one name
  EXPECT_EQ(save(), 1);
  VARInputSettings uninitialised(nullptr, nullptr, nullptr);
  uninitialised.saveFile = uninitialised.savePredicted = true;
  EXPECT_EQ(VARSaveOutFile(uninitialised, results).run(), 1);
  EXPECT_FALSE(std::filesystem::exists(path));
  EXPECT_THAT(session.savedFiles, testing::IsEmpty());
}

TEST_F(SaveTest, AFailureLeavesAnEarlierFileAsItWas) {
  std::ofstream(path) << "precious";
  ask("X_", "X_");
  EXPECT_EQ(save(), 1);
  std::string content;
  std::ifstream(path) >> content;
  EXPECT_EQ(content, "precious");
}

}  // namespace
}  // namespace varmodel
