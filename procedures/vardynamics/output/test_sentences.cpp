// Sentences about the tests of residuals.

#include <string>
#include <vector>

#include "procedures/vardynamics/output/sentences.h"

namespace vardynamics {
namespace {

std::string count(std::size_t number) {
  return std::to_string(number);
}

}  // namespace

Sentences portmanteauSentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const LaggedChiSquared& portmanteau = *context.analysis.tests->portmanteau;
  const std::string lags = count(portmanteau.lags);
  const std::size_t needed = context.analysis.model.lag() + 1;
  if (portmanteau.lags < needed) {
    return {texts.localize("The portmanteau test needs more lags than the model has: give LAGS=^1 or more.",
                           {count(needed)})};
  }
  if (!portmanteau.test) {
    return {texts.localize("The portmanteau test up to lag ^1 needs more rows. Give fewer LAGS.", {lags})};
  }
  const std::string p = context.probability(portmanteau.test->pValue);
  Sentences sentences{
      context.rejects(portmanteau.test->pValue)
          ? texts.localize("Autocorrelation is left in the residuals up to lag ^1 (portmanteau test, ^2).", {lags, p})
          : texts.localize("No autocorrelation is left in the residuals up to lag ^1 (portmanteau test, ^2).",
                           {lags, p})};
  if (context.hasRootNearOne()) {
    sentences.push_back(
        texts.localize("With a root near one the portmanteau test rejects too often (Brüggemann, "
                       "Lütkepohl & Saikkonen 2006)."));
  }
  return sentences;
}

Sentences lagrangeSentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const SerialCorrelation& tests = *context.analysis.tests->lagrange;
  Sentences sentences;
  if (!tests.lags.empty()) {
    const engine::BreuschGodfrey& last = tests.lags.back();
    const std::string p = context.probability(last.rao.pValue);
    sentences.push_back(
        context.rejects(last.rao.pValue)
            ? texts.localize("The residuals are autocorrelated at lags 1 to ^1 (LM test, F form, ^2).",
                             {count(last.lags), p})
            : texts.localize("The residuals are not autocorrelated at lags 1 to ^1 (LM test, F form, ^2).",
                             {count(last.lags), p}));
  }
  if (tests.lags.size() < tests.askedLags) {
    sentences.push_back(
        texts.localize("The sample is too short for the LM test from lag ^1 on.", {count(tests.lags.size() + 1)}));
  }
  return sentences;
}

Sentences archSentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const LaggedChiSquared& joint = context.analysis.tests->arch->joint;
  const std::string lags = count(joint.lags);
  if (!joint.test) {
    return {texts.localize("The sample is too short for the joint ARCH test up to lag ^1. Give fewer LAGS.", {lags})};
  }
  const std::string p = context.probability(joint.test->pValue);
  if (context.rejects(joint.test->pValue)) {
    return {texts.localize("The variance of the residuals depends on past residuals (ARCH test up to lag ^1, ^2).",
                           {lags, p})};
  }
  return {texts.localize(
      "The variance of the residuals does not depend on past residuals (ARCH test up to lag ^1, ^2).", {lags, p})};
}

Sentences normalitySentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const auto& test = context.analysis.tests->normality->doornikHansen;
  if (!test) return {texts.localize("The sample is too short for the tests of normality.")};
  const std::string p = context.probability(test->pValue);
  return {
      context.rejects(test->pValue)
          ? texts.localize("The residuals are not normally distributed (Doornik-Hansen test, ^1).", {p})
          : texts.localize("The residuals do not contradict a normal distribution (Doornik-Hansen test, ^1).", {p})};
}

}  // namespace vardynamics
