#include "workbench/cli/run_messages.h"

#include <algorithm>
#include <array>

#include "workbench/cli/notes.h"

namespace workbench {

namespace {

using Kind = RunMessage::Kind;

// The engine may repeat the label step's warning, or just its first sentence; the fuller text is said once.
std::vector<Message> distinct(const std::vector<Message>& messages) {
  std::vector<Message> result;
  for (const Message& message : messages) {
    const bool said = std::any_of(result.begin(), result.end(), [&](const Message& other) {
      return other.kind == message.kind && other.text.starts_with(message.text);
    });
    if (!said) result.push_back(message);
  }
  return result;
}

void addProcedureMessages(const Session& session, std::vector<RunMessage>& result) {
  for (const Message& message : distinct(session.messages)) {
    const Kind kind = message.kind == Message::Kind::error ? Kind::error : Kind::warning;
    result.push_back({kind, session.texts.translate(message.text)});
    const std::string hint = hintFor(message.text, session);
    if (!hint.empty()) result.push_back({Kind::hint, hint});
  }
}

}  // namespace

std::vector<RunMessage> collectMessages(const Session& session, const CapturedStreams& streams,
                                        const Outcome& outcome) {
  std::vector<RunMessage> result;
  addProcedureMessages(session, result);
  if (!outcome.succeeded) {
    if (!session.saveError.empty()) result.push_back({Kind::error, session.saveError});
    // A stop after a warning (EIGEN without CORRMATRIX) has its reason in the warning.
    if (result.empty()) result.push_back({Kind::error, explainSilentStop(outcome, streams)});
  }
  if (session.document.IsObject()) {
    for (std::string& note : collectNotes(session, streams)) result.push_back({Kind::note, std::move(note)});
  }
  return result;
}

const char* labelOf(RunMessage::Kind kind) {
  static constexpr std::array labels = {"error", "warning", "hint", "note"};
  return labels[static_cast<std::size_t>(kind)];
}

}  // namespace workbench
