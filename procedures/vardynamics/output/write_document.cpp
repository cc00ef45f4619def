#include "procedures/vardynamics/output/write_document.h"

#include <cstddef>
#include <iostream>

#include "host/case_input.h"
#include "host/output.h"
#include "procedures/vardynamics/output/charts.h"
#include "procedures/vardynamics/output/tables.h"
#include "procedures/vardynamics/syntax/command_identity.h"

namespace vardynamics {
namespace {

using ChartOfSeries = DocumentChart (*)(const ReportContext&, std::size_t);

class DocumentWriter {
 public:
  explicit DocumentWriter(const ReportContext& context) : context_(context), generator_(kIdentity.title, "") {}

  // What a reader asks first comes first; the parameters, which few read, stand last.
  void write() {
    const Settings& settings = context_.settings;
    writeTable(generator_, summaryTable(context_));
    if (settings.forecast) addForecast();
    if (settings.stability) add(stabilityTables(context_));
    if (settings.plot && settings.plot->roots) writeChart(generator_, rootsChart(context_));
    if (settings.tests) add(testTables(context_));
    if (settings.causality) add(causalityTables(context_));
    for (const ShockResponses& set : context_.analysis.impulse) addResponses(set);
    if (settings.decomposition) addDecomposition();
    if (settings.backtest) addBacktest();
    add(modelTables(context_));
  }

  rapidjson::Document& document() { return generator_.getProcedureStatJSON(); }

 private:
  void add(const Tables& tables) {
    for (const DocumentTable& table : tables) writeTable(generator_, table);
  }

  void addResponses(const ShockResponses& set) {
    add(responseTables(context_, set));
    if (context_.settings.plot && context_.settings.plot->impulse) writeChart(generator_, responseChart(context_, set));
  }

  // Each series' chart behind its table; behind the one table of all series where there are no limits.
  void addForecast() {
    const Tables tables = forecastTables(context_);
    const std::size_t seriesCount = context_.names().size();
    const bool charts = context_.settings.plot && context_.settings.plot->forecast;
    const bool tableOfAll = !context_.analysis.forecast->hasLimits();
    if (tableOfAll) writeTable(generator_, tables.front());
    for (std::size_t i = 0; i < seriesCount; ++i) {
      if (!tableOfAll) writeTable(generator_, tables[i]);
      if (charts) writeChart(generator_, forecastChart(context_, i));
      addLevels(i, charts);
    }
    for (std::size_t i = tableOfAll ? 1 : seriesCount; i < tables.size(); ++i) writeTable(generator_, tables[i]);
  }

  // Of a transformed series.
  void addLevels(std::size_t series, bool charts) {
    const Levels& levels = context_.analysis.forecast->levels;
    if (series >= levels.size() || !levels[series]) return;
    writeTable(generator_, levelTable(context_, series));
    if (charts) writeChart(generator_, levelChart(context_, series));
  }

  void addDecomposition() {
    const Decomposition& parts = *context_.analysis.decomposition;
    const auto chartIf = [&](bool PlotSettings::*asked, ChartOfSeries chart) {
      return context_.settings.plot && (*context_.settings.plot).*asked ? chart : nullptr;
    };
    if (parts.orthogonal) addShares(varianceTables(context_), chartIf(&PlotSettings::variance, varianceChart));
    if (parts.generalized) addShares(generalizedTables(context_), chartIf(&PlotSettings::variance, generalizedChart));
    if (!parts.history) return;
    writeTable(generator_, historicalTable(context_));
    const ChartOfSeries chart = chartIf(&PlotSettings::historical, historicalChart);
    for (std::size_t i = 0; chart != nullptr && i < context_.names().size(); ++i) {
      writeChart(generator_, chart(context_, i));
    }
  }

  // The charts, which may be nullptr, each behind a table of the last that there is of every series.
  void addShares(const Tables& tables, ChartOfSeries chart) {
    const std::size_t seriesCount = context_.names().size();
    for (std::size_t i = 0; i < tables.size(); ++i) {
      writeTable(generator_, tables[i]);
      const std::size_t left = tables.size() - i;
      if (chart != nullptr && left <= seriesCount) writeChart(generator_, chart(context_, seriesCount - left));
    }
  }

  void addBacktest() {
    const bool charts = context_.settings.plot && context_.settings.plot->backtest;
    for (std::size_t i = 0; i < context_.names().size(); ++i) {
      add(backtestTables(context_, i));
      if (charts) writeChart(generator_, backtestChart(context_, i));
    }
  }

  const ReportContext& context_;
  StatJSONGenerator generator_;
};

}  // namespace

void writeDocument(BpProcedure& procedure, ProcedureDataSource& dataSource, const ReportContext& context) {
  ACAVarValidSpecs variables(true, true, true);
  const OPSCommonOutput commonOutput(&variables, dataSource, &procedure, nullptr);
  StatJSONConverter converter(procedure);
  DocumentWriter writer(context);
  writer.write();
  if (!converter.generateOutput(writer.document())) std::cerr << "VARDynamics: The host refused the document\n";
}

}  // namespace vardynamics
