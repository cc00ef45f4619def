#include "workbench/commands/common/outcome.h"

#include <algorithm>
#include <array>

#include "workbench/document/document_reader.h"

namespace workbench {

int Outcome::exitCode() const {
  if (succeeded) return 0;
  if (failedStep == 2) return 2;
  return failedStep == 6 ? 4 : 1;
}

std::string_view lastLine(std::string_view stream) {
  stream = stream.substr(0, stream.find_last_not_of('\n') + 1);  // npos + 1 is nothing
  const std::size_t before = stream.rfind('\n');
  return before == std::string_view::npos ? stream : stream.substr(before + 1);
}

int failedStep(const CapturedStreams& streams, const std::string& entry) {
  const std::string prefix = entry + ": Step";
  const std::string_view line = lastLine(streams.err);
  if (!line.starts_with(prefix) || line.size() == prefix.size()) return 0;
  const char digit = line[prefix.size()];
  return digit >= '1' && digit <= '6' ? digit - '0' : 0;
}

Outcome withWhatWasLeft(Outcome outcome, const CallRecord& record) {
  if (!outcome.succeeded) return outcome;
  const Json* items = record.document.IsObject() ? itemsOf(record.document) : nullptr;
  const int made = items == nullptr ? 0 : static_cast<int>(items->Size());
  outcome.lostItems = std::max(outcome.lostItems, record.begunItems - made);
  if (outcome.lostItems > 0) outcome.failedStep = 5;
  if (record.savedFiles.size() < record.namedFiles.size()) outcome.failedStep = 6;
  outcome.succeeded = outcome.failedStep == 0;
  return outcome;
}

Notice stepName(int step) {
  const std::array names = {phrase("an unknown step"),
                            phrase("step 1, describing the command"),
                            phrase("step 2, parsing the command"),
                            phrase("step 3, checking the subcommands and reading the data"),
                            phrase("step 4, the estimation"),
                            phrase("step 5, building the output"),
                            phrase("step 6, writing the saved file")};
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

}  // namespace workbench
