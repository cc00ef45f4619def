// One handler a subcommand: reads its parameters from the parse result, checks them, and fills the settings record.
//
// Every handler returns true for success. A user error is reported through the settings record's reporter before the
// handler fails; METHOD absent, MODELSTATISTICS without MODELFIT and AUXILIARY without CILEVEL fail without a message.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "procedures/varmodel/data/shared_types.h"
#include "procedures/varmodel/syntax/input_settings.h"

namespace varmodel {

class VARSubCommands {
 public:
  // The record must outlive the handlers.
  explicit VARSubCommands(VARInputSettings& settings) : settings_(settings) {}

  bool get_Subcommand_Global();
  bool get_SubCommand_Missing();
  bool get_SubCommand_Model();
  bool get_SubCommand_Method();
  bool get_SubCommand_ModelStatistics();
  bool get_SubCommand_SeriesPlot();
  bool get_SubCommand_Save();
  bool get_SubCommand_Auxiliary();

  // Appends the complete cases of the listed variables to the matrix; 1 for success, 0 for failure
  // (procedures::fetchSeries).
  std::int32_t fetchDataFromActiveDataSet(const std::vector<std::int32_t>& indexes, SeriesMatrix& matrix);
  // Reads the session's PREDICT THRU setting and the date variables into the time axis (readPredictRequest).
  bool getPredictThruFromTrendsInfo();
  // Labels the observed rows (generateHistoricalLabels).
  void generateHistoricalDateLabels();
  // Labels the forecast periods after the last observed row, then the observed rows; a horizon of 0 is a success.
  bool generateForecastDatesUsingTfo();

 private:
  struct VariableList;

  AlgoDataAccess* buildDataAccessChain(DataAccessChain& chain, const std::vector<std::int32_t>& indexes,
                                       ProcedureDataSource& dataSource, bool registerAsAnalysis,
                                       bool excludeUserMissing, bool always);

  bool readGlobal();
  bool readMissing();
  bool readModel(const SubComObj* model);
  bool readModelStatistics();
  bool readSave();
  bool readSaveFile(const ParamObj* file);
  bool readAuxiliary();

  bool readEndogenous(const SubComObj& model);
  bool readExogenous(const SubComObj& model);
  bool readLagRange(const SubComObj& model);
  void validateList(const ParamObj& parameter, const VariableList& list);
  bool recordVariables(const VariableList& list, bool scaleOnly);
  bool fetchListed(const std::vector<std::int32_t>& indexes, SeriesMatrix& matrix);
  void alignTimeAxis();
  bool sameCasesInBothLists();
  bool readInteger(const ParamObj* parameter, const char* name, std::int32_t& value);

  const SubComObj* subcommand(const char* name) const;
  bool fail(const std::string& text);  // reports the error and returns false

  VARInputSettings& settings_;
  FetchOutcome lastFetch_;
};

}  // namespace varmodel
