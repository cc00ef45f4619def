#include "workbench/cli/command_facts.h"

#include <algorithm>
#include <regex>

namespace workbench {

bool requested(const Session& session, const std::string& list, const std::string& keyword) {
  const auto found = session.requestedLists.find(list);
  return found != session.requestedLists.end() &&
         std::find(found->second.begin(), found->second.end(), keyword) != found->second.end();
}

std::optional<AnalysedRows> analysedRows(const Session& session) {
  if (session.passes.empty()) return std::nullopt;
  AnalysedRows rows;
  for (const char* list : {"MODEL ENDOGENOUS", "MODEL EXOGENOUS"}) {
    const auto found = session.requestedLists.find(list);
    if (found == session.requestedLists.end()) continue;
    for (const std::string& name : found->second) {
      const int column = session.dataset.find(name);
      if (column >= 0) rows.columns.push_back(column);
    }
  }
  if (rows.columns.empty()) return std::nullopt;
  rows.account = accountRows(session.dataset, rows.columns, session.passes.back().excludeUserMissing);
  return rows;
}

std::string withFixedLag(const std::string& command, int lag) {
  std::string text = command;
  for (const std::string name : {"MINLAG", "MAXLAG"}) {
    const std::string setting = name + "=" + std::to_string(lag);
    const std::regex given("\\b" + name + "\\s*=\\s*[0-9.]+", std::regex::icase);
    if (std::regex_search(text, given)) {
      text = std::regex_replace(text, given, setting);
    } else {
      const std::regex model("/\\s*MODEL\\b(?!STAT)", std::regex::icase);
      text = std::regex_replace(text, model, "/MODEL " + setting, std::regex_constants::format_first_only);
    }
  }
  return text;
}

std::int64_t largestUsableLag(std::int64_t rows, std::int64_t endogenous, std::int64_t exogenous) {
  // K residual series need K spare rows for a regular covariance: rows - p - (exogenous + 1 + p K) >= K.
  const std::int64_t spare = rows - exogenous - 1 - endogenous;
  return spare < 0 ? 0 : std::min<std::int64_t>(25, spare / (endogenous + 1));
}

}  // namespace workbench
