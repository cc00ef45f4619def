// The parsed and validated command: what every later step reads.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "host/case_file.h"
#include "host/command_parser.h"
#include "host/parser_message.h"
#include "procedures/varmodel/data/shared_types.h"

namespace varmodel {

class VARInputSettings {
 public:
  // The three host objects stay the caller's and must outlive the record.
  VARInputSettings(CommandSpec* commandSpec, CommandDescriptor* commandDescriptor, ProcedureDataSource* dataSource);
  VARInputSettings(const VARInputSettings&) = delete;
  VARInputSettings& operator=(const VARInputSettings&) = delete;

  // Runs the subcommand handlers in their fixed order; 0 when all succeeded, else 1.
  std::int32_t start();
  // Runs the handler of one index (0 global .. 7 AUXILIARY; 8 does nothing); 0 for success, 1 for failure.
  std::int32_t prepareInputSetting(int index);

  CommandSpec* commandSpec;
  CommandDescriptor* commandDescriptor;
  ProcedureDataSource* dataSource;
  ParserMessage parserMessage;

  TimeAxis timeAxis;
  SeriesMatrix endogenousSeries;
  SeriesMatrix exogenousSeries;

  // MODEL. The lists are parallel and in command order.
  std::vector<std::int32_t> endogenousIndexes;
  std::vector<std::string> endogenousNames;
  std::vector<int> endogenousVarList;  // as the host's validator returned it
  std::vector<std::int32_t> exogenousIndexes;
  std::vector<std::string> exogenousNames;
  std::vector<int> exogenousVarList;
  bool useAic = false;
  bool useBic = false;
  bool useHqic = false;
  bool lagSpecified = true;
  std::int32_t minLag = 1;   // smallest lag order tried, at least 1
  std::int32_t maxLag = 10;  // largest lag order tried, 1..25; also the number of autocorrelations

  std::string methodType = "OLS";

  // MODELSTATISTICS MODELFIT, one flag a keyword.
  bool showDescriptives = false;
  bool showGoodFit = false;
  bool showParameters = false;
  bool showRes = false;
  bool showResidAcf = false;
  bool showMse = false;
  bool showRmse = false;
  bool showMae = false;
  bool showMape = false;
  bool showRSquare = false;
  bool showAdjRSquare = false;
  bool showCorrMatrix = false;
  bool showEigen = false;
  bool showTestNormality = false;
  bool showTestAutocorrelation = false;
  bool showForecasts = false;

  // SERIESPLOT PLOT, one flag a keyword.
  bool plotTimeSeries = false;
  bool plotAcf = false;
  bool plotRes = false;
  bool plotResComb = false;
  bool plotResAcf = false;
  bool plotResAcfComb = false;
  bool plotFit = false;
  bool plotForecast = false;

  // SAVE.
  std::string saveFilePath;
  std::string predictedPrefix;
  std::string residualPrefix;
  bool saveFile = false;
  bool savePredicted = false;
  bool saveResiduals = false;
  UserCaseFileSpec saveFileSpec;

  double ciLevel = 95.0;                // percent, 0..100
  std::string userMissing = "EXCLUDE";  // or "INCLUDE": whether user-missing values count as missing
};

}  // namespace varmodel
