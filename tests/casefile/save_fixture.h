// A session with a folder of its own, and the saving of small datasets as the procedure does it.

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "host/case_file.h"
#include "tests/dataset/temp_folder.h"
#include "workbench/session/session.h"

namespace workbench {

inline std::string contents(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

class SaveTest : public testing::Test {
 protected:
  SaveTest() { session_.baseFolder = folder_.path(); }

  static void addVariable(IndependentDataStore& store, const std::string& name, const std::string& label) {
    VEXA_Variable* variable = store.MakeVariable(0, name);
    if (variable == nullptr) return;
    variable->SetName(name);
    variable->SetFormat(5, 8, 3);
    variable->SetWriteFormat(5, 8, 3);
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

  std::vector<std::string> filesInFolder() const {
    std::vector<std::string> names;
    for (const auto& entry : std::filesystem::directory_iterator(folder_.path())) {
      names.push_back(entry.path().filename().string());
    }
    return names;
  }

  TempFolder folder_;
  Session session_;
  SessionScope scope_{session_};
};

}  // namespace workbench
