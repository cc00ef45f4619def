#include "procedures/varmodel/output/var_output_gen.h"

#include <iostream>
#include <new>

#include "procedures/varmodel/output/trace.h"
#include "procedures/varmodel/syntax/command_identity.h"

namespace varmodel {

namespace {

constexpr int kDisplayTextPath = 3;
constexpr int kMinColumnWidth = 100;
constexpr int kMaxColumnWidth = 300;
constexpr const char* kDumpHeading = "JSON ~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~~";

}  // namespace

VAROutputGen::VAROutputGen(BpProcedure* procedure, ProcedureDataSource& dataSource, VARInputSettings* settings,
                           VARAlgo* algo)
    : procedure_(procedure),
      dataSource_(dataSource),
      settings_(settings),
      algo_(algo),
      results_(&algo->equationResults) {
  variableSpecs_ = std::make_unique<ACAVarValidSpecs>(true, true, true);
  generator_ = std::make_unique<StatJSONGenerator>(kProcedureTitle, "");
  identify(parserMessage_);
  const std::string path = PathFactory::getPathInstance(kDisplayTextPath)->getPath();
  dictionary_.reset(new (std::nothrow) FacSTDictionary(path));
  if (dictionary_) dictionary_->SetProcedure(kProcedureTitle);
}

VAROutputGen::~VAROutputGen() {
  generator_.reset();
  variableSpecs_.reset();
  dictionary_.reset();
}

std::int32_t VAROutputGen::start() {
  if (results_->empty()) {
    traceError("start", "output results are empty");
    return 1;
  }
  const OPSCommonOutput commonOutput(variableSpecs_.get(), dataSource_, procedure_, nullptr);
  StatJSONConverter converter(*procedure_);
  generateTables();
  generateCharts();
  publishJSON(converter);
  return 0;
}

void VAROutputGen::generateTables() {
  if (settings_->showDescriptives) generateDescriptiveStatistics();
  if (settings_->showParameters) generateModelParameters();
  if (settings_->showGoodFit) generateLagOrderCriteria();
  if (settings_->showCorrMatrix) {
    generateResidualCorrelationMatrix();
    generateResidualCovarianceMatrix();
  }
  generateModelFitStatistics();
  generateResidualDiagnostics();
  if (settings_->showForecasts) generateForecastTable();
}

void VAROutputGen::generateCharts() {
  if (settings_->plotTimeSeries) generateTimeSeriesChart();
  if (settings_->plotAcf || settings_->plotResAcf) generateACFChart();
  if (settings_->plotRes) generateResidualsChart();
  if (settings_->plotResComb) generateResidualsCombinedChart();
  if (settings_->plotFit) generateFitValuesChart();
  if (settings_->plotForecast) generateForecastChart();
}

void VAROutputGen::publishJSON(StatJSONConverter& converter) {
  if (!generator_) return;
  rapidjson::Document& document = generator_->getProcedureStatJSON();
  std::cout << kDumpHeading << '\n';
  rapidjson::StringBuffer text;
  rapidjson::Writer<rapidjson::StringBuffer> writer(text);
  document.Accept(writer);
  std::cout.write(text.GetString(), static_cast<std::streamsize>(text.GetSize())) << std::endl;
  converter.generateOutput(document);
}

VAROutputGen::Texts VAROutputGen::equationNames() const {
  Texts names;
  for (const EquationResult& result : *results_) names.push_back(result.equationName);
  return names;
}

std::unique_ptr<VAROutputGen::Table> VAROutputGen::createTable(const std::string& name, const TableFrame& frame) {
  std::unique_ptr<Table> table;
  try {
    table = std::make_unique<Table>(*generator_, name);
  } catch (const std::exception&) {
    return nullptr;
  }
  table->setTitle(frame.title);
  if (frame.showsTitle) table->hideTitle(false);
  if (frame.limitsWidth) {
    table->setMinColumnWidth(kMinColumnWidth);
    table->setMaxColumnWidth(kMaxColumnWidth);
  }
  table->setDefaultCellFormat(kNumericFormat, kCellWidth, frame.decimals);
  table->setRowDimensionLabel(frame.rowLabel, true);
  table->setColumnDimensionLabel(frame.columnLabel, frame.showsColumnLabel);
  return table;
}

std::unique_ptr<VARChart> VAROutputGen::createChart(const ChartFrame& frame) {
  std::unique_ptr<VARChart> chart;
  try {
    chart = std::make_unique<VARChart>(*generator_, frame.title);
  } catch (const std::exception&) {
    traceError(frame.routine, "Chart creation failed for variable '" + frame.variable + "'");
    return nullptr;
  }
  chart->setChartType(frame.kind);
  chart->setAxisLabel(true, frame.xAxisLabel);
  chart->setAxisLabel(false, frame.yAxisLabel);
  return chart;
}

}  // namespace varmodel
