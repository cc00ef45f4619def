#include "workbench/commands/vardynamics/vardynamics_command.h"

#include <algorithm>
#include <string_view>

#include "workbench/base/letter_case.h"
#include "workbench/commands/vardynamics/analyze_composer.h"
#include "workbench/commands/vardynamics/gap_hint.h"
#include "workbench/commands/vardynamics/message_ids.h"
#include "workbench/commands/vardynamics/tidy_shapes.h"
#include "workbench/document/document_reader.h"

namespace workbench {

namespace {

// The largest one, in percent.
double confidenceLevel(const CallRecord& record) {
  constexpr double kDefaultLevel = 95.0;
  const auto found = record.requestedNumbers.find("AUXILIARY CILEVEL");
  return found == record.requestedNumbers.end() ? kDefaultLevel : found->second;
}

}  // namespace

bool VardynamicsCommand::includesUserMissing(const CallRecord& parsed) const {
  const auto found = parsed.requestedLists.find("MISSING USERMISSING");
  return found != parsed.requestedLists.end() && std::ranges::count(found->second, "INCLUDE") > 0;
}

Outcome VardynamicsCommand::outcome(const CallRecord& record, const CapturedStreams& streams) const {
  constexpr std::string_view success = "VAR Dynamics: Steps 1, 2, 3, 4, 5, and 6 completed successfully!";
  Outcome outcome = Command::outcome(record, streams);
  outcome.succeeded = outcome.succeeded && lastLine(streams.out) == success;
  return outcome;
}

// The procedure names its items in English in every language: "Forecast Chart - realgdp".
std::string VardynamicsCommand::itemId(const rapidjson::Value& item, std::size_t /*place*/) const {
  const std::string name(item["name"].GetString(), item["name"].GetStringLength());
  const std::size_t dash = std::min(name.find(" - "), name.size());
  std::string id = lowerCase(name.substr(0, dash));
  std::ranges::replace(id, ' ', '-');
  return dash == name.size() ? id : id + ":" + name.substr(dash + 3);
}

std::string VardynamicsCommand::messageId(const std::string& message) const {
  const std::string id = vardynamics::messageId(message);
  return id.empty() ? Command::messageId(message) : id;
}

DocumentView VardynamicsCommand::view(const FinishedRun& run) const {
  DocumentView view;
  view.testLevel = (100.0 - confidenceLevel(run.record)) / 100.0;
  const Json* items = itemsOf(run.record.document);
  for (rapidjson::SizeType i = 0; items != nullptr && i < items->Size(); ++i) {
    const std::string name = textProperty((*items)[i], "name");
    if (name == "Model Summary") view.headline = i;
    if (name.starts_with("Forecast Chart")) view.leadingCharts.insert(i);
  }
  return view;
}

Advice VardynamicsCommand::advice(const std::string& message, const FinishedRun& run, CommandRunner& /*runner*/) const {
  if (!message.starts_with("No lag can cross a gap")) return {};
  return {vardynamics::gapHint(run, !includesUserMissing(run.record))};
}

TidyShapes VardynamicsCommand::tidyShapes(const FinishedRun& run) const {
  return {vardynamics::tidyShapes(), confidenceLevel(run.record)};
}

std::unique_ptr<Composer> VardynamicsCommand::composer() const {
  return std::make_unique<vardynamics::AnalyzeComposer>();
}

}  // namespace workbench
