// How a file writes its values, where it differs from what is read without being told.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/base/notice.h"
#include "workbench/dataset/number_text.h"

namespace workbench {

struct FileFormat {
  NumberFormat numbers;
  std::vector<std::string> missing = {};  // words and numbers for a missing value, beside the usual words
  std::optional<long> skip = {};          // lines before the header
  std::string encoding = {};              // "utf-8", "latin1", "utf-16"; empty: UTF-8
  std::string sheet = {};                 // of a workbook; empty: its only sheet

  // Tells where the table begins or which bytes are its characters.
  bool describesText() const { return skip.has_value() || !encoding.empty(); }
};

// The separator that a user gave for a setting ("decimal", "thousands"). Throws UsageError unless it is one character
// that can be one.
char separatorOf(const std::string& text, const std::string& setting);

// Throws UsageError for separators that are the same, and for an unknown encoding.
void requirePossible(const FileFormat& format);

// DuckDB's name of an encoding. Throws UsageError, naming those there are, for any other.
std::string encodingName(const std::string& encoding);

// A setting to be written down.
struct WrittenSetting {
  enum class Kind { text, texts, number };

  std::string name;
  std::vector<std::string> values;  // one, unless the kind is texts
  Kind kind = Kind::text;

  std::string option() const;  // --na='-,n/a'
  std::string value() const;   // as a job file has it: ["-", "n/a"]
  std::string key() const { return name + " = " + value(); }
};

// "--decimal=, (in a job file, under [data]: decimal = \",\")"
Notice inWords(const WrittenSetting& setting);

// The settings in which a format differs from the usual one.
std::vector<WrittenSetting> writtenSettings(const FileFormat& format);

}  // namespace workbench
