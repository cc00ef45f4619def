// The saved file of predicted values and residuals, read back.

#include "procedures/varmodel/save/save_out_file.h"

#include <filesystem>
#include <fstream>

#include "tests/procedure/procedure_fixture.h"
#include "workbench/dataset/load.h"

namespace varmodel {
namespace {

using testing::Contains;
using testing::ElementsAre;

auto column(const std::string& name, const std::vector<double>& values) {
  return testing::AllOf(testing::Field(&workbench::Column::name, name),
                        testing::Field(&workbench::Column::numbers, values));
}

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

  std::filesystem::path path;
  VARInputSettings settings{nullptr, nullptr, nullptr};
  std::vector<EquationResult> results;
};

TEST_F(SaveTest, WritesEveryEquationsVectorsSideBySide) {
  ask("PRE_", "RES_");
  ASSERT_EQ(save(), 0) << session.saveError.text();
  const workbench::Dataset saved = workbench::loadDataset({path, ""});
  EXPECT_THAT(saved.columns,
              ElementsAre(column("PRE_1", {1.25, 1.0 / 3.0, kSystemMissing}), column("RES_1", {-0.5, 0.5, 4.0}),
                          column("PRE_2", {7.0, kSystemMissing, kSystemMissing}), column("RES_2", {1e-300, 2.0, 3.0})));
  EXPECT_THAT(session.savedFiles, ElementsAre(path));
}

TEST_F(SaveTest, WritesOnlyTheKindAskedForAsLongAsTheLongestResult) {
  ask("p", "");
  ASSERT_EQ(save(), 0) << session.saveError.text();
  EXPECT_THAT(workbench::loadDataset({path, ""}).columns,
              ElementsAre(column("p1", {1.25, 1.0 / 3.0, kSystemMissing}),
                          column("p2", {7.0, kSystemMissing, kSystemMissing})));
}

TEST_F(SaveTest, LabelsAndFormatsGoAlong) {
  path.replace_extension(".csv");
  results.resize(1);
  ask("PRE_", "RES_");
  ASSERT_EQ(save(), 0) << session.saveError.text();
  std::string metadata;
  std::getline(std::ifstream(path.string() + ".meta.json"), metadata);
  const std::string format = R"({"type":5,"width":8,"decimals":3})";
  const std::string display = R"(","level":"scale","printFormat":)" + format + R"(,"writeFormat":)" + format + "}";
  EXPECT_EQ(metadata, R"({"label":"VAR Model Predicted Values and Residuals","variables":[)"
                      R"({"name":"PRE_1","label":"Predicted: gdp)" +
                          display + R"(,{"name":"RES_1","label":"Residual: gdp)" + display + "]}");
}

TEST_F(SaveTest, NothingAskedForAndFailuresLeaveAnEarlierFileAsItWas) {
  std::ofstream(path) << "precious";
  EXPECT_EQ(save(), 0);
  ask("X_", "X_");  // two variables of one name
  EXPECT_EQ(save(), 1);
  ask("", "");  // FILE alone
  EXPECT_EQ(save(), 1);
  EXPECT_THAT(err.lines(), Contains("Error: VARSaveOutFile::close - Close the external output file failed"));
  VARInputSettings uninitialised(nullptr, nullptr, nullptr);
  uninitialised.saveFile = uninitialised.savePredicted = true;
  EXPECT_EQ(VARSaveOutFile(uninitialised, results).run(), 1);
  ask("PRE_", "RES_");
  results.clear();
  EXPECT_EQ(save(), 1);
  std::string content;
  std::ifstream(path) >> content;
  EXPECT_EQ(content, "precious");
  EXPECT_THAT(session.savedFiles, testing::IsEmpty());
}

}  // namespace
}  // namespace varmodel
