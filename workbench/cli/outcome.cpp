#include "workbench/cli/outcome.h"

#include <algorithm>
#include <array>
#include <string_view>

#include "workbench/session/texts.h"

namespace workbench {

namespace {

constexpr std::string_view successLine = "VAR Model: Steps 1, 2, 3, 4, 5, and 6 completed successfully!";
constexpr std::string_view failurePrefix = "varmodel_entry: Step";

}  // namespace

int Outcome::exitCode() const {
  if (succeeded) return 0;
  if (failedStep == 2) return 2;
  return failedStep == 6 ? 4 : 1;
}

Outcome readOutcome(const CapturedStreams& streams) {
  Outcome outcome;
  outcome.succeeded = streams.out.find(successLine) != std::string::npos;
  const auto at = streams.err.rfind(failurePrefix);
  if (!outcome.succeeded && at != std::string::npos && at + failurePrefix.size() < streams.err.size()) {
    const char digit = streams.err[at + failurePrefix.size()];
    if (digit >= '1' && digit <= '6') outcome.failedStep = digit - '0';
  }
  return outcome;
}

std::string stepName(int step) {
  const std::array names = {tr("an unknown step"),
                            tr("step 1, describing the command"),
                            tr("step 2, parsing the command"),
                            tr("step 3, checking the subcommands and reading the data"),
                            tr("step 4, the estimation"),
                            tr("step 5, building the output"),
                            tr("step 6, writing the saved file")};
  return names.at(static_cast<std::size_t>(step));
}

std::string lastLines(const std::string& text, int count) {
  std::size_t end = text.find_last_not_of('\n');
  if (end == std::string::npos) return {};
  std::size_t begin = end;
  for (int line = 0; line < count && begin != std::string::npos; ++line) {
    begin = begin == 0 ? std::string::npos : text.rfind('\n', begin - 1);
  }
  std::string result;
  for (std::size_t at = begin == std::string::npos ? 0 : begin + 1; at <= end;) {
    const std::size_t stop = std::min(text.find('\n', at), end + 1);
    result += "  " + text.substr(at, stop - at) + "\n";
    at = stop + 1;
  }
  return result;
}

std::string summaryText(const CapturedStreams& streams) {
  const std::string rule(120, '=');
  const auto begin = streams.out.find(rule + "\nVAR MODEL RESULTS SUMMARY");
  if (begin == std::string::npos) return {};
  const std::string closing = "END OF VAR MODEL RESULTS\n" + rule + "\n";
  const auto end = streams.out.find(closing, begin);
  if (end == std::string::npos) return {};
  return streams.out.substr(begin, end + closing.size() - begin);
}

}  // namespace workbench
