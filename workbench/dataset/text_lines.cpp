#include "workbench/dataset/text_lines.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <sstream>
#include <string_view>

#include "workbench/base/utf8.h"
#include "workbench/dataset/number_text.h"

namespace workbench {

namespace {

constexpr std::array kSeparators{';', '\t', ',', '|'};

// Delimiters outside of quotes.
std::size_t delimitersIn(std::string_view line, char delimiter) {
  std::size_t count = 0;
  bool quoted = false;
  for (const char c : line) {
    if (c == '"') quoted = !quoted;
    if (c == delimiter && !quoted) ++count;
  }
  return count;
}

struct Run {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// The longest run of lines that have the same number of delimiters, at least one.
Run longestEvenRun(const std::vector<std::string>& lines, char delimiter) {
  Run best;
  Run run;
  std::size_t common = 0;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const std::size_t count = delimitersIn(lines[i], delimiter);
    if (count == 0 || count != common) run.begin = i;
    run.end = count == 0 ? i : i + 1;
    common = count;
    if (run.end - run.begin > best.end - best.begin) best = run;
  }
  return best;
}

bool holdsNumber(const std::string& line, char delimiter) {
  std::istringstream values(line);
  for (std::string value; std::getline(values, value, delimiter);) {
    if (readNumber(value, {}) || readNumber(value, {',', '.'})) return true;
  }
  return false;
}

bool separates(std::span<const std::string> lines, char separator) {
  const std::size_t common = delimitersIn(lines.front(), separator);
  return common > 0 && std::ranges::all_of(lines.subspan(1), [&](const std::string& line) {
           return line.empty() || delimitersIn(line, separator) == common;
         });
}

bool isUtf8(std::string_view text) {
  while (!text.empty()) {
    const CodePoint point = firstCodePoint(text);
    if (!point.valid) return false;
    text.remove_prefix(point.bytes);
  }
  return true;
}

}  // namespace

std::vector<std::string> firstLines(const std::filesystem::path& source) {
  constexpr std::size_t kHead = 64 << 10;
  std::ifstream stream(source, std::ios::binary);
  std::vector<std::string> lines;
  std::size_t size = 0;
  for (std::string line; size < kHead && std::getline(stream, line);) {
    size += line.size() + 1;
    if (line.ends_with('\r')) line.pop_back();
    lines.push_back(line);
  }
  return lines;
}

std::optional<TableStart> tableStart(const std::vector<std::string>& lines) {
  for (const char delimiter : kSeparators) {
    const Run run = longestEvenRun(lines, delimiter);
    if (run.end < run.begin + 2 || (run.begin == 0 && run.end == lines.size())) continue;
    return TableStart{run.begin, run.end, lines[run.begin], !holdsNumber(lines[run.begin], delimiter)};
  }
  return std::nullopt;
}

std::optional<char> commonSeparator(std::span<const std::string> lines) {
  if (lines.size() < 2) return std::nullopt;
  std::optional<char> common;
  for (const char separator : kSeparators) {
    if (!separates(lines, separator)) continue;
    if (common) return std::nullopt;
    common = separator;
  }
  return common;
}

std::size_t firstLineOutsideUtf8(const std::vector<std::string>& lines) {
  const auto line = std::ranges::find_if_not(lines, isUtf8);
  return line == lines.end() ? 0 : static_cast<std::size_t>(line - lines.begin()) + 1;
}

}  // namespace workbench
