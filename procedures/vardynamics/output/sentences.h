// What the numbers say, in sentences that a reader may quote.

#pragma once

#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

Sentences sampleSentences(const ReportContext& context);
Sentences lagSentences(const ReportContext& context);
Sentences stabilitySentences(const ReportContext& context);
// Each of these is about a test that was asked for; what could not be computed is said with its reason.
Sentences portmanteauSentences(const ReportContext& context);
Sentences lagrangeSentences(const ReportContext& context);
Sentences archSentences(const ReportContext& context);
Sentences normalitySentences(const ReportContext& context);
Sentences unitRootSentences(const ReportContext& context);
Sentences grangerSentences(const ReportContext& context);
Sentences instantaneousSentences(const ReportContext& context);
// The last period of each series.
Sentences forecastSentences(const ReportContext& context);
Sentences conditionSentences(const ReportContext& context);
// One a series: what its own shocks and those of another have of its forecasts' variance, and of its change.
Sentences varianceSentences(const ReportContext& context);
Sentences historicalSentences(const ReportContext& context);
std::string orderSentence(const ReportContext& context);
// Whether the model beats its rivals; one a series, and the one of a series.
Sentences backtestSentences(const ReportContext& context);
std::string rivalSentence(const ReportContext& context, std::size_t series);
std::string coverageSentence(const ReportContext& context, std::size_t series);
// How the back-test was made.
Sentences backtestNotes(const ReportContext& context);

// The sentences that open the report: one of each kind that was asked for.
Sentences headline(const ReportContext& context);

}  // namespace vardynamics
