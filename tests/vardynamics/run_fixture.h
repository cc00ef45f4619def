// A dataset in memory and whole runs over it through the exported entry.

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <limits>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

#include "procedures/vardynamics/driver/vardynamics_entry.h"
#include "tests/dataset/temp_folder.h"
#include "tests/engine/numeric_support.h"
#include "workbench/dates/date_setup.h"
#include "workbench/edge/session.h"

namespace vardynamics {

inline constexpr const char* kSuccess = "VAR Dynamics: Steps 1, 2, 3, 4, 5, and 6 completed successfully!";

// Two series that depend on each other's past, so that tests have something to find.
inline std::vector<std::vector<double>> relatedSeries(std::size_t length) {
  const std::vector<double> a = engine::noise(1, length);
  const std::vector<double> b = engine::noise(2, length);
  std::vector<std::vector<double>> series = {a, b};
  for (std::size_t t = 1; t < length; ++t) {
    series[0][t] += 0.5 * series[0][t - 1];
    series[1][t] += 0.6 * series[0][t - 1] + 0.2 * series[1][t - 1];
  }
  return series;
}

class RunTest : public testing::Test {
 protected:
  RunTest() { session.baseFolder = folder.path(); }

  // Given: columns of equal length; NaN is missing. Quarters from 2000Q1 on, unless undated.
  void columns(const std::vector<std::pair<std::string, std::vector<double>>>& data, bool dated = true) {
    session.dataset = {};
    session.trends = {};
    for (const auto& [name, values] : data) {
      workbench::Column& column = session.dataset.columns.emplace_back();
      column.name = name;
      column.numbers = values;
      session.dataset.rowCount = values.size();
    }
    if (!dated) return;
    workbench::DatesRequest dates;
    dates.start = {{workbench::Unit::year, 2000}, {workbench::Unit::quarter, 1}};
    workbench::defineDates(session.dataset, dates, session.trends);
  }

  // When: true for a run that succeeded.
  bool run(const std::string& command) {
    session.commandText = command;
    session.messages.clear();
    session.document.SetNull();
    std::ostringstream out;
    std::ostringstream err;
    std::streambuf* cout = std::cout.rdbuf(out.rdbuf());
    std::streambuf* cerr = std::cerr.rdbuf(err.rdbuf());
    VARDYNAMICS();
    std::cout.rdbuf(cout);
    std::cerr.rdbuf(cerr);
    failure = err.str();
    const std::string text = out.str();
    return text.ends_with(std::string(kSuccess) + "\n");
  }

  // Then.
  std::string firstError() const { return session.messages.empty() ? "" : session.messages.front().text; }

  const rapidjson::Value& item(const std::string& name) const {
    for (const auto& one : session.document["items"].GetArray()) {
      if (name == one["name"].GetString()) return one;
    }
    throw std::runtime_error("the document has no item " + name);
  }
  std::vector<std::string> itemNames() const {
    std::vector<std::string> names;
    for (const auto& one : session.document["items"].GetArray()) names.emplace_back(one["name"].GetString());
    return names;
  }
  std::vector<std::vector<double>> cells(const std::string& table) const {
    std::vector<std::vector<double>> rows;
    for (const auto& row : item(table)["cells"].GetArray()) {
      auto& values = rows.emplace_back();
      for (const auto& cell : row.GetArray()) {
        values.push_back(cell.IsNumber() ? cell.GetDouble() : std::numeric_limits<double>::quiet_NaN());
      }
    }
    return rows;
  }
  std::vector<std::string> notes(const std::string& table) const { return texts(item(table), "footnotes"); }
  std::vector<std::string> rowLabels(const std::string& table) const { return texts(item(table), "rows"); }

  workbench::TempFolder folder;  // of saved files: tests run beside one another
  workbench::Session session;
  std::string failure;  // what the last run traced on the error stream

 private:
  static std::vector<std::string> texts(const rapidjson::Value& table, const char* key) {
    std::vector<std::string> list;
    if (!table.HasMember(key)) return list;
    for (const auto& text : table[key].GetArray()) list.emplace_back(text.GetString());
    return list;
  }

  workbench::SessionScope scope_{session};
};

}  // namespace vardynamics
