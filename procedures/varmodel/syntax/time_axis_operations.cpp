// The operations of the handlers on the time axis; the work is done in common/.

#include <iostream>

#include "procedures/common/date_labels.h"
#include "procedures/common/predict_request.h"
#include "procedures/varmodel/syntax/operation_names.h"
#include "procedures/varmodel/syntax/subcommands.h"

namespace varmodel {

bool VARSubCommands::getPredictThruFromTrendsInfo() {
  const auto fetch = [this](std::span<const std::int32_t> indexes, SeriesMatrix& matrix) {
    fetchDataFromActiveDataSet({indexes.begin(), indexes.end()}, matrix);
    return lastFetch_;
  };
  return procedures::readPredictRequest(kOperations, *settings_.dataSource, fetch, settings_.timeAxis);
}

void VARSubCommands::generateHistoricalDateLabels() {
  procedures::generateHistoricalLabels(kOperations, *settings_.dataSource, settings_.timeAxis);
}

bool VARSubCommands::generateForecastDatesUsingTfo() {
  TimeAxis& axis = settings_.timeAxis;
  procedures::generateForecastLabels(kOperations, *settings_.dataSource, axis.observedRows - 1, axis);
  generateHistoricalDateLabels();
  std::cout << "Generated " << axis.historicalLabels.size() << " historical date labels\n";
  return true;
}

void VARSubCommands::alignTimeAxis() {
  TimeAxis& axis = settings_.timeAxis;
  procedures::followKeptCases(kOperations, *settings_.dataSource, lastFetch_.keptCaseOffsets, axis);
  if (!axis.heldWarning.empty()) settings_.parserMessage.GenericWarning(axis.heldWarning);
}

}  // namespace varmodel
