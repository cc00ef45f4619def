// The operations of the handlers on the time axis; the work is done in data/.

#include <iostream>

#include "procedures/varmodel/data/date_labels.h"
#include "procedures/varmodel/data/predict_request.h"
#include "procedures/varmodel/syntax/subcommands.h"

namespace varmodel {

bool VARSubCommands::getPredictThruFromTrendsInfo() {
  return readPredictRequest(*settings_.dataSource, settings_.userMissing, settings_.timeAxis);
}

void VARSubCommands::generateHistoricalDateLabels() {
  generateHistoricalLabels(*settings_.dataSource, settings_.timeAxis);
}

bool VARSubCommands::generateForecastDatesUsingTfo() {
  TimeAxis& axis = settings_.timeAxis;
  generateForecastLabels(*settings_.dataSource, axis.observedRows - 1, axis);
  generateHistoricalDateLabels();
  std::cout << "Generated " << axis.historicalLabels.size() << " historical date labels\n";
  return true;
}

void VARSubCommands::alignTimeAxis() {
  TimeAxis& axis = settings_.timeAxis;
  followKeptCases(*settings_.dataSource, lastFetch_.keptCaseOffsets, axis);
  if (!axis.heldWarning.empty()) settings_.parserMessage.GenericWarning(axis.heldWarning);
}

}  // namespace varmodel
