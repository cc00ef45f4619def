// The syntax of a command as data, and its translation into the host's descriptors.

#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "host/codes.h"
#include "host/command_syntax.h"

namespace procedures {

template <typename Option>
struct Bound {
  double value;
  Option option;
};
template <typename Option>
Bound(double, Option) -> Bound<Option>;  // clang before 17 deduces none for aggregates

struct Parameter {
  const char* name;
  UPSpecTypes::ParamSpec kind;
  bool required = false;
  UPSpecTypes::BracketOptions brackets = codes::kNoBrackets;
  std::vector<std::string> keywords = {};
  std::optional<Bound<UPSpecTypes::LowerBdryOptions>> lower = {};
  std::optional<Bound<UPSpecTypes::UpperBdryOptions>> upper = {};
  bool saysQualification = true;
};

struct Subcommand {
  const char* name;  // empty: the command's global part
  bool exported = false;
  std::vector<Parameter> parameters = {};
};

// A list of keywords in square brackets.
Parameter keywordList(const char* name, bool required, std::vector<std::string> keywords);

SubComDescriptor descriptorOf(const Subcommand& subcommand);

// A keyword of a list and the settings field that it turns on.
template <typename Settings>
struct KeywordFlag {
  const char* keyword;
  bool Settings::*flag;
};

// The table's keywords, in its order.
template <typename Settings, std::size_t size>
std::vector<std::string> keywordsOf(const std::array<KeywordFlag<Settings>, size>& table) {
  std::vector<std::string> keywords;
  for (const auto& row : table) keywords.emplace_back(row.keyword);
  return keywords;
}

// Turns on the flag of every keyword of the list that the table knows; other keywords are ignored.
template <typename Settings, std::size_t size>
void setFlags(const std::array<KeywordFlag<Settings>, size>& table, const std::vector<std::string>& keywords,
              Settings& settings) {
  for (const std::string& keyword : keywords) {
    for (const auto& row : table) {
      if (keyword == row.keyword) settings.*row.flag = true;
    }
  }
}

}  // namespace procedures
