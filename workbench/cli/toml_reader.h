// Strict reading of a TOML table: an unknown key or a value of the wrong type is a UsageError that names file, line,
// key and remedy.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wshadow"
#endif
#include <toml++/toml.h>

#include "workbench/base/notice.h"
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

namespace workbench {

// One table of a job file. `section` is its name as the user writes it ("data", "variables.infl"; "" at the top).
class TomlSection {
 public:
  // Throws when the table holds a key that is not in `known`; an empty `known` allows every key.
  TomlSection(const toml::table& table, Notice file, std::string section, std::vector<std::string_view> known);

  bool has(std::string_view key) const { return table_.contains(key); }
  // The value under a key; nothing when the key is absent.
  std::optional<std::string> text(std::string_view key) const;
  std::optional<double> number(std::string_view key) const;
  std::optional<std::int64_t> integer(std::string_view key) const;
  std::optional<bool> flag(std::string_view key) const;
  std::optional<std::vector<double>> numbers(std::string_view key) const;
  std::optional<std::vector<std::string>> texts(std::string_view key) const;
  // The same of a text alone, too.
  std::optional<std::vector<std::string>> textOrTexts(std::string_view key) const;
  std::optional<TomlSection> section(std::string_view key, std::vector<std::string_view> known) const;
  std::vector<std::string> keys() const;  // in file order

  const toml::node* node(std::string_view key) const { return table_.get(key); }
  // Throws the UsageError for a key of this section: "FILE, line N: KEY TEXT".
  [[noreturn]] void fail(std::string_view key, const Notice& text) const;

 private:
  template <typename T>
  std::optional<T> value(std::string_view key, const Notice& expected) const;
  template <typename T>
  std::optional<std::vector<T>> list(std::string_view key, const Notice& expected) const;
  std::string fullName(std::string_view key) const;

  const toml::table& table_;
  Notice file_;
  std::string section_;
};

}  // namespace workbench
