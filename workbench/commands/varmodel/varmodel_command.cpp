#include "workbench/commands/varmodel/varmodel_command.h"

#include <sstream>
#include <string>
#include <string_view>

#include "workbench/base/process.h"
#include "workbench/commands/varmodel/document_items.h"
#include "workbench/commands/varmodel/document_view.h"
#include "workbench/commands/varmodel/notes.h"
#include "workbench/commands/varmodel/small_units.h"
#include "workbench/commands/varmodel/summary.h"

namespace workbench {

namespace {

constexpr std::string_view successLine = "VAR Model: Steps 1, 2, 3, 4, 5, and 6 completed successfully!";

// The procedure goes on without a table or chart that its host could not create, and traces that alone.
int failedCreations(const std::string& trace) {
  int count = 0;
  std::istringstream lines(trace);
  for (std::string line; std::getline(lines, line);) {
    if (line.starts_with("Error: VAROutputGen::generate") && line.find("reation failed") != std::string::npos) ++count;
  }
  return count;
}

}  // namespace

bool VarmodelCommand::includesUserMissing(const CallRecord& parsed) const {
  return varmodel::requested(parsed, "MISSING USERMISSING", "INCLUDE");
}

void VarmodelCommand::requestSummary(bool wanted) const {
  setEnvironment("VARMODEL_SUMMARY", wanted ? "1" : "0");
}

Outcome VarmodelCommand::outcome(const CallRecord& /*record*/, const CapturedStreams& streams) const {
  Outcome outcome;
  outcome.succeeded = streams.out.ends_with('\n') && lastLine(streams.out) == successLine;
  if (!outcome.succeeded) outcome.failedStep = failedStep(streams, "varmodel_entry");
  outcome.lostItems = failedCreations(streams.err);
  return outcome;
}

std::string VarmodelCommand::summary(const FinishedRun& run) const {
  return varmodel::summaryText(run);
}

Notice VarmodelCommand::summaryNote(const FinishedRun& run) const {
  return varmodel::summaryNote(run);
}

DocumentView VarmodelCommand::view(const FinishedRun& run) const {
  return varmodel::viewOf(run);
}

std::string VarmodelCommand::itemId(const rapidjson::Value& item, std::size_t place) const {
  const std::string id = varmodel::itemId(item);
  return id.empty() ? Command::itemId(item, place) : id;
}

TidyShapes VarmodelCommand::tidyShapes(const FinishedRun& /*run*/) const {
  return {.shapes = {{.id = "parameters", .file = "coefficients", .subject = "equation", .rows = "term"},
                     {.id = "forecasts", .file = "forecasts", .rows = "response", .groups = "period"}}};
}

Notice VarmodelCommand::scaleNote(const FinishedRun& run) const {
  return varmodel::scaleNote(run);
}

std::vector<Notice> VarmodelCommand::notes(const FinishedRun& run) const {
  return varmodel::collectNotes(run);
}

std::string VarmodelCommand::messageId(const std::string& message) const {
  const KnownMessage* known = varmodel::knownMessage(message);
  return known == nullptr ? Command::messageId(message) : std::string(known->id);
}

Advice VarmodelCommand::advice(const std::string& message, const FinishedRun& run, CommandRunner& runner) const {
  return varmodel::adviceFor(message, run, runner);
}

Notice VarmodelCommand::silentCause(const FinishedRun& run) const {
  return varmodel::silentCause(run.streams);
}

}  // namespace workbench
