// What keeps the cases from being analysed, told to the user.

#pragma once

#include <cstddef>

#include "procedures/vardynamics/data/calendar.h"
#include "procedures/vardynamics/data/horizon.h"
#include "procedures/vardynamics/data/sample.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// Each throws the UserError of one fault.
[[noreturn]] void refuse(const SampleFault& fault, const ModelSettings& model, const Calendar& calendar);
[[noreturn]] void refuse(const MissingFutureValue& missing, std::size_t horizon, const Sample& sample,
                         const ModelSettings& model, const Calendar& calendar);
// No value of an endogenous series is held within the horizon.
[[noreturn]] void refuseNoCondition(const Sample& sample, std::size_t horizon, const Calendar& calendar);

}  // namespace vardynamics
