// Reading the parameters of one subcommand.

#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/command_parser.h"
#include "procedures/common/command_table.h"

namespace vardynamics {

class ParameterReader {
 public:
  // The subcommand stays the caller's and must outlive the reader.
  explicit ParameterReader(const SubComObj& subcommand) : subcommand_(subcommand) {}

  const ParamObj* find(const char* name) const { return subcommand_.getParamObj(name); }
  bool has(const char* name) const { return find(name) != nullptr; }

  // Nothing when the parameter was not given. Throws UserError when it is no whole number.
  std::optional<std::int32_t> wholeNumber(const char* name) const;
  // The keyword in the descriptor's spelling; the default when the parameter was not given.
  std::string keyword(const char* name, const char* byDefault) const;
  bool yes(const char* name) const { return keyword(name, "NO") == "YES"; }
  // The listed keywords; none when the parameter was not given.
  std::vector<std::string> keywords(const char* name) const;

  // Turns on the listed keywords' switches and turns off the others; leaves all as they are when the parameter was not
  // given.
  template <typename Record, std::size_t size>
  void flags(const char* name, const std::array<procedures::KeywordFlag<Record>, size>& table, Record& record) const {
    if (!has(name)) return;
    const std::vector<std::string> given = keywords(name);
    for (const auto& row : table) record.*row.flag = std::find(given.begin(), given.end(), row.keyword) != given.end();
  }

 private:
  const SubComObj& subcommand_;
};

}  // namespace vardynamics
