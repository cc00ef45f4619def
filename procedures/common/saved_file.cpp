#include "procedures/common/saved_file.h"

#include "host/codes.h"

namespace procedures {

namespace {

constexpr int kFormatWidth = 8;
constexpr int kFormatDecimals = 3;

bool describeVariable(VEXA_Variable& variable, const std::string& name, const std::string& label) {
  return variable.SetName(name) && variable.SetFormat(codes::kNumericFormat, kFormatWidth, kFormatDecimals) &&
         variable.SetWriteFormat(codes::kNumericFormat, kFormatWidth, kFormatDecimals) &&
         variable.SetMeasurementLevel(codes::kScaleLevel) && variable.SetLabel(label);
}

bool writeCase(IndependentDataStore& store, VEXA_Case& newCase, std::span<const std::vector<double>* const> columns,
               std::size_t row) {
  newCase.InitCase();
  bool written = true;
  for (std::size_t column = 0; column < columns.size(); ++column) {
    const std::vector<double>& values = *columns[column];
    if (row < values.size()) written = newCase.SetColumnValue(static_cast<int>(column), values[row]) && written;
  }
  return store.AddCase(newCase) && written;
}

}  // namespace

bool defineVariable(UserOutputCaseFile& file, const std::string& name, const std::string& label) {
  VEXA_Variable* variable = file.DataSource().MakeVariable(codes::kNumericVariable, name);
  return variable != nullptr && describeVariable(*variable, name, label);
}

std::size_t writeCases(UserOutputCaseFile& file, std::span<const std::vector<double>* const> columns,
                       std::size_t caseCount) {
  IndependentDataStore& store = file.DataSource();
  std::vector<double> buffer;
  VEXA_Case newCase(store, buffer);
  std::size_t written = 0;
  while (written < caseCount && writeCase(store, newCase, columns, written)) ++written;
  return written;
}

}  // namespace procedures
