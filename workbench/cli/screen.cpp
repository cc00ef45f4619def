#include "workbench/cli/screen.h"

#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "workbench/base/standard_streams.h"
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
  if (isatty(descriptor) == 0) return style;
  winsize size{};
  if (ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col > 0) {
    style.width = std::clamp(static_cast<int>(size.ws_col), narrowest, widest);
  }
  const char* noColour = std::getenv("NO_COLOR");
  const char* terminal = std::getenv("TERM");
  style.colour = (noColour == nullptr || *noColour == '\0') && terminal != nullptr && std::string(terminal) != "dumb";
  return style;
}

// Messages that go to a file or a pipe keep their lines, so that they can be searched.
TerminalStyle messageStyle(int descriptor) {
  TerminalStyle style = styleOf(descriptor);
  if (isatty(descriptor) == 0) style.width = unlimited;
  return style;
}

void put(std::FILE* stream, const std::string& text) {
  std::fwrite(text.data(), 1, text.size(), stream);
}

void showNotes(const std::vector<RunMessage>& messages, bool aboveOutput) {
  const TerminalStyle style = styleOf(STDOUT_FILENO);
  bool first = true;
  for (const RunMessage& message : messages) {
    if (message.kind != RunMessage::Kind::note || message.aboveOutput != aboveOutput) continue;
    if (!aboveOutput && std::exchange(first, false)) put(stdout, "\n");
    put(stdout,
        paintMessage(labelOf(message.kind), message.shown(), style, currentLanguage()) + (aboveOutput ? "\n" : ""));
  }
}

// Which command of several this is; a command that was composed beside the first one is shown here.
void showHead(const ToldRun& told) {
  if (told.number == 0) return;
  put(stdout,
      (told.number > 1 ? "\n" : "") + paintHeading(tr("Command ^1", told.number), styleOf(STDOUT_FILENO)) + "\n");
  if (told.run.input.composed && told.number > 1) put(stdout, told.run.text + "\n");
}

void showOutput(const ToldRun& told, const OutputOptions& options) {
  const rapidjson::Document& document = told.run.record.document;
  TerminalStyle style = styleOf(STDOUT_FILENO);
  const Plots plots = options.plots ? paintPlots(document, style, currentLanguage()) : Plots{};
  style.listsCharts = plots.text.empty();
  if (!plots.problem.empty())
    put(stderr, paintMessage("warning", plots.problem, messageStyle(STDERR_FILENO), currentLanguage()));
  showHead(told);
  showNotes(told.messages, true);
  put(stdout, paintDocumentTerminal(document, style, currentLanguage(), told.view));
  if (!plots.text.empty()) put(stdout, "\n" + plots.text);
  showNotes(told.messages, false);
  for (const auto& file : told.run.record.savedFiles) put(stdout, tr("saved: ^1", file.string()) + "\n");
}

void showSummary(const FinishedRun& run) {
  put(stdout, run.command.summary(run));
  const std::string note = run.command.summaryNote(run);
  if (!note.empty()) put(stdout, paintMessage("note", note, styleOf(STDOUT_FILENO), currentLanguage()));
}

// Errors, warnings and hints are for standard error; so are notes on the data where standard output shows none.
bool isForStandardError(const RunMessage& message, const OutputOptions& options) {
  if (message.kind == RunMessage::Kind::note) return !options.showsOutput() && message.shownQuietly;
  return options.verbosity != Verbosity::quiet || message.shownQuietly;
}

}  // namespace

TerminalStyle outputStyle() {
  return styleOf(STDOUT_FILENO);
}

void showText(const std::string& text) {
  put(stdout, text);
}

void showLine(const std::string& text) {
  writeStandardOutput(text + "\n");
}

void showTable(const PivotTable& table) {
  put(stdout, paintTerminal(table, styleOf(STDOUT_FILENO)) + "\n");
}

void showNote(const std::string& text) {
  put(stdout, paintMessage("note", text, styleOf(STDOUT_FILENO), currentLanguage()));
}

void showError(const std::string& text) {
  put(stderr, paintMessage("error", text, messageStyle(STDERR_FILENO), currentLanguage()));
}

void showRun(const ToldRun& told, const OutputOptions& options) {
  if (options.verbosity == Verbosity::verbose) put(stderr, told.run.streams.out + told.run.streams.err);
  if (options.showsOutput() && told.hasOutput()) showOutput(told, options);
  showRest(told, options);
}

void showRest(const ToldRun& told, const OutputOptions& options) {
  if (options.summary) showSummary(told.run);
  std::fflush(stdout);
  for (const RunMessage& message : told.messages) {
    if (!isForStandardError(message, options)) continue;
    put(stderr, paintMessage(labelOf(message.kind), message.shown(), messageStyle(STDERR_FILENO), currentLanguage()));
  }
}

}  // namespace workbench
