// MODEL: the variable lists and the lag range.

#include <algorithm>

#include "host/codes.h"
#include "procedures/varmodel/syntax/keyword_flags.h"
#include "procedures/varmodel/syntax/operation_names.h"
#include "procedures/varmodel/syntax/subcommands.h"

namespace varmodel {
namespace {

constexpr const char* kUnreadable = "The variables could not be read from the active dataset.";

// Whether the matrix holds `columnCount` columns of one length.
bool isRectangular(const SeriesMatrix& matrix, std::size_t columnCount) {
  return matrix.size() == columnCount && std::all_of(matrix.begin(), matrix.end(), [&](const auto& column) {
           return column.size() == matrix[0].size();
         });
}

}  // namespace

// One of the two variable lists: its parameter and the parts of the settings record that it fills.
struct VARSubCommands::VariableList {
  const char* parameter;
  std::vector<int>& valid;
  std::vector<std::int32_t>& indexes;
  std::vector<std::string>& names;
};

bool VARSubCommands::readModel(const SubComObj* model) {
  if (model == nullptr) return fail("MODEL subcommand is required");
  if (!readEndogenous(*model) || !readExogenous(*model)) return false;
  if (const ParamObj* lag = model->getParamObj("LAG")) {
    std::vector<std::string> keywords;
    settings_.lagSpecified = lag->getStringList(keywords) || settings_.lagSpecified;
    setFlags(kLagFlags, keywords, settings_);
  }
  return readLagRange(*model);
}

bool VARSubCommands::readEndogenous(const SubComObj& model) {
  const ParamObj* parameter = model.getParamObj("ENDOGENOUS");
  if (parameter == nullptr) return fail("ENDOGENOUS parameter is required in MODEL subcommand");
  const VariableList list{"ENDOGENOUS", settings_.endogenousVarList, settings_.endogenousIndexes,
                          settings_.endogenousNames};
  validateList(*parameter, list);
  if (list.valid.size() < 2) return fail("At least 2 endogenous variables are required for VAR model estimation");
  if (!recordVariables(list, true) || !fetchListed(list.indexes, settings_.endogenousSeries)) return false;
  alignTimeAxis();
  return true;
}

bool VARSubCommands::readExogenous(const SubComObj& model) {
  const ParamObj* parameter = model.getParamObj("EXOGENOUS");
  if (parameter == nullptr) return true;
  const VariableList list{"EXOGENOUS", settings_.exogenousVarList, settings_.exogenousIndexes,
                          settings_.exogenousNames};
  validateList(*parameter, list);
  if (list.valid.empty()) {
    return fail("At least one exogenous variable is required when EXOGENOUS parameter is specified.");
  }
  return recordVariables(list, false) && fetchListed(list.indexes, settings_.exogenousSeries) && sameCasesInBothLists();
}

void VARSubCommands::validateList(const ParamObj& parameter, const VariableList& list) {
  std::vector<VexaVarName> names;
  if (!parameter.getVarList(names) || names.empty()) return;
  VarSpecObj validator(list.parameter, "MODEL", *settings_.commandDescriptor, settings_.dataSource->GetDataSource(),
                       true);
  validator.ValidateVariables(names, codes::kPlainValidation);
  list.valid = validator.GetValidVarList();
}

bool VARSubCommands::recordVariables(const VariableList& list, bool scaleOnly) {
  for (const int index : list.valid) {
    const VEXA_Variable* variable = settings_.dataSource->GetDataSource()->GetVariable(index);
    if (variable == nullptr) return fail(kUnreadable);
    if (scaleOnly && variable->GetMeasurementLevel() != codes::kScaleLevel) {
      return fail("Only variables with a valid measurement scale are allowed. " + variable->GetName() +
                  " does not meet this requirement.");
    }
    list.indexes.push_back(index);
    list.names.push_back(variable->GetName());
  }
  return true;
}

std::int32_t VARSubCommands::fetchDataFromActiveDataSet(const std::vector<std::int32_t>& indexes,
                                                        SeriesMatrix& matrix) {
  const bool excludeUserMissing = settings_.userMissing != "INCLUDE";
  const auto buildChain = [&](DataAccessChain& chain) {
    return buildDataAccessChain(chain, indexes, *settings_.dataSource, true, excludeUserMissing, true);
  };
  lastFetch_ = procedures::fetchSeries(kOperations, indexes.size(), buildChain, matrix);
  return lastFetch_.succeeded ? 1 : 0;
}

AlgoDataAccess* VARSubCommands::buildDataAccessChain(DataAccessChain& chain, const std::vector<std::int32_t>& indexes,
                                                     ProcedureDataSource& dataSource, bool registerAsAnalysis,
                                                     bool excludeUserMissing, bool always) {
  return procedures::buildDataAccessChain(chain, indexes, dataSource, {registerAsAnalysis, excludeUserMissing, always});
}

bool VARSubCommands::fetchListed(const std::vector<std::int32_t>& indexes, SeriesMatrix& matrix) {
  const bool read = fetchDataFromActiveDataSet(indexes, matrix) == 1 && isRectangular(matrix, indexes.size());
  return read || fail(kUnreadable);
}

// The two lists drop their missing cases separately, so equal lengths alone do not mean equal cases.
bool VARSubCommands::sameCasesInBothLists() {
  std::vector<std::int32_t> indexes = settings_.endogenousIndexes;
  indexes.insert(indexes.end(), settings_.exogenousIndexes.begin(), settings_.exogenousIndexes.end());
  SeriesMatrix joint;
  if (!fetchListed(indexes, joint)) return false;
  const std::size_t cases = joint.front().size();
  if (cases == settings_.endogenousSeries.front().size() && cases == settings_.exogenousSeries.front().size()) {
    return true;
  }
  return fail(
      "Endogenous and exogenous variables are missing in different cases. Keep only the cases that are complete in "
      "both.");
}

bool VARSubCommands::readLagRange(const SubComObj& model) {
  if (!readInteger(model.getParamObj("MINLAG"), "MINLAG", settings_.minLag)) return false;
  if (!readInteger(model.getParamObj("MAXLAG"), "MAXLAG", settings_.maxLag)) return false;
  return settings_.minLag <= settings_.maxLag || fail("MINLAG must not be greater than MAXLAG.");
}

bool VARSubCommands::readInteger(const ParamObj* parameter, const char* name, std::int32_t& value) {
  if (parameter == nullptr || parameter->getIntegerValue(value)) return true;
  return fail(std::string(name) + " must be an integer.");
}

}  // namespace varmodel
