// Sentences about the sample, the lag order and the roots.

#include <algorithm>
#include <string>

#include "engine/regression/lag_selection.h"
#include "procedures/vardynamics/output/number_style.h"
#include "procedures/vardynamics/output/sentences.h"

namespace vardynamics {
namespace {

std::string criterionName(Criterion criterion) {
  return std::string(engine::criterionTable()[static_cast<std::size_t>(criterion)].name);
}

std::string count(std::size_t number) {
  return std::to_string(number);
}

}  // namespace

Sentences sampleSentences(const ReportContext& context) {
  const Observations& found = context.observations;
  const Sample& sample = found.sample;
  const Texts& texts = context.texts;
  const std::string& first = found.label(0);
  Sentences sentences{
      found.dated ? texts.localize("Sample: ^1 to ^2, ^3 rows.", {first, found.lastLabel(), count(sample.rows())})
                  : texts.localize("Sample: rows ^1 to ^2.", {first, found.lastLabel()})};
  if (sample.leftOutBefore + sample.leftOutAfter > 0) {
    sentences.front() += " " + texts.localize("Incomplete rows left out: ^1 before the sample, ^2 after it.",
                                              {count(sample.leftOutBefore), count(sample.leftOutAfter)});
  }
  if (context.settings.forecast && sample.ignoresEndogenous) {
    sentences.push_back(texts.localize(
        "Values of endogenous series after ^1 are left out of the forecast; CONDITIONAL=YES would hold them.",
        {found.lastLabel()}));
  }
  if (found.seasons.beyond > 0) {
    const unsigned last = found.seasons.components.back();
    sentences.push_back(texts.localize("Week ^1 counts as week ^2 among the seasons: ^3 periods.",
                                       {std::to_string(last + 1), std::to_string(last), count(found.seasons.beyond)}));
  }
  return sentences;
}

Sentences lagSentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const Model& model = context.analysis.model;
  const std::string lag = count(model.lag());
  if (!model.selection) return {texts.localize("Lag ^1 was given.", {lag})};
  const LagSelection& selection = *model.selection;
  const std::string name = criterionName(context.settings.model.criterion);
  Sentences sentences{texts.localize("Lag ^1 was chosen: it has the smallest ^2 of the lags ^3 to ^4.",
                                     {lag, name, std::to_string(selection.minLag), std::to_string(selection.maxLag)})};
  const std::int32_t byBic = selection.chosenBy(Criterion::bic);
  if (byBic < selection.chosenBy(Criterion::aic)) {
    sentences.push_back(
        texts.localize("BIC chooses fewer lags than AIC: ^1. Too few lags make limits spuriously tight (Kilian 2001; "
                       "Ivanov & Kilian 2005).",
                       {std::to_string(byBic)}));
  }
  return sentences;
}

Sentences stabilitySentences(const ReportContext& context) {
  const Texts& texts = context.texts;
  const auto& roots = context.analysis.roots;
  if (roots.empty()) return {texts.localize("The roots of the model could not be computed.")};
  const std::string largest = texts.number(modulusText(context.largestRoot()));
  const auto unstable = std::ranges::count_if(roots, [](const engine::Root& root) { return root.modulus >= 1.0; });
  Sentences sentences;
  if (unstable == 0) {
    sentences.push_back(texts.localize("The model is stable: its largest root has modulus ^1.", {largest}));
  } else {
    sentences.push_back(
        texts.localize("The model is not stable: roots on or outside the unit circle: ^1, the largest with modulus ^2.",
                       {std::to_string(unstable), largest}));
  }
  if (context.hasRootNearOne()) {
    sentences.push_back(texts.localize("With a root near one, tests and limits are less reliable than they say."));
  }
  return sentences;
}

}  // namespace vardynamics
