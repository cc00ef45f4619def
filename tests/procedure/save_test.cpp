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
    // Tests may run side by side, each in its own process.
    const char* test = testing::UnitTest::GetInstance()->current_test_info()->name();
    path = std::filesystem::path(testing::TempDir()) / (std::string("varmodel_save_") + test + ".parquet");
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

TEST_F(SaveTest, LabelsAndFormatsGoAlong) {
  path.replace_extension(".csv");
  results.resize(1);
  ask("PRE_", "RES_");
  ASSERT_EQ(save(), 0) << session.saveError;
  std::ifstream file(path.string() + ".meta.json");
  const std::string text(std::istreambuf_iterator<char>(file), {});
  rapidjson::Document metadata;
  metadata.Parse(text);
  ASSERT_TRUE(metadata.IsObject()) << text;
  EXPECT_STREQ(metadata["label"].GetString(), "VAR Model Predicted Values and Residuals");
  const char* labels[] = {"Predicted: gdp", "Residual: gdp"};
  ASSERT_EQ(metadata["variables"].Size(), 2U);
  for (rapidjson::SizeType i = 0; i < 2; ++i) {
    const rapidjson::Value& variable = metadata["variables"][i];
    EXPECT_STREQ(variable["label"].GetString(), labels[i]);
    EXPECT_STREQ(variable["level"].GetString(), "scale");
    for (const char* format : {"printFormat", "writeFormat"}) {
      EXPECT_EQ(variable[format]["type"].GetInt(), 5);
      EXPECT_EQ(variable[format]["width"].GetInt(), 8);
      EXPECT_EQ(variable[format]["decimals"].GetInt(), 3);
    }
  }
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
