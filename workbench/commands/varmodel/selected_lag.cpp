#include "workbench/commands/varmodel/selected_lag.h"

#include <cstdio>
#include <sstream>

#include "workbench/commands/varmodel/usable_lag.h"
#include "workbench/edge/texts.h"

namespace workbench::varmodel {

std::vector<std::string> tracedWarnings(const FinishedRun& run) {
  constexpr std::string_view prefix = "Warning: ";
  std::vector<std::string> texts;
  std::istringstream lines(run.streams.err);
  for (std::string line; std::getline(lines, line);) {
    if (line.compare(0, prefix.size(), prefix) != 0) continue;
    line.erase(0, prefix.size());
    const auto dash = line.find(" - ");
    if (dash != std::string::npos && line.substr(0, dash).find("::") < dash &&
        line.substr(0, dash).find(' ') == std::string::npos) {
      line.erase(0, dash + 3);
    }
    texts.push_back(std::move(line));
  }
  return texts;
}

int selectedLag(const FinishedRun& run) {
  int selected = lagRange(run.record).most;
  for (const std::string& text : tracedWarnings(run)) {
    if (std::sscanf(text.c_str(), "The selected lag %d is below MAXLAG", &selected) == 1) break;
  }
  return selected;
}

std::string whyThisLag(const FinishedRun& run) {
  std::string criteria;
  for (const std::string& text : tracedWarnings(run)) {
    if (text.starts_with("The criteria disagree")) return run.input.language.translate(text);
  }
  for (const std::string& name : run.record.requestedLists.at("MODEL LAG")) {
    criteria += (criteria.empty() ? "" : ", ") + name;
  }
  const LagRange range = lagRange(run.record);
  return tr("Lag ^1 was chosen: it has the smallest ^2 of the lags ^3 to ^4.", selectedLag(run), criteria, range.least,
            range.most);
}

}  // namespace workbench::varmodel
