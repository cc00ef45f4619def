#include "procedures/varmodel/driver/varmodel_entry.h"

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "host/codes.h"
#include "host/command_parser.h"
#include "host/procedure.h"
#include "procedures/common/trace.h"
#include "procedures/varmodel/algo/results_summary.h"
#include "procedures/varmodel/algo/var_algo.h"
#include "procedures/varmodel/output/var_output_gen.h"
#include "procedures/varmodel/save/save_out_file.h"
#include "procedures/varmodel/syntax/command_describer.h"
#include "procedures/varmodel/syntax/command_identity.h"
#include "procedures/varmodel/syntax/input_settings.h"

namespace varmodel {
namespace {

bool stepFailed(int step, bool failed) {
  if (failed) std::cerr << "varmodel_entry: Step" << step << " Unknown error occurred." << std::endl;
  return failed;
}

void writeSummaryIfAsked(const VARAlgo& algo) {
  const char* asked = std::getenv("VARMODEL_SUMMARY");
  if (asked != nullptr && std::string_view(asked) == "1") writeResultsSummary(algo, std::cout);
}

// The six steps. Every object lives from the step that needs it first to the end of the run; only the parser (step 2)
// reports failure by any value but 0.
void varmodel_entry() {
  const std::string title = kIdentity.title;
  BpProcedure procedure(title, codes::kStatisticalProcedure);
  ProcedureDataSource dataSource;
  CommandDescriptor commandDescriptor(kIdentity.commandName);
  VEXA_TokenSequence tokens(true);
  VARCommandDescriber describer(&commandDescriptor);
  if (stepFailed(1, describer.describeCommand() == 1)) return;

  CommandSpec commandSpec;
  UniversalParser parser(tokens, commandSpec, commandDescriptor);
  if (stepFailed(2, parser.getCommandSpecifications() != 0)) return;

  VARInputSettings settings(&commandSpec, &commandDescriptor, &dataSource);
  if (stepFailed(3, settings.start() == 1)) return;

  std::vector<EquationResult> equationResults;
  VARAlgo algo(settings, equationResults);
  if (stepFailed(4, algo.start() == 1)) return;
  writeSummaryIfAsked(algo);

  VAROutputGen output(&procedure, dataSource, &settings, &algo);
  if (stepFailed(5, output.start() == 1)) return;

  VARSaveOutFile saveOutFile(settings, algo.equationResults);
  if (stepFailed(6, saveOutFile.run() == 1)) return;
  std::cout << "VAR Model: Steps 1, 2, 3, 4, 5, and 6 completed successfully!" << std::endl;
}

}  // namespace
}  // namespace varmodel

void VARMODEL() {
  try {
    varmodel::varmodel_entry();
  } catch (const std::exception& error) {
    procedures::traceGuarded("VARMODEL: Standard exception: ", error.what());
  } catch (...) {
    procedures::traceGuarded("VARMODEL: Unknown exception occurred.");
  }
}
