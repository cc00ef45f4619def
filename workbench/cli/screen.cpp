#include "workbench/cli/screen.h"

#include <fmt/core.h>
#include <sys/ioctl.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "workbench/cli/notes.h"
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

// Two calls may end with the same sentence (the log-likelihood's and the driver's); it is said once.
std::vector<Message> distinct(const std::vector<Message>& messages) {
  std::vector<Message> result;
  for (const Message& message : messages) {
    const bool said = std::any_of(result.begin(), result.end(), [&](const Message& other) {
      return other.kind == message.kind && other.text == message.text;
    });
    if (!said) result.push_back(message);
  }
  return result;
}

void showMessages(const Session& session, bool errorsOnly, const TerminalStyle& style) {
  for (const Message& message : distinct(session.messages)) {
    const bool isError = message.kind == Message::Kind::error;
    if (errorsOnly && !isError) continue;
    put(stderr, paintMessage(isError ? "error" : "warning", message.text, style));
    const std::string hint = hintFor(message.text, session);
    if (!hint.empty()) put(stderr, paintMessage("hint", hint, style));
  }
}

bool hasError(const Session& session) {
  return std::any_of(session.messages.begin(), session.messages.end(),
                     [](const Message& message) { return message.kind == Message::Kind::error; });
}

void showFailure(const Session& session, const CapturedStreams& streams, const Outcome& outcome,
                 const TerminalStyle& style) {
  if (outcome.succeeded) return;
  if (!session.saveError.empty()) put(stderr, paintMessage("error", session.saveError, style));
  // A stop after a warning (EIGEN without CORRMATRIX) has its reason in the warning.
  if (!hasError(session) && session.saveError.empty() && session.messages.empty()) {
    put(stderr, paintMessage("error", explainSilentStop(outcome, streams), style));
  }
}

}  // namespace

void showError(const std::string& text) {
  put(stderr, paintMessage("error", text, messageStyle(STDERR_FILENO)));
}

void showRun(const Session& session, const CapturedStreams& streams, const Outcome& outcome,
             const OutputOptions& options) {
  const TerminalStyle out = styleOf(STDOUT_FILENO);
  const TerminalStyle err = messageStyle(STDERR_FILENO);
  const bool quiet = options.verbosity == Verbosity::quiet;
  if (options.verbosity == Verbosity::verbose) put(stderr, streams.out + streams.err);
  showMessages(session, quiet, err);
  if (!quiet && session.document.IsObject()) {
    put(stdout, paintDocumentTerminal(session.document, out));
    const std::vector<std::string> notes = collectNotes(session, streams);
    if (!notes.empty()) put(stdout, "\n");
    for (const std::string& note : notes) put(stdout, paintMessage("note", note, out));
    for (const auto& file : session.savedFiles) put(stdout, fmt::format("saved: {}\n", file.string()));
  }
  if (options.summary) put(stdout, summaryText(streams));
  std::fflush(stdout);
  showFailure(session, streams, outcome, err);
}

}  // namespace workbench
