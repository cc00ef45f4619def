#include "procedures/varmodel/save/save_out_file.h"

#include <algorithm>
#include <exception>
#include <iostream>

namespace varmodel {
namespace {

constexpr std::int32_t kClosed = 3;
constexpr std::int32_t kFailed = 4;
constexpr int kNumeric = 0;
constexpr int kFormatType = 5;
constexpr int kFormatWidth = 8;
constexpr int kFormatDecimals = 3;
constexpr int kScaleLevel = 3;

std::size_t longestResult(const std::vector<EquationResult>& results) {
  std::size_t longest = 0;
  for (const EquationResult& result : results) {
    longest = std::max({longest, onlySeries(result.fittedValues).size(), onlySeries(result.residuals).size()});
  }
  return longest;
}

bool describeVariable(VEXA_Variable& variable, const std::string& label) {
  return variable.SetFormat(kFormatType, kFormatWidth, kFormatDecimals) &&
         variable.SetWriteFormat(kFormatType, kFormatWidth, kFormatDecimals) &&
         variable.SetMeasurementLevel(kScaleLevel) && variable.SetLabel(label);
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
  std::cerr << "Error: VARSaveOutFile::" << text << '\n';
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
  VEXA_Variable* variable = file_->DataSource().MakeVariable(kNumeric, name);
  if (variable == nullptr || !describeVariable(*variable, label)) fail("defineVariable - Variable refused: " + name);
}

void VARSaveOutFile::writeCases() {
  IndependentDataStore& store = file_->DataSource();
  std::vector<double> buffer;
  VEXA_Case newCase(store, buffer);
  const std::size_t caseCount = longestResult(results_);
  for (std::size_t i = 0; i < caseCount && state_ != kFailed; ++i) {
    newCase.InitCase();
    bool written = true;
    for (std::size_t column = 0; column < columns_.size(); ++column) {
      const std::vector<double>& values = *columns_[column];
      if (i < values.size()) written = newCase.SetColumnValue(static_cast<int>(column), values[i]) && written;
    }
    if (!store.AddCase(newCase) || !written) fail("writeCases - Case " + std::to_string(i + 1) + " was not written");
  }
}

void VARSaveOutFile::close() {
  state_ = file_->Close() ? kClosed : kFailed;
  if (state_ == kFailed) std::cerr << "Error: VARSaveOutFile::close - Close the external output file failed\n";
}

}  // namespace varmodel
