// One chart of an output document as it is built.

#pragma once

#include <optional>
#include <string>
#include <vector>

#include "workbench/document/json_values.h"

namespace workbench {

// Operations throw std::logic_error for what the document could not hold.
class ChartWriter {
 public:
  ChartWriter(JsonPool& pool, std::string name) : pool_(pool), name_(std::move(name)) {}

  const std::string& name() const { return name_; }

  // Columns of one length, each under a name of its own.
  void addColumn(const std::string& column, const std::vector<std::string>& texts);
  void addColumn(const std::string& column, const std::vector<double>& numbers);

  // The item, without its specification; once.
  Json finish();

 private:
  void addColumn(const std::string& column, std::size_t size, Json values);
  [[noreturn]] void fail(const std::string& text) const;

  JsonPool& pool_;
  std::string name_;
  Json columns_{rapidjson::kObjectType};
  std::optional<std::size_t> length_;  // of every column, once there is one
  bool finished_ = false;
};

}  // namespace workbench
