#include "procedures/vardynamics/output/write_document.h"

#include <iostream>

#include "host/case_input.h"
#include "host/output.h"
#include "procedures/vardynamics/output/tables.h"
#include "procedures/vardynamics/syntax/command_identity.h"

namespace vardynamics {
namespace {

class DocumentWriter {
 public:
  explicit DocumentWriter(const ReportContext& context) : context_(context), generator_(kIdentity.title, "") {}

  void write() {
    const Settings& settings = context_.settings;
    writeTable(generator_, summaryTable(context_));
    if (settings.forecast) add(forecastTables(context_));
    add(modelTables(context_));
    if (settings.stability) add(stabilityTables(context_));
    if (settings.tests) add(testTables(context_));
    if (settings.causality) add(causalityTables(context_));
  }

  rapidjson::Document& document() { return generator_.getProcedureStatJSON(); }

 private:
  void add(const Tables& tables) {
    for (const DocumentTable& table : tables) writeTable(generator_, table);
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
