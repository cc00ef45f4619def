// A session with a folder of its own, and the saving of small datasets as the procedure does it.

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/case_file.h"
#include "tests/dataset/temp_folder.h"
#include "workbench/edge/session.h"

namespace workbench {

class SaveTest : public testing::Test {
 protected:
  SaveTest() { session_.baseFolder = folder_.path(); }

  static void addVariable(IndependentDataStore& store, const std::string& name, const std::string& label) {
    VEXA_Variable* variable = store.MakeVariable(0, name);
    if (variable == nullptr) return;
    variable->SetFormat(5, 8, 3);
    variable->SetWriteFormat(5, 9, 4);
    variable->SetMeasurementLevel(3);
    variable->SetLabel(label);
  }

  // One case a row, column by column; true when the file was written.
  bool save(const std::string& file, const std::vector<std::string>& names,
            const std::vector<std::vector<double>>& columns) {
    UserCaseFileSpec specification;
    if (!specification.Init(file, true, true)) return false;
    UserOutputCaseFile output(specification);
    IndependentDataStore& store = output.DataSource();
    store.SetLabel("Saved \"values\"");
    for (const std::string& name : names) addVariable(store, name, "Predicted: " + name);
    std::vector<double> buffer;
    VEXA_Case oneCase(store, buffer);
    for (std::size_t row = 0; row < columns.at(0).size(); ++row) {
      oneCase.InitCase();
      for (std::size_t i = 0; i < columns.size(); ++i) oneCase.SetColumnValue(static_cast<int>(i), columns[i][row]);
      store.AddCase(oneCase);
    }
    return output.Close();
  }

  TempFolder folder_;
  Session session_;
  SessionScope scope_{session_};
};

// With a file of each format.
class EveryFormat : public SaveTest, public testing::WithParamInterface<const char*> {
 protected:
  std::string file() const { return std::string("out.") + GetParam(); }
};

}  // namespace workbench
