#include "workbench/report/column_store.h"

#include <fmt/format.h>

#include <cmath>

#include "workbench/base/json.h"
#include "workbench/render/html_escape.h"

namespace workbench {

namespace {

// A JSON array of what `write` makes of each value.
template <class Value, class Write>
std::string jsonArray(const std::vector<Value>& values, Write write) {
  std::string text = "[";
  for (const Value& value : values) {
    if (text.size() > 1) text += ',';
    write(text, value);
  }
  return text + ']';
}

}  // namespace

std::size_t ColumnStore::add(const std::vector<double>& values) {
  return addText(jsonArray(values, [](std::string& out, double value) {
    std::isfinite(value) ? void(fmt::format_to(std::back_inserter(out), "{}", value)) : void(out += "null");
  }));
}

std::size_t ColumnStore::add(const std::vector<std::size_t>& values) {
  return addText(jsonArray(values, [](std::string& out, std::size_t value) { out += std::to_string(value); }));
}

std::size_t ColumnStore::add(const std::vector<std::string>& texts) {
  return addText(jsonArray(texts, [](std::string& out, const std::string& text) {
    out += scriptJson(rapidjson::Value(rapidjson::StringRef(text.data(), text.size())));
  }));
}

std::string ColumnStore::json() const {
  return fmt::format("[{}]", fmt::join(columns_, ",\n"));
}

std::size_t ColumnStore::addText(std::string column) {
  const auto [found, added] = numbers_.try_emplace(std::move(column), columns_.size());
  if (added) columns_.push_back(found->first);
  return found->second;
}

}  // namespace workbench
