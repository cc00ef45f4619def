#include "workbench/cli/toml_reader.h"

#include <algorithm>
#include <utility>

#include "workbench/base/errors.h"
#include "workbench/base/suggest.h"

namespace workbench {

TomlSection::TomlSection(const toml::table& table, Notice file, std::string section,
                         std::vector<std::string_view> known)
    : table_(table), file_(std::move(file)), section_(std::move(section)) {
  if (known.empty()) return;
  for (const std::string& key : keys()) {
    if (std::find(known.begin(), known.end(), key) != known.end()) continue;
    const std::vector<std::string> candidates(known.begin(), known.end());
    const Notice where = section_.empty() ? phrase("a job file") : Notice("[" + section_ + "]");
    fail(key, Notice("job.unknown-key", "is no key of ^1.", where) + didYouMeanWord(key, candidates) +
                  phrase("Its keys: ^1.", listed(candidates)));
  }
}

std::vector<std::string> TomlSection::keys() const {
  std::vector<std::pair<std::uint32_t, std::string>> found;
  for (const auto& [key, node] : table_) found.emplace_back(key.source().begin.line, std::string(key.str()));
  std::stable_sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::vector<std::string> names;
  for (auto& [line, name] : found) names.push_back(std::move(name));
  return names;
}

std::string TomlSection::fullName(std::string_view key) const {
  return "'" + (section_.empty() ? std::string(key) : section_ + "." + std::string(key)) + "'";
}

void TomlSection::fail(std::string_view key, const Notice& text) const {
  std::uint32_t line = table_.source().begin.line;
  for (const auto& [name, node] : table_) {
    if (name.str() == key) line = name.source().begin.line;
  }
  throw UsageError(phrase("^1, line ^2: ^3 ^4", file_, line, fullName(key), text));
}

template <typename T>
std::optional<T> TomlSection::value(std::string_view key, const Notice& expected) const {
  const toml::node* found = table_.get(key);
  if (found == nullptr) return std::nullopt;
  std::optional<T> value = found->value_exact<T>();
  if (!value) fail(key, Notice("job.kind", "must be ^1.", expected));
  return value;
}

template <typename T>
std::optional<std::vector<T>> TomlSection::list(std::string_view key, const Notice& expected) const {
  const toml::node* found = table_.get(key);
  if (found == nullptr) return std::nullopt;
  std::vector<T> values;
  const toml::array* items = found->as_array();
  if (items == nullptr) fail(key, Notice("job.kind", "must be ^1.", expected));
  for (const toml::node& item : *items) {
    std::optional<T> value = item.value_exact<T>();
    if constexpr (std::is_same_v<T, double>) {
      if (!value && item.is_integer()) value = item.value<double>();
    }
    if (!value) fail(key, Notice("job.kind", "must be ^1.", expected));
    values.push_back(*value);
  }
  return values;
}

std::optional<std::string> TomlSection::text(std::string_view key) const {
  return value<std::string>(key, phrase("a text in quotes"));
}

std::optional<double> TomlSection::number(std::string_view key) const {
  const toml::node* found = table_.get(key);
  if (found != nullptr && found->is_integer()) return found->value<double>();
  return value<double>(key, phrase("a number"));
}

std::optional<std::int64_t> TomlSection::integer(std::string_view key) const {
  return value<std::int64_t>(key, phrase("a whole number"));
}

std::optional<bool> TomlSection::flag(std::string_view key) const {
  return value<bool>(key, phrase("true or false"));
}

std::optional<std::vector<double>> TomlSection::numbers(std::string_view key) const {
  return list<double>(key, phrase("a list of numbers, such as [-9.0, -8.0]"));
}

std::optional<std::vector<std::string>> TomlSection::texts(std::string_view key) const {
  return list<std::string>(key, phrase("a list of texts, such as [\"region\"]"));
}

std::optional<std::vector<std::string>> TomlSection::textOrTexts(std::string_view key) const {
  const toml::node* found = table_.get(key);
  if (found == nullptr || !found->is_string()) return texts(key);
  return std::vector{*text(key)};
}

std::optional<TomlSection> TomlSection::section(std::string_view key, std::vector<std::string_view> known) const {
  const toml::node* found = table_.get(key);
  if (found == nullptr) return std::nullopt;
  const toml::table* table = found->as_table();
  if (table == nullptr) fail(key, Notice("job.table", "must be a table, such as [^1].", key));
  return TomlSection(*table, file_, section_.empty() ? std::string(key) : section_ + "." + std::string(key),
                     std::move(known));
}

}  // namespace workbench
