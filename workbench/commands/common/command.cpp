#include "workbench/commands/common/command.h"

#include <algorithm>

#include "workbench/base/letter_case.h"
#include "workbench/commands/common/composer.h"

namespace workbench {

Outcome Command::outcome(const CallRecord& record, const CapturedStreams& streams) const {
  Outcome outcome;
  outcome.failedStep = failedStep(streams, lowerCase(name()) + "_entry");
  outcome.succeeded =
      outcome.failedStep == 0 && std::none_of(record.messages.begin(), record.messages.end(),
                                              [](const Message& one) { return one.kind == Message::Kind::error; });
  return outcome;
}

std::string Command::itemId(const rapidjson::Value& item, std::size_t place) const {
  return std::string(item["type"].GetString()) + "-" + std::to_string(place + 1);
}

std::string Command::messageId(const std::string& /*message*/) const {
  return lowerCase(name()) + ".other";
}

std::unique_ptr<Composer> Command::composer() const {
  return nullptr;
}

std::vector<std::string> itemIds(const FinishedRun& run) {
  std::vector<std::string> ids;
  if (!run.record.document.IsObject() || !run.record.document.HasMember("items")) return ids;
  for (const auto& item : run.record.document["items"].GetArray()) ids.push_back(run.command.itemId(item, ids.size()));
  return ids;
}

}  // namespace workbench
