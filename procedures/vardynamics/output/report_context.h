// What tables, charts and sentences are made from.

#pragma once

#include <string>
#include <vector>

#include "procedures/vardynamics/analysis/analysis.h"
#include "procedures/vardynamics/output/texts.h"
#include "procedures/vardynamics/syntax/observations.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

struct ReportContext {
  const Settings& settings;
  const Observations& observations;
  const Analysis& analysis;
  const Texts& texts;

  const std::vector<std::string>& names() const { return settings.model.endogenous.names; }
  // What the largest confidence level leaves: 0.05.
  double testLevel() const;
  bool rejects(double p) const { return p < testLevel(); }
  // "p = 0.14": of a test that rejects it stands below the level, of another one not.
  std::string probability(double p) const { return texts.probability(p, testLevel()); }
  // What a column or an axis of periods is called.
  std::string periodLabel() const { return observations.dated ? texts.localize("Date") : texts.localize("Row"); }
  std::string levelText() const;  // of the tests: "5 %"
  double largestRoot() const { return analysis.roots.empty() ? 0.0 : analysis.roots.front().modulus; }
  // From here on tests and limits are less reliable.
  bool hasRootNearOne() const { return largestRoot() >= 0.97; }
};

using Sentences = std::vector<std::string>;

}  // namespace vardynamics
