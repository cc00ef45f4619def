// Under which names the handlers trace their work on the active dataset.

#pragma once

#include "procedures/common/operation_names.h"

namespace varmodel {

inline constexpr procedures::OperationNames kOperations = {
    .className = "VARSubCommands",
    .fetch = "fetchDataFromActiveDataSet",
    .predictRequest = "getPredictThruFromTrendsInfo",
    .historicalLabels = "generateHistoricalDateLabels",
    .forecastLabels = "generateForecastDatesUsingTfo",
};

}  // namespace varmodel
