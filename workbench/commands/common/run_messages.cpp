#include "workbench/commands/common/run_messages.h"

#include <algorithm>
#include <array>

#include "workbench/commands/common/analysed_rows.h"
#include "workbench/edge/texts.h"

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

void addProcedureMessages(const FinishedRun& run, CommandRunner& runner, std::vector<RunMessage>& result) {
  for (const Message& message : distinct(run.record.messages)) {
    const Kind kind = message.kind == Message::Kind::error ? Kind::error : Kind::warning;
    const Advice advice = run.command.advice(message.text, run, runner);
    if (advice.unasked && !run.predicts) continue;  // another run of the job forecasts
    result.push_back({kind, run.input.language.translate(message.text), !advice.unasked});
    if (!advice.hint.empty()) result.push_back({Kind::hint, advice.hint, !advice.unasked});
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

void addNotes(const std::vector<std::string>& notes, bool onData, std::vector<RunMessage>& result) {
  for (const std::string& note : notes) {
    const bool said = std::any_of(result.begin(), result.end(), [&](const RunMessage& other) {
      return other.kind == Kind::note && other.text == note;
    });
    if (!said) result.push_back({Kind::note, note, onData});
  }
}

}  // namespace

std::vector<RunMessage> collectMessages(const FinishedRun& run, CommandRunner& runner) {
  std::vector<RunMessage> result;
  addProcedureMessages(run, runner, result);
  if (!run.outcome.succeeded) {
    if (run.outcome.lostItems > 0) {
      result.push_back({Kind::error, tr("^1 of the tables and charts could not be made and are missing here. There may "
                                        "be too little memory.",
                                        run.outcome.lostItems)});
    }
    if (!run.record.saveError.empty()) result.push_back({Kind::error, run.record.saveError});
    // A stop after a warning (EIGEN without CORRMATRIX) has its reason in the warning.
    if (result.empty()) result.push_back({Kind::error, explainSilentStop(run)});
  }
  if (run.record.document.IsObject()) {
    if (run.scale != 1.0 && !run.followed) result.push_back({Kind::note, run.command.scaleNote(run), true, true});
    if (!run.followed) addNotes(rowNotes(run), true, result);
    addNotes(run.command.notes(run), false, result);
  }
  return result;
}

std::string RunMessage::shown() const {
  return command == 0 ? text : tr("command ^1: ^2", command, text);
}

const char* labelOf(RunMessage::Kind kind) {
  static constexpr std::array labels = {"error", "warning", "hint", "note"};
  return labels[static_cast<std::size_t>(kind)];
}

}  // namespace workbench
