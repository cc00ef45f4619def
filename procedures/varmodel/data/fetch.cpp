#include "procedures/varmodel/data/fetch.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iostream>

#include "procedures/varmodel/data/data_access_chain.h"

namespace varmodel {
namespace {

bool isMissing(double value) {
  return value == kSystemMissing || std::isnan(value);
}

bool appendIfComplete(std::span<const double> values, SeriesMatrix& matrix) {
  if (values.size() > matrix.size()) matrix.resize(values.size());
  if (std::any_of(values.begin(), values.end(), isMissing)) return false;
  for (std::size_t j = 0; j < values.size(); ++j) matrix[j].push_back(values[j]);
  return true;
}

// The values of a record that carries any; a null pointer otherwise.
std::span<const double> valuesOf(const MCCommon_940::Record* record) {
  if (record == nullptr || record->GetAll() == nullptr) return {};
  return {record->GetAll(), static_cast<std::uint32_t>(record->Size())};
}

void readCases(ACAProcDataSourceIter& cases, SeriesMatrix& matrix, FetchOutcome& outcome) {
  for (; cases.HasMore(); ++outcome.deliveredCases) {
    const std::span<const double> values = valuesOf(cases.Next());
    if (values.data() == nullptr) continue;
    outcome.succeeded = true;
    if (appendIfComplete(values, matrix)) outcome.keptCaseOffsets.push_back(outcome.deliveredCases);
  }
}

void readThroughChain(ProcedureDataSource& dataSource, std::span<const std::int32_t> indexes, bool excludeUserMissing,
                      SeriesMatrix& matrix, FetchOutcome& outcome) {
  DataAccessChain chain;
  AlgoDataAccess* access = buildDataAccessChain(chain, indexes, dataSource, excludeUserMissing);
  if (access != nullptr) readCases(access->iterator, matrix, outcome);
}

}  // namespace

FetchOutcome fetchSeries(ProcedureDataSource& dataSource, std::span<const std::int32_t> indexes,
                         const std::string& userMissing, SeriesMatrix& matrix) {
  std::cout << "VARSubCommands::fetchDataFromActiveDataSet - Starting data fetch for " << indexes.size()
            << " variables\n";
  FetchOutcome outcome;
  try {
    readThroughChain(dataSource, indexes, userMissing != "INCLUDE", matrix, outcome);
  } catch (const std::exception& error) {
    std::cerr << "fetchDataFromActiveDataSet: Standard exception: " << error.what() << '\n';
    outcome.succeeded = false;
  } catch (...) {
    std::cerr << "fetchDataFromActiveDataSet: Unknown exception occurred.\n";
    outcome.succeeded = false;
  }
  std::cout << "VARSubCommands::fetchDataFromActiveDataSet - Completed with status: "
            << (outcome.succeeded ? "SUCCESS" : "FAILURE") << '\n';
  return outcome;
}

}  // namespace varmodel
