// The estimation engine as the measurements run it.

#pragma once

#include <iostream>
#include <optional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "procedures/varmodel/algo/var_algo.h"
#include "workbench/edge/session.h"

namespace bench {

using Series = std::vector<std::vector<double>>;

// One engine with its settings; `run` is what is measured. The trace goes nowhere.
class Engine {
 public:
  Engine(Series series, std::int32_t maxLag, Series exogenous = {}) {
    settings_.endogenousSeries = std::move(series);
    settings_.exogenousSeries = std::move(exogenous);
    settings_.minLag = 1;
    settings_.maxLag = maxLag;
    settings_.useBic = true;
  }

  std::int32_t run() {
    algo_.emplace(settings_, results_);
    results_.clear();
    std::streambuf* previous = std::cerr.rdbuf(trace_.rdbuf());
    const std::int32_t status = algo_->start();
    std::cerr.rdbuf(previous);
    return status;
  }

  const varmodel::VARAlgo& algo() const { return *algo_; }
  const std::vector<varmodel::EquationResult>& results() const { return results_; }
  std::vector<std::string> messages() const {
    std::vector<std::string> texts;
    for (const workbench::Message& message : session_.messages) texts.push_back(message.text);
    return texts;
  }

 private:
  workbench::Session session_;
  workbench::SessionScope scope_{session_};
  std::ostringstream trace_;
  varmodel::VARInputSettings settings_{nullptr, nullptr, nullptr};
  std::vector<varmodel::EquationResult> results_;
  std::optional<varmodel::VARAlgo> algo_;
};

}  // namespace bench
