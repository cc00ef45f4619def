#include "procedures/varmodel/output/var_output_gen.h"

#include <iostream>

#include "procedures/common/display_text.h"
#include "procedures/varmodel/output/trace.h"
#include "procedures/varmodel/syntax/command_identity.h"

namespace varmodel {

namespace {

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
  generator_ = std::make_unique<StatJSONGenerator>(kIdentity.title, "");
  identify(parserMessage_, kIdentity);
  dictionary_ = procedures::openDictionary(kIdentity.title);
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

std::string VAROutputGen::localize(const std::string& key) const {
  return procedures::displayText(dictionary_.get(), key);
}

std::string VAROutputGen::localize(const std::string& key, const std::string& first) const {
  return procedures::displayText(dictionary_.get(), key, {first});
}

std::string VAROutputGen::localize(const std::string& key, const std::string& first, const std::string& second) const {
  return procedures::displayText(dictionary_.get(), key, {first, second});
}

VAROutputGen::Texts VAROutputGen::localizeAll(std::initializer_list<const char*> keys) const {
  return procedures::displayTexts(dictionary_.get(), keys);
}

std::unique_ptr<VAROutputGen::Table> VAROutputGen::createTable(const std::string& name,
                                                               const procedures::TableFrame& frame) {
  return procedures::createTable(*generator_, name, frame);
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
