#include "procedures/vardynamics/driver/vardynamics_entry.h"

#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <vector>

#include "host/codes.h"
#include "host/command_parser.h"
#include "host/parser_message.h"
#include "host/procedure.h"
#include "procedures/common/long_work.h"
#include "procedures/common/trace.h"
#include "procedures/vardynamics/analysis/analysis.h"
#include "procedures/vardynamics/data/user_error.h"
#include "procedures/vardynamics/output/write_document.h"
#include "procedures/vardynamics/save/save_results.h"
#include "procedures/vardynamics/syntax/command_description.h"
#include "procedures/vardynamics/syntax/command_identity.h"
#include "procedures/vardynamics/syntax/observations.h"
#include "procedures/vardynamics/syntax/read_settings.h"

namespace vardynamics {
namespace {

// Runs one of the six steps: what it throws is told to the user or traced, and ends the run.
class StepRunner {
 public:
  StepRunner() { procedures::identify(reporter_, kIdentity); }

  template <typename Work>
  bool run(int step, Work work) {
    try {
      if (work()) return true;
    } catch (const UserError& error) {
      reporter_.GenericError(error.what());
    } catch (const std::exception& error) {
      std::cerr << "VARDynamics: Standard exception: " << procedures::OneLine{error.what()} << '\n';
    } catch (...) {
      std::cerr << "VARDynamics: Unknown exception occurred.\n";
    }
    std::cerr << "vardynamics_entry: Step" << step << " failed." << std::endl;
    return false;
  }

 private:
  ParserMessage reporter_;
};

std::vector<std::string> variableNames(ProcedureDataSource& dataSource) {
  VEXA_DataSource& dataset = *dataSource.GetDataSource();
  std::vector<std::string> names;
  for (unsigned i = 0; i < dataset.ColumnCount(); ++i) {
    names.push_back(dataset.GetVariable(static_cast<int>(i))->GetName());
  }
  return names;
}

void runCommand() {
  StepRunner steps;
  BpProcedure procedure(kIdentity.title, codes::kStatisticalProcedure);
  ProcedureDataSource dataSource;
  CommandDescriptor descriptor(kIdentity.commandName);
  VEXA_TokenSequence tokens(true);
  const auto done = [] { return true; };
  if (!steps.run(1, [&] { return describeCommand(descriptor, variableNames(dataSource)), done(); })) return;

  CommandSpec command;
  UniversalParser parser(tokens, command, descriptor);
  if (!steps.run(2, [&] { return parser.getCommandSpecifications() == 0; })) return;

  Settings settings;
  Observations observations;
  const auto validate = [&] {
    settings = readSettings(command, descriptor, dataSource);
    observations = readObservations(settings, dataSource);
    return true;
  };
  if (!steps.run(3, validate)) return;

  std::optional<Analysis> analysis;
  const Work work{.jobs = procedures::threadsAllowed(), .progress = procedures::hostProgress()};
  if (!steps.run(4, [&] { return analysis = analyse(settings, observations, work), done(); })) return;

  const auto output = [&] {
    const Texts texts;
    writeDocument(procedure, dataSource, {settings, observations, *analysis, texts});
    return true;
  };
  if (!steps.run(5, output)) return;
  if (!steps.run(6, [&] { return !settings.save || saveResults(settings, observations, *analysis); })) return;
  std::cout << "VAR Dynamics: Steps 1, 2, 3, 4, 5, and 6 completed successfully!" << std::endl;
}

}  // namespace
}  // namespace vardynamics

void VARDYNAMICS() {
  try {
    vardynamics::runCommand();
  } catch (const std::exception& error) {
    procedures::traceGuarded("VARDYNAMICS: Standard exception: ", error.what());
  } catch (...) {
    procedures::traceGuarded("VARDYNAMICS: Unknown exception occurred.");
  }
}
