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
    add(modelTables(context_));
  }

  rapidjson::Document& document() { return generator_.getProcedureStatJSON(); }

 private:
  void add(const Tables& tables) {
    for (const DocumentTable& table : tables) writeTable(generator_, table);
  }

  // Each series' chart behind its table; behind the one table of all series where there are no limits.
  void addForecast() {
    const Tables tables = forecastTables(context_);
    const std::size_t seriesCount = context_.names().size();
    const bool charts = context_.settings.plot && context_.settings.plot->forecast;
    const bool tableOfAll = !context_.analysis.forecast->standardErrors;
    if (tableOfAll) writeTable(generator_, tables.front());
    for (std::size_t i = 0; i < seriesCount; ++i) {
      if (!tableOfAll) writeTable(generator_, tables[i]);
      if (charts) writeChart(generator_, forecastChart(context_, i));
    }
    for (std::size_t i = tableOfAll ? 1 : seriesCount; i < tables.size(); ++i) writeTable(generator_, tables[i]);
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
