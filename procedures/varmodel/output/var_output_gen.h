// The output generator: tables and charts of the estimated model, in one document that is handed to the host.

#pragma once

#include <cstdint>
#include <initializer_list>
#include <memory>
#include <span>
#include <string>
#include <vector>

#include "host/case_input.h"
#include "host/localization.h"
#include "host/output.h"
#include "host/parser_message.h"
#include "host/procedure.h"
#include "host/table_builder.h"
#include "procedures/common/chart_points.h"
#include "procedures/common/table_frame.h"
#include "procedures/varmodel/algo/var_algo.h"
#include "procedures/varmodel/output/var_chart.h"

namespace varmodel {

class VAROutputGen {
 public:
  // All four stay the caller's and must outlive the generator; the engine has finished.
  VAROutputGen(BpProcedure* procedure, ProcedureDataSource& dataSource, VARInputSettings* settings, VARAlgo* algo);
  VAROutputGen(const VAROutputGen&) = delete;
  VAROutputGen& operator=(const VAROutputGen&) = delete;
  ~VAROutputGen();

  // Produces everything that the settings ask for and hands it over. 0; 1 when there are no results. Called once.
  std::int32_t start();

  // The display text of an English key; "^1" and "^2" are replaced by the arguments, each once.
  std::string localize(const std::string& key) const;
  std::string localize(const std::string& key, const std::string& first) const;
  std::string localize(const std::string& key, const std::string& first, const std::string& second) const;

  // One routine an output, in document order. 0, or 1 when the input is missing (nothing is added then).
  int generateDescriptiveStatistics();
  int generateModelParameters();
  int generateLagOrderCriteria();
  int generateResidualCorrelationMatrix();
  int generateResidualCovarianceMatrix();
  int generateModelFitStatistics();
  int generateResidualDiagnostics();
  int generateForecastTable();
  int generateTimeSeriesChart();
  int generateACFChart();
  int generateResidualsChart();
  int generateResidualsCombinedChart();
  int generateFitValuesChart();
  int generateForecastChart();

  // Dumps the document to the standard output stream and gives it to the converter, which empties it.
  void publishJSON(StatJSONConverter& converter);

 private:
  using Table = tablestatjson::TableBuilder;
  using Texts = std::vector<std::string>;

  struct ChartFrame {
    std::string routine;   // named in the message when the chart cannot be created
    std::string variable;  // likewise
    std::string title;
    procedures::ChartKind kind;
    std::string yAxisLabel;
    std::string xAxisLabel;
  };
  struct AutocorrelationCharts {
    const char* titleKey;
    const char* traceName;
    std::vector<double> EquationResult::*values;
  };

  void generateTables();
  void generateCharts();

  Texts localizeAll(std::initializer_list<const char*> keys) const;
  Texts equationNames() const;

  // Both are null when the host cannot create the object.
  std::unique_ptr<Table> createTable(const std::string& name, const procedures::TableFrame& frame);
  std::unique_ptr<VARChart> createChart(const ChartFrame& frame);

  std::string lagOrderFootnote() const;
  Texts regressorLabels() const;
  std::string eigenvalueFootnote() const;
  void addMatrixTable(Table& table, const std::vector<std::vector<double>>& matrix);
  std::vector<double> residualDiagnosticsRow(const EquationResult& result) const;
  Texts forecastColumnLabels(std::size_t horizon) const;

  // 0, or 1 after an error line when a chart routine lacks what it draws; `missing` names that in the line.
  int requireChartInput(const char* routine, bool present, const char* missing, bool needsNames) const;
  void generateAutocorrelationCharts(const AutocorrelationCharts& charts);
  std::size_t variableCount() const;
  Texts sampleLabels(std::size_t count) const;  // of the estimation sample's first `count` observations
  std::span<const double> observedSample(std::size_t variable) const;
  procedures::SeriesPoints observedAndFitted(std::size_t variable) const;

  BpProcedure* procedure_;
  ProcedureDataSource& dataSource_;
  VARInputSettings* settings_;
  VARAlgo* algo_;
  std::vector<EquationResult>* results_;  // the engine's
  std::unique_ptr<StatJSONGenerator> generator_;
  std::unique_ptr<ACAVarValidSpecs> variableSpecs_;
  ParserMessage parserMessage_;
  std::unique_ptr<FacSTDictionary> dictionary_;
};

}  // namespace varmodel
