#include "workbench/dataset/text_numbers.h"

#include <algorithm>
#include <array>
#include <utility>

namespace workbench {

namespace {

constexpr std::array<NumberFormat, 7> kFormats{
    {{'.', '\0'}, {',', '\0'}, {',', '.'}, {'.', ','}, {',', ' '}, {'.', ' '}, {'.', '\''}}};

// More different words than this among numbers are no marks of missing values.
constexpr std::size_t kMostMissingWords = 6;

bool isIn(const std::vector<std::string>& words, std::string_view text) {
  return std::ranges::find(words, withoutBlanks(text)) != words.end();
}

bool holdsPercent(const Column& column) {
  return std::ranges::any_of(column.texts, [](const std::string& text) { return withoutBlanks(text).ends_with('%'); });
}

// The column's values; empty when one of its texts is no number, or all are missing.
std::vector<double> numbersOf(const Column& column, const FileFormat& format) {
  std::vector<double> numbers;
  bool any = false;
  for (const std::string& text : column.texts) {
    const bool missing = withoutBlanks(text).empty() || isIn(format.missing, text);
    const std::optional<double> number = missing ? kSystemMissing : readNumber(text, format.numbers);
    if (!number) return {};
    any = any || !missing;
    numbers.push_back(*number);
  }
  return any ? numbers : std::vector<double>{};
}

void makeNumeric(Column& column, std::vector<double> numbers) {
  column.kind = ColumnKind::number;
  column.level = MeasurementLevel::scale;
  column.numbers = std::move(numbers);
  column.texts.clear();
  column.textWidth = 0;
}

// How many texts of a column are numbers in a format, and which are not.
struct Reading {
  std::size_t numbers = 0;
  std::vector<std::string> words;  // different ones, as long as they are few
  std::optional<std::size_t> firstWord;
  std::optional<std::size_t> firstNumber;
};

Reading readingOf(const Column& column, const FileFormat& format) {
  Reading reading;
  for (std::size_t row = 0; row < column.texts.size(); ++row) {
    const std::string_view text = withoutBlanks(column.texts[row]);
    if (text.empty() || isIn(format.missing, text)) continue;
    if (readNumber(text, format.numbers)) {
      ++reading.numbers;
      if (!reading.firstNumber) reading.firstNumber = row;
      continue;
    }
    if (!reading.firstWord) reading.firstWord = row;
    if (reading.words.size() <= kMostMissingWords && !isIn(reading.words, text)) reading.words.emplace_back(text);
  }
  return reading;
}

// A file's numbers among a few words: a column of names with some digits among them has more.
bool looksNumeric(const Reading& reading) {
  return reading.numbers >= 2 && reading.words.size() <= kMostMissingWords && reading.numbers > reading.words.size();
}

std::size_t numericValues(const Dataset& dataset, const FileFormat& format) {
  std::size_t count = 0;
  for (const Column& column : dataset.columns) {
    const Reading reading = readingOf(column, format);
    if (looksNumeric(reading)) count += reading.numbers;
  }
  return count;
}

// Of equally many values the format named first.
NumberFormat bestFormat(const Dataset& dataset, const FileFormat& present) {
  FileFormat best = present;
  std::size_t most = numericValues(dataset, present);
  for (const NumberFormat& candidate : kFormats) {
    FileFormat format = present;
    format.numbers = candidate;
    const std::size_t count = numericValues(dataset, format);
    if (count > most) {
      most = count;
      best = format;
    }
  }
  return best.numbers;
}

void addWords(const std::vector<Reading>& columns, std::vector<std::string>& missing) {
  for (const Reading& reading : columns) {
    for (const std::string& word : reading.words) {
      if (!isIn(missing, word)) missing.push_back(word);
    }
  }
}

// Where the names of several columns stand below lines of a title: one word a column, above its numbers.
std::optional<std::size_t> rowOfNames(const std::vector<Reading>& columns) {
  const auto isName = [&](const Reading& reading) {
    return reading.words.size() == 1 && reading.firstWord == columns.front().firstWord &&
           reading.firstWord < reading.firstNumber;
  };
  return columns.size() > 1 && std::ranges::all_of(columns, isName) ? columns.front().firstWord : std::nullopt;
}

}  // namespace

void applyFormat(Dataset& dataset, const FileFormat& format) {
  const bool usual = format.numbers == NumberFormat{} && format.missing.empty();
  std::vector<double> missing;
  for (const std::string& word : format.missing) {
    if (const std::optional<double> number = readNumber(word, format.numbers)) missing.push_back(*number);
  }
  for (Column& column : dataset.columns) {
    if (column.kind == ColumnKind::text && (!usual || holdsPercent(column))) {
      std::vector<double> numbers = numbersOf(column, format);
      if (!numbers.empty()) makeNumeric(column, std::move(numbers));
    }
    for (const double number : missing) std::ranges::replace(column.numbers, number, kSystemMissing);
  }
}

std::optional<TextNumbers> findTextNumbers(const Dataset& dataset, const FileFormat& present) {
  TextNumbers found;
  found.format = present;
  found.format.numbers = bestFormat(dataset, present);
  std::vector<Reading> readings;
  for (const Column& column : dataset.columns) {
    const Reading reading = readingOf(column, found.format);
    const std::optional<std::size_t> row = readingOf(column, present).firstWord;
    if (!looksNumeric(reading) || !row) continue;
    found.columns.push_back({column.name, *row, column.texts[*row]});
    readings.push_back(reading);
  }
  if (found.columns.empty()) return std::nullopt;
  if (const std::optional<std::size_t> names = rowOfNames(readings)) {
    found.format.skip = present.skip.value_or(0) + static_cast<long>(*names) + 1;
  } else {
    addWords(readings, found.format.missing);
  }
  return found;
}

std::optional<NumberFormat> numberFormatOf(std::string_view text) {
  const auto* found =
      std::ranges::find_if(kFormats, [&](NumberFormat format) { return readNumber(text, format).has_value(); });
  return found == kFormats.end() ? std::nullopt : std::optional(*found);
}

}  // namespace workbench
