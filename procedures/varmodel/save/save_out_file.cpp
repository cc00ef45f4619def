#include "procedures/varmodel/save/save_out_file.h"

#include <algorithm>
#include <exception>
#include <iostream>

#include "procedures/common/saved_file.h"
#include "procedures/common/trace.h"

namespace varmodel {
namespace {

constexpr std::int32_t kClosed = 3;
constexpr std::int32_t kFailed = 4;

std::size_t longestResult(const std::vector<EquationResult>& results) {
  std::size_t longest = 0;
  for (const EquationResult& result : results) {
    longest = std::max({longest, onlySeries(result.fittedValues).size(), onlySeries(result.residuals).size()});
  }
  return longest;
}

// A host that throws has not closed the file either.
bool closes(UserOutputCaseFile& file) {
  try {
    return file.Close();
  } catch (...) {
    return false;
  }
}

}  // namespace

VARSaveOutFile::VARSaveOutFile(const VARInputSettings& settings, const std::vector<EquationResult>& results)
    : settings_(settings), results_(results) {}

std::int32_t VARSaveOutFile::run() {
  if (!settings_.saveFile) return 0;
  if (results_.empty()) return 1;
  try {
    open();
    if (state_ != kFailed) writeCases();
    if (state_ != kFailed) close();
  } catch (const std::exception& error) {
    fail(std::string("run - ") + error.what());
  } catch (...) {
    fail("run - Unknown exception");
  }
  return state_ == kFailed ? 1 : 0;
}

void VARSaveOutFile::fail(const std::string& text) {
  procedures::traceLine("Error: VARSaveOutFile::" + text);
  state_ = kFailed;
}

void VARSaveOutFile::open() {
  if (!settings_.saveFileSpec.IsInit()) return fail("open - The file specification is not initialised");
  file_ = std::make_unique<UserOutputCaseFile>(settings_.saveFileSpec);
  file_->DataSource().SetLabel("VAR Model Predicted Values and Residuals");
  defineVariables();
}

void VARSaveOutFile::defineVariables() {
  for (std::size_t i = 0; i < results_.size(); ++i) {
    const EquationResult& result = results_[i];
    const std::string number = std::to_string(i + 1);
    if (settings_.savePredicted) {
      defineVariable(settings_.predictedPrefix + number, "Predicted: " + result.equationName);
      columns_.push_back(&onlySeries(result.fittedValues));
    }
    if (settings_.saveResiduals) {
      defineVariable(settings_.residualPrefix + number, "Residual: " + result.equationName);
      columns_.push_back(&onlySeries(result.residuals));
    }
  }
}

void VARSaveOutFile::defineVariable(const std::string& name, const std::string& label) {
  if (!procedures::defineVariable(*file_, name, label)) fail("defineVariable - Variable refused: " + name);
}

void VARSaveOutFile::writeCases() {
  const std::size_t caseCount = longestResult(results_);
  const std::size_t written = procedures::writeCases(*file_, columns_, caseCount);
  if (written < caseCount) fail("writeCases - Case " + std::to_string(written + 1) + " was not written");
}

void VARSaveOutFile::close() {
  state_ = closes(*file_) ? kClosed : kFailed;
  if (state_ == kFailed) std::cerr << "Error: VARSaveOutFile::close - Close the external output file failed\n";
}

}  // namespace varmodel
