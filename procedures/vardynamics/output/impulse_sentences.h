// What is said of responses, each sentence where it belongs.

#pragma once

#include <cstddef>
#include <string>

#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

// How the draws of the run were made; whatever is read from them says so. Needs draws.
Sentences drawSentences(const ReportContext& context);

// Which shocks move which series, by the first type and by exogenous series; nothing without bands.
Sentences impulseSentences(const ReportContext& context);

// Of all shocks of a type: what they are, and how their bands were made.
Sentences responseNotes(const ReportContext& context, const ShockResponses& set);
// Of one shock.
std::string shockSizeSentence(const ReportContext& context, const ShockResponses& set, std::size_t shock);
Sentences outsideSentences(const ReportContext& context, const ShockResponses& set, std::size_t shock);

}  // namespace vardynamics
