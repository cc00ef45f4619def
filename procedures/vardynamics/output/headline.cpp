#include "procedures/vardynamics/output/impulse_sentences.h"
#include "procedures/vardynamics/output/sentences.h"

#include <string>
#include <utility>

namespace vardynamics {
namespace {

class Headline {
 public:
  explicit Headline(const ReportContext& context) : context_(context) {}

  void addAll(Sentences (*make)(const ReportContext&)) {
    for (std::string& sentence : make(context_)) sentences_.push_back(std::move(sentence));
  }
  // The first sentence of a kind is its verdict.
  void addVerdict(bool wanted, Sentences (*make)(const ReportContext&)) {
    if (!wanted) return;
    Sentences made = make(context_);
    if (!made.empty()) sentences_.push_back(std::move(made.front()));
  }
  void add(std::string sentence) { sentences_.push_back(std::move(sentence)); }
  Sentences take() { return std::move(sentences_); }

 private:
  const ReportContext& context_;
  Sentences sentences_;
};

}  // namespace

Sentences headline(const ReportContext& context) {
  const Analysis& analysis = context.analysis;
  const bool tested = analysis.tests.has_value();
  Headline headline(context);
  headline.addAll(sampleSentences);
  headline.addVerdict(true, lagSentences);
  headline.addVerdict(context.settings.stability, stabilitySentences);
  headline.addVerdict(tested && analysis.tests->portmanteau, portmanteauSentences);
  headline.addVerdict(tested && analysis.tests->lagrange, lagrangeSentences);
  headline.addVerdict(tested && analysis.tests->arch, archSentences);
  headline.addVerdict(tested && analysis.tests->normality, normalitySentences);
  headline.addVerdict(analysis.causality && analysis.causality->granger, grangerSentences);
  if (analysis.forecast) headline.addAll(forecastSentences);
  headline.addVerdict(analysis.forecast && analysis.forecast->condition, conditionSentences);
  if (!analysis.impulse.empty()) headline.addAll(impulseSentences);
  if (analysis.decomposition && analysis.decomposition->orthogonal) headline.addAll(varianceSentences);
  if (analysis.backtest) headline.addAll(backtestSentences);
  if (tested || analysis.causality || analysis.backtest) {
    headline.add(context.texts.localize("Verdicts are taken at the level of ^1.", {context.levelText()}));
  }
  return headline.take();
}

}  // namespace vardynamics
