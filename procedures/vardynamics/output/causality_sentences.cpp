// Sentences about what leads what.

#include <string>
#include <vector>

#include "procedures/vardynamics/output/sentences.h"

namespace vardynamics {
namespace {

// The effects of one cause, each with its p-value; those that the test finds.
std::vector<std::string> effectsOf(const ReportContext& context, std::size_t cause) {
  const auto& tests = context.analysis.causality->granger->pairs[cause];
  std::vector<std::string> effects;
  for (std::size_t effect = 0; effect < tests.size(); ++effect) {
    if (!tests[effect] || !context.rejects(tests[effect]->pValue)) continue;
    effects.push_back(context.names()[effect] + " (" + context.probability(tests[effect]->pValue) + ")");
  }
  return effects;
}

std::string leadText(const ReportContext& context) {
  const Texts& texts = context.texts;
  std::string text;
  for (std::size_t cause = 0; cause < context.names().size(); ++cause) {
    const std::vector<std::string> effects = effectsOf(context, cause);
    if (effects.empty()) continue;
    text += (text.empty() ? "" : " ") + texts.localize("^1 leads ^2.", {context.names()[cause], texts.list(effects)});
  }
  return text.empty() ? texts.localize("No series leads another (Granger causality).") : text;
}

}  // namespace

Sentences grangerSentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const Causality& causality = *context.analysis.causality;
  Sentences sentences{leadText(context)};
  if (causality.fittedLags > causality.testedLags) {
    sentences.push_back(texts.localize("Fitted with ^1 lags, of which the first ^2 are tested (Toda & Yamamoto 1995).",
                                       {std::to_string(causality.fittedLags), std::to_string(causality.testedLags)}));
  } else if (context.hasRootNearOne()) {
    sentences.push_back(
        texts.localize("With a root near one these tests are unreliable: AUGMENT=1 gives tests that hold "
                       "for series with a unit root (Toda & Yamamoto 1995)."));
  }
  if (context.names().size() > 2) {
    sentences.push_back(
        texts.localize("With more than two series the test of a pair is about direct causality, one period ahead."));
  }
  return sentences;
}

Sentences instantaneousSentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const auto& tests = context.analysis.causality->instantaneous;
  std::vector<std::string> correlated;
  for (std::size_t i = 0; i < tests.size(); ++i) {
    if (tests[i] && context.rejects(tests[i]->pValue)) correlated.push_back(context.names()[i]);
  }
  if (correlated.empty()) {
    return {texts.localize("No series' shocks are correlated with those of the others in the same period.")};
  }
  return {texts.localize("Shocks that are correlated with those of the others in the same period: ^1.",
                         {texts.list(correlated)})};
}

}  // namespace vardynamics
