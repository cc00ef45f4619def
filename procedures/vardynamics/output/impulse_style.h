// How the shocks of each type are called.

#pragma once

#include <cstddef>
#include <string>

#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

// English, the same in every language: "Orthogonal".
std::string shockTypeId(engine::ShockType type);
// "Responses to Orthogonal Shock": title of the table of one shock.
std::string shockTitle(const Texts& texts, engine::ShockType type);
// "Responses to Orthogonal Shocks of One Standard Deviation"
std::string responsesTitle(const Texts& texts, engine::ShockType type, bool unit);

// Whether the responses of a series are summed, and how its name then stands over them.
bool isSummed(const ReportContext& context, std::size_t series);
std::string responseName(const ReportContext& context, std::size_t series);

// The series that a shock is to, and those in the order behind orthogonal shocks.
const std::string& shockName(const ReportContext& context, engine::ShockType type, std::size_t shock);
std::vector<std::string> orderedNames(const ReportContext& context);

}  // namespace vardynamics
