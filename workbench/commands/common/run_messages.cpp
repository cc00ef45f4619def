#include "workbench/commands/common/run_messages.h"

#include <algorithm>
#include <array>

#include "workbench/commands/common/analysed_rows.h"
#include "workbench/session/texts.h"

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

void addProcedureMessages(const FinishedRun& run, std::vector<RunMessage>& result) {
  for (const Message& message : distinct(run.session.messages)) {
    const Kind kind = message.kind == Message::Kind::error ? Kind::error : Kind::warning;
    result.push_back({kind, run.session.texts.translate(message.text)});
    const std::string hint = run.command.hint(message.text, run);
    if (!hint.empty()) result.push_back({Kind::hint, hint});
  }
}

// Why a run stopped that left no message: the step, the likely cause, or else the last trace lines.
std::string explainSilentStop(const FinishedRun& run) {
  const std::string text =
      tr("the run stopped at ^1, without a message of the procedure.", stepName(run.outcome.failedStep));
  const std::string cause = run.command.silentCause(run);
  if (!cause.empty()) return text + "\n" + tr("The likely cause: ^1.", cause);
  return text + "\n" + tr("The last lines of its trace:") + "\n" + lastLines(run.streams.err, 5);
}

void addNotes(const std::vector<std::string>& notes, std::vector<RunMessage>& result) {
  for (const std::string& note : notes) {
    const bool said = std::any_of(result.begin(), result.end(), [&](const RunMessage& other) {
      return other.kind == Kind::note && other.text == note;
    });
    if (!said) result.push_back({Kind::note, note});
  }
}

}  // namespace

std::vector<RunMessage> collectMessages(const FinishedRun& run) {
  std::vector<RunMessage> result;
  addProcedureMessages(run, result);
  if (!run.outcome.succeeded) {
    if (!run.session.saveError.empty()) result.push_back({Kind::error, run.session.saveError});
    // A stop after a warning (EIGEN without CORRMATRIX) has its reason in the warning.
    if (result.empty()) result.push_back({Kind::error, explainSilentStop(run)});
  }
  if (run.session.document.IsObject()) {
    addNotes(rowNotes(run), result);
    addNotes(run.command.notes(run), result);
  }
  return result;
}

const char* labelOf(RunMessage::Kind kind) {
  static constexpr std::array labels = {"error", "warning", "hint", "note"};
  return labels[static_cast<std::size_t>(kind)];
}

}  // namespace workbench
