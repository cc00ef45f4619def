#include "procedures/vardynamics/syntax/read_settings.h"

#include "host/codes.h"
#include "procedures/vardynamics/data/user_error.h"
#include "procedures/vardynamics/syntax/shock_subcommands.h"
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

// A keyword, whether it is asked for, and what makes it.
struct Product {
  const char* keyword;
  bool asked;
  bool made;
  const char* maker;
};

void refuseUnmadePlots(const CommandSpec& command, const Settings& settings) {
  const SubComObj* given = command.getSubComObj("PLOT");
  if (given == nullptr || given->getParamObj("TYPE") == nullptr) return;
  const PlotSettings& plot = *settings.plot;
  const auto& parts = settings.decomposition;
  const Product products[] = {
      {"FORECAST", plot.forecast, settings.forecast.has_value(), "/FORECAST"},
      {"IMPULSE", plot.impulse, settings.impulse.has_value(), "/IMPULSE"},
      {"VARIANCE", plot.variance, parts && (parts->variance || parts->generalized), "/DECOMPOSITION TYPE=[VARIANCE]"},
      {"HISTORICAL", plot.historical, parts && parts->historical, "/DECOMPOSITION TYPE=[HISTORICAL]"},
      {"BACKTEST", plot.backtest, settings.backtest.has_value(), "/BACKTEST"}};
  for (const Product& one : products) {
    if (!one.asked || one.made) continue;
    fail("PLOT asks for ^1, and nothing makes it. Add ^2, or leave out the keyword.", {one.keyword, one.maker});
  }
}

void refuseUnmadeColumns(const Settings& settings) {
  if (!settings.save) return;
  const Product products[] = {{"FORECASTS", settings.save->forecasts, settings.forecast.has_value(), "/FORECAST"},
                              {"BACKTEST", settings.save->backtest, settings.backtest.has_value(), "/BACKTEST"}};
  for (const Product& one : products) {
    if (!one.asked || one.made) continue;
    fail("SAVE asks for ^1, and nothing makes it. Add ^2, or leave out ^1.", {one.keyword, one.maker});
  }
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
  const SubComObj* impulse = command.getSubComObj("IMPULSE");
  if (impulse != nullptr) settings.impulse = readImpulse(*impulse, settings.model);
  readIfGiven(command, "DECOMPOSITION", readDecomposition, settings.decomposition);
  readIfGiven(command, "BACKTEST", readBacktest, settings.backtest);
  settings.order = readOrder(impulse, command.getSubComObj("DECOMPOSITION"), settings.model);
  settings.bootstrap = readBootstrap(command.getSubComObj("BOOTSTRAP"), impulse);
  readIfGiven(command, "PLOT", readPlot, settings.plot);
  readIfGiven(command, "SAVE", readSave, settings.save);
  readIfGiven(command, "AUXILIARY", readLevels, settings.levels);
  readIfGiven(command, "MISSING", readUserMissing, settings.includeUserMissing);
  refuseUnmadePlots(command, settings);
  refuseUnmadeColumns(settings);
  return settings;
}

}  // namespace vardynamics
