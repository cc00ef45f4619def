// Small datasets and the faults they must raise.

#pragma once

#include <cstdio>
#include <string>
#include <vector>

#include "tests/dataset/fault.h"
#include "workbench/base/errors.h"
#include "workbench/dates/date_setup.h"
#include "workbench/dates/labels.h"
#include "workbench/edge/session.h"

namespace workbench {

// "2000-02-29", "2000-02-29 13:05:09" or "" (no date) as microseconds since 1970.
inline std::int64_t instantOf(const std::string& text) {
  if (text.empty()) return kMissingInstant;
  int year = 0, hour = 0, minute = 0, second = 0;
  unsigned month = 0, day = 0;
  std::sscanf(text.c_str(), "%d-%u-%u %d:%d:%d", &year, &month, &day, &hour, &minute, &second);
  const std::chrono::sys_days date{std::chrono::year{year} / std::chrono::month{month} / std::chrono::day{day}};
  const auto time = date + std::chrono::hours{hour} + std::chrono::minutes{minute} + std::chrono::seconds{second};
  return Instant{time}.time_since_epoch().count();
}

inline Dataset rows(std::size_t count) {
  Dataset dataset;
  dataset.origin = "data.csv";
  dataset.rowCount = count;
  return dataset;
}

inline void addNumbers(Dataset& dataset, const std::string& name, const std::vector<double>& values) {
  Column column;
  column.name = name;
  column.numbers = values;
  dataset.columns.push_back(column);
}

inline Dataset datedRows(const std::vector<std::string>& dates) {
  Dataset dataset = rows(dates.size());
  Column column;
  column.name = "date";
  column.kind = ColumnKind::instant;
  for (const std::string& date : dates) column.instants.push_back(instantOf(date));
  dataset.columns.push_back(column);
  return dataset;
}

inline Session sessionWith(Dataset dataset, const DatesRequest& request) {
  Session session;
  session.dataset = std::move(dataset);
  defineDates(session.dataset, request, session.trends);
  return session;
}

inline DatesRequest startAt(const DateComponents& start) {
  return {.start = start, .column = "", .variables = {}};
}
inline DatesRequest byColumn(const std::string& name) {
  return {.start = {}, .column = name, .variables = {}};
}
inline DatesRequest byVariables(const std::map<Unit, std::string>& variables) {
  return {.start = {}, .column = "", .variables = variables};
}

}  // namespace workbench
