// One run of the estimation engine on given series, with what it told the user and what it traced.

#pragma once

#include <iostream>
#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "algo/var_algo.h"
#include "workbench/session/session.h"

namespace varmodel {

// Collects std::cerr while it lives.
class TraceCapture {
 public:
  TraceCapture() : previous_(std::cerr.rdbuf(text_.rdbuf())) {}
  TraceCapture(const TraceCapture&) = delete;
  TraceCapture& operator=(const TraceCapture&) = delete;
  ~TraceCapture() { std::cerr.rdbuf(previous_); }
  std::string text() const { return text_.str(); }

 private:
  std::ostringstream text_;
  std::streambuf* previous_;
};

struct EngineRun {
  EngineRun() = default;
  EngineRun(std::vector<std::vector<double>> endogenous, std::int32_t minLag, std::int32_t maxLag) {
    settings.endogenousSeries = std::move(endogenous);
    for (std::size_t i = 0; i < settings.endogenousSeries.size(); ++i) {
      settings.endogenousNames.push_back("y" + std::to_string(i + 1));
    }
    settings.minLag = minLag;
    settings.maxLag = maxLag;
  }

  EngineRun& predict(std::size_t horizon) {
    settings.timeAxis.predictRequested = true;
    settings.timeAxis.forecastLabels.resize(horizon);
    return *this;
  }

  std::int32_t start() {
    const TraceCapture capture;
    const std::int32_t status = algo.start();
    trace = capture.text();
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
