// Sentences about unit roots of the series: one a series, by both tests.

#include <string>

#include "engine/diagnostics/unit_root_tests.h"
#include "procedures/common/number_text.h"
#include "procedures/vardynamics/data/user_error.h"
#include "procedures/vardynamics/output/sentences.h"

namespace vardynamics {
namespace {

using engine::AugmentedDickeyFuller;
using engine::Kpss;

// The table of KPSS ends, and so do its verdicts.
enum class Verdict { rejects, accepts, beyondTable };

Verdict verdictOf(const ReportContext& context, const Kpss& kpss) {
  const double level = 1.0 - context.settings.level() / 100.0;
  if (kpss.pValue == Kpss::kSmallestP) return level < kpss.pValue ? Verdict::beyondTable : Verdict::rejects;
  if (!context.rejects(kpss.pValue)) return Verdict::accepts;
  return kpss.pValue == Kpss::kLargestP ? Verdict::beyondTable : Verdict::rejects;
}

std::string probabilityOf(const ReportContext& context, const Kpss& kpss) {
  const auto end = [&](const char* relation) {
    return std::string("p ") + relation + " " + context.texts.number(procedures::shortestNumber(kpss.pValue));
  };
  if (kpss.pValue == Kpss::kSmallestP) return end("\u2264");
  return kpss.pValue == Kpss::kLargestP ? end("\u2265") : context.probability(kpss.pValue);
}

// What both tests find, with markers for the series, the terms and the two p-values.
std::string findingOf(const Texts& texts, bool rejectsRoot, Verdict stationarity) {
  if (stationarity == Verdict::beyondTable) {
    return rejectsRoot
               ? texts.localize("ADF rejects a unit root of ^1 around ^2 (^3); KPSS has no verdict at this level (^4).")
               : texts.localize(
                     "ADF does not reject a unit root of ^1 around ^2 (^3); KPSS has no verdict at this level (^4).");
  }
  if (rejectsRoot && stationarity == Verdict::accepts) {
    return texts.localize(
        "^1 looks stationary around ^2: ADF rejects a unit root (^3), KPSS does not reject stationarity (^4).");
  }
  if (rejectsRoot) {
    return texts.localize(
        "The tests disagree about ^1: ADF rejects a unit root (^3), KPSS rejects stationarity around ^2 (^4).");
  }
  if (stationarity == Verdict::rejects) {
    return texts.localize(
        "^1 looks as if it had a unit root: ADF does not reject one (^3), KPSS rejects stationarity around ^2 (^4).");
  }
  return texts.localize(
      "^1 may have a unit root or be stationary around ^2: ADF does not reject the one (^3), KPSS not the other (^4).");
}

std::string sentenceOf(const ReportContext& context, const std::string& name, const UnitRootTests& tests) {
  const Texts& texts = context.texts;
  const bool trend = tests.terms == engine::UnitRootTerms::constantAndTrend;
  const std::string terms = trend ? texts.localize("a trend") : texts.localize("a constant");
  if (!tests.dickeyFuller || !tests.kpss) {
    return texts.localize(
        "^1 allows no unit-root tests around ^2: it is too short, or its own past explains it without error.",
        {name, terms});
  }
  const double p = tests.dickeyFuller->pValue;
  return filled(findingOf(texts, context.rejects(p), verdictOf(context, *tests.kpss)),
                {name, terms, context.probability(p), probabilityOf(context, *tests.kpss)});
}

}  // namespace

Sentences unitRootSentences(const ReportContext& context) {
  const std::size_t terms = context.settings.model.deterministic == Deterministic::trend ? 1 : 0;
  const auto& series = context.analysis.tests->unitRoots;
  Sentences sentences;
  for (std::size_t i = 0; i < series.size(); ++i) {
    sentences.push_back(sentenceOf(context, context.names()[i], series[i][terms]));
  }
  sentences.push_back(context.texts.localize(
      "ADF: a small Sig. speaks against a unit root. KPSS: a small Sig. speaks against stationarity; its table ends at "
      "0.01 (or less) and 0.1 (or more)."));
  return sentences;
}

}  // namespace vardynamics
