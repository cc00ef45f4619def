// What tables, sentences and charts of a back-test share.

#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "procedures/vardynamics/output/report_context.h"

namespace vardynamics {

std::string rivalName(const ReportContext& context, Rival rival);

// Every horizon where these are few, else some of them up to the last.
std::vector<std::size_t> backtestHorizons(const ReportContext& context);

// The test that decides between the model and a rival: Clark and West's where the model nests it.
const std::optional<engine::ForecastComparison>& decisiveTest(const RivalScore& score);

}  // namespace vardynamics
