#include "workbench/cli/screen.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "workbench/base/descriptor.h"
#include "workbench/base/standard_streams.h"
#include "workbench/base/terminal.h"
#include "workbench/base/visible_text.h"
#include "workbench/edge/texts.h"
#include "workbench/plots/plots.h"
#include "workbench/render/message_text.h"
#include "workbench/render/terminal.h"

namespace workbench {

namespace {

constexpr int defaultWidth = 80;
constexpr int narrowest = 40;
constexpr int widest = 160;
constexpr int unlimited = 1 << 20;

TerminalStyle styleOf(int descriptor) {
  TerminalStyle style;
  style.width = defaultWidth;
  if (!isTerminal(descriptor)) return style;
  if (const auto width = terminalWidth(descriptor)) style.width = std::clamp(*width, narrowest, widest);
  const char* noColour = std::getenv("NO_COLOR");
  style.colour = (noColour == nullptr || *noColour == '\0') && takesColours(descriptor);
  return style;
}

// Messages that go to a file or a pipe keep their lines, so that they can be searched.
TerminalStyle messageStyle(int descriptor) {
  TerminalStyle style = styleOf(descriptor);
  if (!isTerminal(descriptor)) style.width = unlimited;
  return style;
}

void showNotes(const std::vector<RunMessage>& messages, bool aboveOutput) {
  const TerminalStyle style = styleOf(kStandardOutput);
  bool first = true;
  for (const RunMessage& message : messages) {
    if (message.kind != RunMessage::Kind::note || message.aboveOutput != aboveOutput) continue;
    if (!aboveOutput && std::exchange(first, false)) putText(stdout, "\n");
    putText(stdout,
            paintMessage(labelOf(message.kind), message.shown(), style, currentLanguage()) + (aboveOutput ? "\n" : ""));
  }
}

// Which command of several this is; a command that was composed beside the first one is shown here.
void showHead(const ToldRun& told) {
  if (told.number == 0) return;
  putText(stdout,
          (told.number > 1 ? "\n" : "") + paintHeading(tr("Command ^1", told.number), styleOf(kStandardOutput)) + "\n");
  if (told.run.input.composed && told.number > 1) putText(stdout, visibleLines(told.run.text) + "\n");
}

void showOutput(const ToldRun& told, const OutputOptions& options) {
  const rapidjson::Document& document = told.run.record.document;
  TerminalStyle style = styleOf(kStandardOutput);
  const Plots plots = options.plots ? paintPlots(document, style, currentLanguage()) : Plots{};
  style.listsCharts = plots.text.empty();
  if (!plots.problem.empty())
    putText(stderr, paintMessage("warning", plots.problem, messageStyle(kStandardError), currentLanguage()));
  showHead(told);
  showNotes(told.messages, true);
  putText(stdout, paintDocumentTerminal(document, style, currentLanguage(), told.view));
  if (!plots.text.empty()) putText(stdout, "\n" + plots.text);
  showNotes(told.messages, false);
  for (const auto& file : told.run.record.savedFiles)
    putText(stdout, visibleText(tr("saved: ^1", file.string())) + "\n");
}

void showSummary(const FinishedRun& run) {
  putText(stdout, visibleLines(run.command.summary(run)));
  const Notice note = run.command.summaryNote(run);
  if (!note.empty()) showNote(note);
}

// Errors, warnings and hints are for standard error. Notes stand with the output, in the report and in the record: what
// runs unattended is silent when all went well.
bool isForStandardError(const RunMessage& message, const OutputOptions& options) {
  if (message.kind == RunMessage::Kind::note) return false;
  return options.verbosity != Verbosity::quiet || message.shownQuietly;
}

}  // namespace

TerminalStyle outputStyle() {
  return styleOf(kStandardOutput);
}

void showText(const std::string& text) {
  putText(stdout, text);
}

void showLine(const std::string& text) {
  putText(stdout, visibleLines(text) + "\n");
}

void showTable(const PivotTable& table) {
  putText(stdout, paintTerminal(table, styleOf(kStandardOutput)) + "\n");
}

void showNote(const Notice& text) {
  putText(stdout, paintMessage("note", currentLanguage().in(text), styleOf(kStandardOutput), currentLanguage()));
}

void showWarning(const Notice& text) {
  std::fflush(stdout);
  putText(stderr, paintMessage("warning", currentLanguage().in(text), messageStyle(kStandardError), currentLanguage()));
}

void showError(const Notice& text) {
  putText(stderr, paintMessage("error", currentLanguage().in(text), messageStyle(kStandardError), currentLanguage()));
}

void showRun(const ToldRun& told, const OutputOptions& options) {
  if (options.verbosity == Verbosity::verbose)
    putText(stderr, visibleLines(told.run.streams.out + told.run.streams.err));
  if (options.showsOutput() && told.hasOutput()) showOutput(told, options);
  showRest(told, options);
}

void showRest(const ToldRun& told, const OutputOptions& options) {
  if (options.summary) showSummary(told.run);
  if (std::fflush(stdout) != 0 && errno == EPIPE) endWithReader();
  for (const RunMessage& message : told.messages) {
    if (!isForStandardError(message, options)) continue;
    putText(stderr,
            paintMessage(labelOf(message.kind), message.shown(), messageStyle(kStandardError), currentLanguage()));
  }
}

}  // namespace workbench
