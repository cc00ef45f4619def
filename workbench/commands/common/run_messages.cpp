#include "workbench/commands/common/run_messages.h"

#include <algorithm>
#include <array>
#include <utility>

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

Notice spokenByProcedure(const std::string& text, const FinishedRun& run) {
  return Notice::quoted(run.command.messageId(text), run.input.language.translate(text));
}

void addProcedureMessages(const FinishedRun& run, CommandRunner& runner, std::vector<RunMessage>& result) {
  for (const Message& message : distinct(run.record.messages)) {
    const Kind kind = message.kind == Message::Kind::error ? Kind::error : Kind::warning;
    const Advice advice = run.command.advice(message.text, run, runner);
    if (advice.unasked && !run.predicts) continue;  // another run of the job forecasts
    const bool own = !message.notice.id().empty();
    result.emplace_back(kind, own ? message.notice : spokenByProcedure(message.text, run), !advice.unasked);
    if (!advice.hint.empty()) result.emplace_back(Kind::hint, advice.hint, !advice.unasked);
  }
}

// Why a run stopped that left no message: the step, the likely cause, or else the last trace lines.
Notice explainSilentStop(const FinishedRun& run) {
  const Notice text("run.silent-stop", "the run stopped at ^1, without a message of the procedure.",
                    stepName(run.outcome.failedStep));
  const Notice cause = run.command.silentCause(run);
  if (!cause.empty()) return text + phrase("\nThe likely cause: ^1.", cause);
  return text + phrase("\nThe last lines of its trace:\n^1", lastLines(run.streams.err, 5));
}

void addNotes(const std::vector<Notice>& notes, bool onData, std::vector<RunMessage>& result) {
  for (const Notice& notice : notes) {
    RunMessage note(Kind::note, notice, onData);
    const bool said = std::any_of(result.begin(), result.end(), [&](const RunMessage& other) {
      return other.kind == Kind::note && other.text == note.text;
    });
    if (!said) result.push_back(std::move(note));
  }
}

}  // namespace

std::vector<RunMessage> collectMessages(const FinishedRun& run, CommandRunner& runner) {
  std::vector<RunMessage> result;
  addProcedureMessages(run, runner, result);
  if (!run.outcome.succeeded) {
    if (run.outcome.lostItems > 0) {
      result.emplace_back(Kind::error, Notice("run.lost-items",
                                              "^1 of the tables and charts could not be made and are missing here. "
                                              "There may be too little memory.",
                                              run.outcome.lostItems));
    }
    if (!run.record.saveError.empty()) result.emplace_back(Kind::error, run.record.saveError);
    // A stop after a warning (EIGEN without CORRMATRIX) has its reason in the warning.
    if (result.empty()) result.emplace_back(Kind::error, explainSilentStop(run));
  }
  if (run.record.document.IsObject()) {
    if (run.scale != 1.0 && !run.followed) result.emplace_back(Kind::note, run.command.scaleNote(run), true, true);
    if (!run.followed) addNotes(rowNotes(run), true, result);
    addNotes(run.command.notes(run), false, result);
  }
  return result;
}

RunMessage::RunMessage(Kind which, const Notice& notice, bool quietly, bool above)
    : kind(which), id(notice.id()), text(currentLanguage().in(notice)), shownQuietly(quietly), aboveOutput(above) {}

std::string RunMessage::shown() const {
  return command == 0 ? text : tr("command ^1: ^2", command, text);
}

const char* labelOf(RunMessage::Kind kind) {
  static constexpr std::array labels = {"error", "warning", "hint", "note"};
  return labels[static_cast<std::size_t>(kind)];
}

}  // namespace workbench
