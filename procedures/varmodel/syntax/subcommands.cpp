#include "procedures/varmodel/syntax/subcommands.h"

#include <algorithm>
#include <iostream>

#include "host/codes.h"
#include "procedures/varmodel/syntax/handler_trace.h"
#include "procedures/varmodel/syntax/keyword_flags.h"

namespace varmodel {
namespace {

std::vector<std::string> keywordsGiven(const ParamObj& parameter) {
  std::vector<std::string> keywords;
  if (!parameter.getStringList(keywords)) keywords.clear();
  return keywords;
}

std::string upperTextOr(const ParamObj* parameter, const char* fallback) {
  std::string text;
  return parameter != nullptr && parameter->getUpStringGeneric(text) ? text : fallback;
}

std::string prefixOr(const ParamObj& parameter, const char* fallback) {
  std::string prefix;
  bool isLiteral = false;
  return parameter.getStringOrLiteral(prefix, isLiteral) && !prefix.empty() ? prefix : fallback;
}

}  // namespace

const SubComObj* VARSubCommands::subcommand(const char* name) const {
  return settings_.commandSpec->getSubComObj(name);
}

bool VARSubCommands::fail(const std::string& text) {
  settings_.parserMessage.GenericError(text);
  return false;
}

bool VARSubCommands::get_Subcommand_Global() {
  return traced({"get_Subcommand_Global", "GLOBAL"}, [this] { return readGlobal(); });
}

bool VARSubCommands::readGlobal() {
  if (settings_.dataSource->GetDataSource()->IsSplitFileOn()) return fail("Turn off split file");
  if (settings_.dataSource->GetWeightVarIndex() != codes::kNoWeight) return fail("Remove Weight Variable");
  TimeAxis& axis = settings_.timeAxis;
  const SubComObj* global = subcommand("");
  if (global != nullptr && global->getParamObj("PREDICT") != nullptr) {
    axis.predictRequested = true;
    std::cout << "VARSubCommands::get_Subcommand_Global - PREDICT parameter found in global command\n";
  }
  if (!getPredictThruFromTrendsInfo()) return false;
  if (axis.predictThruEnd) {
    std::cout << "VARSubCommands::get_Subcommand_Global - PREDICT THRU END detected, skipping forecast date "
                 "generation\n";
    return true;
  }
  return axis.predictRequested ? generateForecastDatesUsingTfo() : true;
}

bool VARSubCommands::get_SubCommand_Missing() {
  return traced({"get_SubCommand_Missing", "MISSING"}, [this] { return readMissing(); });
}

bool VARSubCommands::readMissing() {
  const SubComObj* missing = subcommand("MISSING");
  if (missing == nullptr) return true;
  const std::string keyword = upperTextOr(missing->getParamObj("USERMISSING"), "");
  if (keyword != "EXCLUDE" && keyword != "INCLUDE") return fail("USERMISSING must be either EXCLUDE or INCLUDE.");
  settings_.userMissing = keyword;
  return true;
}

bool VARSubCommands::get_SubCommand_Model() {
  return traced({"get_SubCommand_Model", "MODEL"}, [this] { return readModel(subcommand("MODEL")); });
}

bool VARSubCommands::get_SubCommand_Method() {
  return traced({"get_SubCommand_Method", "METHOD"}, [this] {
    const SubComObj* method = subcommand("METHOD");
    if (method == nullptr) return false;
    if (const ParamObj* type = method->getParamObj("TYPE")) settings_.methodType = upperTextOr(type, "OLS");
    return true;
  });
}

bool VARSubCommands::get_SubCommand_ModelStatistics() {
  return traced({"get_SubCommand_ModelStatistics", "MODELSTATISTICS"}, [this] { return readModelStatistics(); });
}

bool VARSubCommands::readModelStatistics() {
  const SubComObj* statistics = subcommand("MODELSTATISTICS");
  if (statistics == nullptr) return true;
  const ParamObj* modelFit = statistics->getParamObj("MODELFIT");
  if (modelFit == nullptr) return false;
  const std::vector<std::string> keywords = keywordsGiven(*modelFit);
  if (std::find(keywords.begin(), keywords.end(), "PARAMETERS") == keywords.end()) {
    return fail("PARAMETERS is required in MODELFIT.");
  }
  setFlags(kModelFitFlags, keywords, settings_);
  if (!settings_.showEigen || settings_.showCorrMatrix) return true;
  settings_.parserMessage.GenericWarning("CORRMATRIX is required when EIGEN is specified in MODELFIT.");
  return false;
}

bool VARSubCommands::get_SubCommand_SeriesPlot() {
  return traced({"get_SubCommand_SeriesPlot", "SERIESPLOT"}, [this] {
    const SubComObj* seriesPlot = subcommand("SERIESPLOT");
    const ParamObj* plot = seriesPlot != nullptr ? seriesPlot->getParamObj("PLOT") : nullptr;
    if (plot != nullptr) setFlags(kPlotFlags, keywordsGiven(*plot), settings_);
    return true;
  });
}

bool VARSubCommands::get_SubCommand_Save() {
  return traced({"get_SubCommand_Save", "SAVE"}, [this] { return readSave(); });
}

bool VARSubCommands::readSave() {
  const SubComObj* save = subcommand("SAVE");
  if (save == nullptr) return true;
  if (!readSaveFile(save->getParamObj("FILE"))) return false;
  if (const ParamObj* predicted = save->getParamObj("PREDICTED")) {
    settings_.savePredicted = true;
    settings_.predictedPrefix = prefixOr(*predicted, "PRE_");
  }
  if (const ParamObj* residual = save->getParamObj("NRESIDUAL")) {
    settings_.saveResiduals = true;
    settings_.residualPrefix = prefixOr(*residual, "RES_");
  }
  return true;
}

bool VARSubCommands::readSaveFile(const ParamObj* file) {
  if (file == nullptr) return fail("Subcommand SAVE: FILE parameter is required.");
  bool isLiteral = false;
  const bool usable = file->getStringOrLiteral(settings_.saveFilePath, isLiteral) && !settings_.saveFilePath.empty();
  settings_.saveFile = usable && settings_.saveFileSpec.Init(settings_.saveFilePath, isLiteral, true);
  return settings_.saveFile || fail("Subcommand SAVE: FILE has a missing or invalid value.");
}

bool VARSubCommands::get_SubCommand_Auxiliary() {
  return traced({"get_SubCommand_Auxiliary", "AUXILIARY", " "}, [this] { return readAuxiliary(); });
}

bool VARSubCommands::readAuxiliary() {
  const SubComObj* auxiliary = subcommand("AUXILIARY");
  if (auxiliary == nullptr) return true;
  const ParamObj* level = auxiliary->getParamObj("CILEVEL");
  if (level == nullptr) return false;
  if (!level->getNumberValue(settings_.ciLevel)) settings_.ciLevel = 95.0;
  return true;
}

}  // namespace varmodel
