// Sentences about the back-test: how good, how sure, and better than what.

#include <algorithm>
#include <string>
#include <utility>

#include "procedures/vardynamics/output/backtest_parts.h"
#include "procedures/vardynamics/output/sentences.h"

namespace vardynamics {
namespace {

std::string count(std::size_t number) {
  return std::to_string(number);
}

// A rival that sentences speak of.
std::string rivalText(const ReportContext& context, Rival rival) {
  const Texts& texts = context.texts;
  if (rival == Rival::noChange) return texts.localize("no change");
  return texts.localize("an ^1 of the series alone", {rivalName(context, rival)});
}

// The horizons at which a test decides, with their p-values: "1 (p = 0.01)".
struct Verdicts {
  std::vector<std::string> better = {};
  std::vector<std::string> worse = {};
  std::optional<double> smallest = {};  // p-value of those that decide nothing
  bool tested = false;
};

// A nested rival may be beaten in theory and yet have smaller errors here: that is no better forecast.
Verdicts judge(const ReportContext& context, const RivalScores& scores) {
  Verdicts verdicts;
  for (const std::size_t h : backtestHorizons(context)) {
    const RivalScore& score = scores.horizons[h - 1];
    const auto& test = decisiveTest(score);
    if (!test) continue;
    verdicts.tested = true;
    const bool mayDecide = !score.clarkWest || score.skill > 0.0;
    if (!mayDecide) continue;
    verdicts.smallest = std::min(test->pValue, verdicts.smallest.value_or(1.0));
    if (!context.rejects(test->pValue)) continue;
    auto& list = test->statistic > 0.0 ? verdicts.better : verdicts.worse;
    list.push_back(count(h) + " (" + context.probability(test->pValue) + ")");
  }
  return verdicts;
}

std::string undecided(const ReportContext& context, const RivalScores& scores, const Verdicts& verdicts,
                      const std::string& rival) {
  const Texts& texts = context.texts;
  if (!verdicts.smallest) return texts.localize("not better than ^1 at any horizon", {rival});
  const std::string p = context.probability(*verdicts.smallest);
  return scores.rival == Rival::autoregression
             ? texts.localize("not better than ^1 at any horizon (^2 or more)", {rival, p})
             : texts.localize("neither better nor worse than ^1 at any horizon (^2 or more)", {rival, p});
}

// The clauses about one rival.
std::vector<std::string> verdictOn(const ReportContext& context, const RivalScores& scores) {
  const Texts& texts = context.texts;
  const std::string rival = rivalText(context, scores.rival);
  const Verdicts verdicts = judge(context, scores);
  if (!verdicts.tested) return {texts.localize("too few origins for a test against ^1", {rival})};
  std::vector<std::string> clauses;
  if (!verdicts.better.empty()) {
    clauses.push_back(texts.localize("better than ^1 at horizon ^2", {rival, texts.list(verdicts.better)}));
  }
  if (!verdicts.worse.empty()) {
    clauses.push_back(texts.localize("worse than ^1 at horizon ^2", {rival, texts.list(verdicts.worse)}));
  }
  if (clauses.empty()) clauses.push_back(undecided(context, scores, verdicts, rival));
  return clauses;
}

std::string originSentence(const ReportContext& context) {
  const Texts& texts = context.texts;
  const Backtest& backtest = *context.analysis.backtest;
  const std::string first = context.observations.label(backtest.forecasts.front().origin - 1);
  const std::string last = context.observations.label(backtest.forecasts.back().origin - 1);
  const std::string rows = count(backtest.forecasts.front().origin - context.analysis.model.fit.firstRow);
  const auto arguments = {count(backtest.origins()), first, last, rows};
  return context.settings.backtest->rolling
             ? texts.localize(
                   "Forecasts from ^1 origins, ^2 to ^3, each by the model fitted anew to the ^4 rows before; "
                   "the lag is that of the whole sample.",
                   arguments)
             : texts.localize(
                   "Forecasts from ^1 origins, ^2 to ^3, each by the model fitted anew to all rows before, at "
                   "first ^4; the lag is that of the whole sample.",
                   arguments);
}

}  // namespace

std::string rivalSentence(const ReportContext& context, std::size_t series) {
  std::string text;
  for (const RivalScores& rival : context.analysis.backtest->series[series].rivals) {
    if (rival.rival == Rival::seasonal) continue;
    for (const std::string& clause : verdictOn(context, rival)) text += (text.empty() ? "" : "; ") + clause;
  }
  return context.texts.localize("Back-test of ^1: ^2.", {context.names()[series], text});
}

Sentences backtestSentences(const ReportContext& context) {
  Sentences sentences;
  for (std::size_t i = 0; i < context.names().size(); ++i) sentences.push_back(rivalSentence(context, i));
  return sentences;
}

std::string coverageSentence(const ReportContext& context, std::size_t series) {
  const auto& scores = context.analysis.backtest->series[series].model;
  const std::string level = context.texts.percent(context.settings.level());
  const auto inside = [&](const ModelScore& score) { return count(score.inside.back()); };
  const std::string of = count(scores.front().errors.accuracy.count);
  if (scores.size() == 1) {
    return context.texts.localize("The ^1 limits held ^2 of ^3 times.", {level, inside(scores.front()), of});
  }
  return context.texts.localize("The ^1 limits held ^2 of ^3 times at horizon 1 and ^4 of ^3 at horizon ^5.",
                                {level, inside(scores.front()), of, inside(scores.back()), count(scores.size())});
}

Sentences backtestNotes(const ReportContext& context) {
  const Texts& texts = context.texts;
  Sentences notes{originSentence(context)};
  if (!context.settings.model.exogenous.names.empty()) {
    notes.push_back(texts.localize(
        "The exogenous series have their observed values, which a forecast made then would not have had."));
  }
  notes.push_back(texts.localize(
      "Errors are actual less forecast; Bias is their mean. MASE: MAE over the mean absolute change before the first "
      "origin, over a cycle where the dates have one. CRPS: of normal forecasts with these standard errors."));
  return notes;
}

}  // namespace vardynamics
