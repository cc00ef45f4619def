#include "procedures/vardynamics/syntax/read_settings.h"

#include "host/codes.h"
#include "procedures/vardynamics/data/user_error.h"
#include "procedures/vardynamics/syntax/subcommands.h"

namespace vardynamics {
namespace {

void requirePlainCases(ProcedureDataSource& dataSource) {
  if (dataSource.GetDataSource()->IsSplitFileOn()) {
    fail("VARDYNAMICS analyses one series of cases. Turn off split file.");
  }
  if (dataSource.GetWeightVarIndex() != codes::kNoWeight) {
    fail("VARDYNAMICS counts every case once. Remove the weight variable.");
  }
}

class ModelReader {
 public:
  ModelReader(const SubComObj& model, const CommandDescriptor& descriptor, ProcedureDataSource& dataSource)
      : model_(model), descriptor_(descriptor), dataset_(*dataSource.GetDataSource()) {}

  ModelSettings read() const {
    ModelSettings settings = readModelOptions(model_);
    settings.endogenous = variables("ENDOGENOUS");
    if (settings.endogenous.indexes.size() < 2) {
      fail("ENDOGENOUS needs two series or more. Give them as in ENDOGENOUS=a b.");
    }
    if (model_.getParamObj("EXOGENOUS") == nullptr) return settings;
    settings.exogenous = variables("EXOGENOUS");
    if (settings.exogenous.indexes.empty()) fail("EXOGENOUS lists no numeric variable. Give one, or leave it out.");
    return settings;
  }

 private:
  // The variables that the host accepts; it reports the others.
  VariableList variables(const char* name) const {
    VariableList list;
    const ParamObj* parameter = model_.getParamObj(name);
    std::vector<VexaVarName> names;
    if (parameter == nullptr || !parameter->getVarList(names)) return list;
    VarSpecObj validator(name, "MODEL", descriptor_, &dataset_, true);
    if (!validator.ValidateVariables(names, codes::kPlainValidation)) {
      fail("MODEL: a variable of ^1 cannot be analysed. Give numeric variables only.", {name});
    }
    for (const int index : validator.GetValidVarList()) {
      list.indexes.push_back(index);
      list.names.push_back(dataset_.GetVariable(index)->GetName());
    }
    return list;
  }

  const SubComObj& model_;
  const CommandDescriptor& descriptor_;
  VEXA_DataSource& dataset_;
};

const SubComObj& modelOf(const CommandSpec& command) {
  const SubComObj* model = command.getSubComObj("MODEL");
  if (model == nullptr) fail("VARDYNAMICS has no model. Give /MODEL ENDOGENOUS=a b.");
  return *model;
}

// Runs the reader on the subcommand where it was given.
template <typename Read, typename Target>
void readIfGiven(const CommandSpec& command, const char* name, Read read, Target& target) {
  if (const SubComObj* given = command.getSubComObj(name)) target = read(*given);
}

// A keyword that asks for something of a subcommand that is not there.
void refuseWithoutForecast(const CommandSpec& command, const Settings& settings) {
  if (settings.forecast) return;
  const SubComObj* plot = command.getSubComObj("PLOT");
  if (plot != nullptr && plot->getParamObj("TYPE") != nullptr && settings.plot->forecast) {
    fail("PLOT asks for FORECAST, and there is no subcommand FORECAST. Add /FORECAST, or leave out the keyword.");
  }
  if (!settings.save || !settings.save->forecasts) return;
  fail("SAVE asks for FORECASTS, and there is no subcommand FORECAST. Add /FORECAST, or leave out FORECASTS.");
}

}  // namespace

Settings readSettings(const CommandSpec& command, const CommandDescriptor& descriptor,
                      ProcedureDataSource& dataSource) {
  requirePlainCases(dataSource);
  Settings settings;
  settings.model = ModelReader(modelOf(command), descriptor, dataSource).read();
  settings.stability = command.getSubComObj("STABILITY") != nullptr;
  readIfGiven(command, "TESTS", readTests, settings.tests);
  readIfGiven(command, "CAUSALITY", readCausality, settings.causality);
  readIfGiven(command, "FORECAST", readForecast, settings.forecast);
  readIfGiven(command, "PLOT", readPlot, settings.plot);
  readIfGiven(command, "SAVE", readSave, settings.save);
  readIfGiven(command, "AUXILIARY", readLevels, settings.levels);
  readIfGiven(command, "MISSING", readUserMissing, settings.includeUserMissing);
  refuseWithoutForecast(command, settings);
  return settings;
}

}  // namespace vardynamics
