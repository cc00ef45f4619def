// The smallest procedure: one table of the number of cases.

#include "host/command_parser.h"
#include "host/table_builder.h"

PROCEDURE_EXPORT void COUNTCASES() {
  ProcedureDataSource data;
  const CommandDescriptor description("COUNTCASES");
  VEXA_TokenSequence tokens(true);
  CommandSpec given;
  if (UniversalParser(tokens, given, description).getCommandSpecifications() != 0) return;
  ACAVarValidSpecs none(true, true, true);
  ACAInputAdapter adapter(&none, data);
  double cases = 0;
  for (ACAProcDataSourceIter rows(adapter, true); rows.HasMore(); rows.Next()) ++cases;
  BpProcedure procedure("Cases", 1);
  StatJSONGenerator output("Cases", "");
  tablestatjson::TableBuilder table(output, "Cases");
  table.addColumnCategories({"N"});
  table.addRowCategories({"All"});
  table.fillRow(0, {cases});
  table.build();
  StatJSONConverter(procedure).generateOutput(output.getProcedureStatJSON());
}
