// The saved data file of predicted values and residuals: one variable an equation and kind, one case a result row.

#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/case_file.h"
#include "procedures/varmodel/algo/equation_result.h"
#include "procedures/varmodel/syntax/input_settings.h"

namespace varmodel {

class VARSaveOutFile {
 public:
  // Both must outlive the writer.
  VARSaveOutFile(const VARInputSettings& settings, const std::vector<EquationResult>& results);
  VARSaveOutFile(const VARSaveOutFile&) = delete;
  VARSaveOutFile& operator=(const VARSaveOutFile&) = delete;
  // Releases a file that is still open; the host then leaves its target untouched.
  ~VARSaveOutFile() = default;

  // 0 when the file was written or none was asked for, else 1. Lets no exception out.
  std::int32_t run();

 private:
  void open();
  void defineVariables();
  void defineVariable(const std::string& name, const std::string& label);
  void writeCases();
  void close();
  void fail(const std::string& text);

  const VARInputSettings& settings_;
  const std::vector<EquationResult>& results_;
  std::unique_ptr<UserOutputCaseFile> file_;
  // What the file's columns hold, in their order.
  std::vector<const std::vector<double>*> columns_;
  std::int32_t state_ = 0;  // 3 closed, 4 failed
};

}  // namespace varmodel
