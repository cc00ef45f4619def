// The smallest procedure: one table of the number of cases.

#include "host/command_parser.h"
#include "host/table_builder.h"

PROCEDURE_EXPORT void COUNTCASES() {
  VEXA_TokenSequence tokens(true);
  CommandSpec given;
  if (UniversalParser(tokens, given, CommandDescriptor("COUNTCASES")).getCommandSpecifications() != 0) return;
  StatJSONGenerator output("Cases", "");
  tablestatjson::TableBuilder table(output, "Cases");
  table.addColumnCategories({"N"});
  table.addRowCategories({"All"});
  table.fillRow(0, {static_cast<double>(ProcedureDataSource().GetDataSource()->CaseCount())});
  table.build();
  BpProcedure procedure("Cases", 10);
  StatJSONConverter(procedure).generateOutput(output.getProcedureStatJSON());
}
