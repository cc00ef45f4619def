#include "procedures/common/fetch.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iostream>

namespace procedures {
namespace {

bool isMissing(double value) {
  return value == kSystemMissing || std::isnan(value);
}

bool appendCase(std::span<const double> values, CaseDeletion deletion, SeriesMatrix& matrix) {
  if (values.size() > matrix.size()) matrix.resize(values.size());
  const bool drops = deletion == CaseDeletion::listwise;
  if (drops && std::any_of(values.begin(), values.end(), isMissing)) return false;
  for (std::size_t j = 0; j < values.size(); ++j) matrix[j].push_back(values[j]);
  return true;
}

// The values of a record that carries any; a null pointer otherwise.
std::span<const double> valuesOf(const MCCommon_940::Record* record) {
  if (record == nullptr || record->GetAll() == nullptr) return {};
  return {record->GetAll(), static_cast<std::uint32_t>(record->Size())};
}

void readCases(ACAProcDataSourceIter& cases, CaseDeletion deletion, SeriesMatrix& matrix, FetchOutcome& outcome) {
  while (cases.HasMore()) {
    const std::span<const double> values = valuesOf(cases.Next());
    if (values.data() == nullptr) continue;
    outcome.succeeded = true;
    if (appendCase(values, deletion, matrix)) outcome.keptCaseOffsets.push_back(outcome.deliveredCases);
    ++outcome.deliveredCases;
  }
}

void readThroughChain(const ChainBuilder& buildChain, CaseDeletion deletion, SeriesMatrix& matrix,
                      FetchOutcome& outcome) {
  DataAccessChain chain;
  AlgoDataAccess* access = buildChain(chain);
  if (access != nullptr) readCases(access->iterator, deletion, matrix, outcome);
}

}  // namespace

FetchOutcome fetchSeries(const OperationNames& names, std::size_t variableCount, const ChainBuilder& buildChain,
                         SeriesMatrix& matrix, CaseDeletion deletion) {
  const std::string lead = names.lead(names.fetch);
  std::cout << lead << "Starting data fetch for " << variableCount << " variables\n";
  FetchOutcome outcome;
  try {
    readThroughChain(buildChain, deletion, matrix, outcome);
  } catch (const std::exception& error) {
    std::cerr << names.fetch << ": Standard exception: " << error.what() << '\n';
    outcome.succeeded = false;
  } catch (...) {
    std::cerr << names.fetch << ": Unknown exception occurred.\n";
    outcome.succeeded = false;
  }
  std::cout << lead << "Completed with status: " << (outcome.succeeded ? "SUCCESS" : "FAILURE") << '\n';
  return outcome;
}

}  // namespace procedures
