// One run of the estimation engine on given series, with what it told the user and what it traced.

#pragma once

#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "procedures/varmodel/algo/var_algo.h"
#include "workbench/edge/session.h"

namespace varmodel {

struct EngineRun {
  EngineRun(std::vector<std::vector<double>> endogenous, std::int32_t minLag, std::int32_t maxLag) {
    for (std::size_t i = 1; i <= endogenous.size(); ++i) settings.endogenousNames.push_back("y" + std::to_string(i));
    settings.endogenousSeries = std::move(endogenous);
    settings.minLag = minLag;
    settings.maxLag = maxLag;
  }

  EngineRun& predict(std::size_t horizon) {
    settings.timeAxis.predictRequested = true;
    settings.timeAxis.forecastLabels.resize(horizon);
    return *this;
  }

  std::int32_t start() {
    std::ostringstream traced;
    std::streambuf* const previous = std::cerr.rdbuf(traced.rdbuf());
    const std::int32_t status = algo.start();
    std::cerr.rdbuf(previous);
    trace = traced.str();
    return status;
  }

  // "error: TEXT" or "warning: TEXT", in order.
  std::vector<std::string> messages() const {
    std::vector<std::string> texts;
    for (const workbench::Message& message : session.messages) {
      texts.push_back((message.kind == workbench::Message::Kind::error ? "error: " : "warning: ") + message.text);
    }
    return texts;
  }

  workbench::Session session;
  workbench::SessionScope scope{session};
  VARInputSettings settings{nullptr, nullptr, nullptr};
  std::vector<EquationResult> results;
  VARAlgo algo{settings, results};
  std::string trace;
};

// The columns of examples/us_macro_quarterly.csv by name: 203 quarters.
const std::map<std::string, std::vector<double>>& macroSeries();

}  // namespace varmodel
