#include "procedures/common/fetch.h"

#include <algorithm>
#include <cmath>
#include <exception>
#include <iostream>
#include <stdexcept>
#include <string>

#include "procedures/common/trace.h"

namespace procedures {
namespace {

constexpr int kMostWithoutValues = 1000000;  // in a row

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

// The values of the next case. What carries none is passed over, but not for ever.
std::span<const double> nextCase(ACAProcDataSourceIter& cases) {
  for (int passedOver = 0; cases.HasMore(); ++passedOver) {
    if (passedOver > kMostWithoutValues) throw std::runtime_error("The host delivers records without values.");
    const std::span<const double> values = valuesOf(cases.Next());
    if (values.data() != nullptr) return values;
  }
  return {};
}

// A record of more values than the dataset has columns reaches beyond what the host owns.
void requireFitting(std::span<const double> values, std::size_t most) {
  if (values.size() <= most) return;
  throw std::runtime_error("The host delivers a record of " + std::to_string(values.size()) + " values where at most " +
                           std::to_string(most) + " are possible.");
}

void readCases(ACAProcDataSourceIter& cases, std::size_t mostValues, CaseDeletion deletion, SeriesMatrix& matrix,
               FetchOutcome& outcome) {
  for (;;) {
    const std::span<const double> values = nextCase(cases);
    if (values.data() == nullptr) return;
    requireFitting(values, mostValues);
    outcome.succeeded = true;
    if (appendCase(values, deletion, matrix)) outcome.keptCaseOffsets.push_back(outcome.deliveredCases);
    ++outcome.deliveredCases;
  }
}

void readThroughChain(std::size_t variableCount, const ChainBuilder& buildChain, CaseDeletion deletion,
                      SeriesMatrix& matrix, FetchOutcome& outcome) {
  DataAccessChain chain;
  AlgoDataAccess* access = buildChain(chain);
  if (access != nullptr)
    readCases(access->iterator, std::max(variableCount, chain.columnCount), deletion, matrix, outcome);
}

}  // namespace

FetchOutcome fetchSeries(const OperationNames& names, std::size_t variableCount, const ChainBuilder& buildChain,
                         SeriesMatrix& matrix, CaseDeletion deletion) {
  const std::string lead = names.lead(names.fetch);
  std::cout << lead << "Starting data fetch for " << variableCount << " variables\n";
  FetchOutcome outcome;
  try {
    readThroughChain(variableCount, buildChain, deletion, matrix, outcome);
  } catch (const std::exception& error) {
    std::cerr << names.fetch << ": Standard exception: " << OneLine{error.what()} << '\n';
    outcome.succeeded = false;
  } catch (...) {
    std::cerr << names.fetch << ": Unknown exception occurred.\n";
    outcome.succeeded = false;
  }
  std::cout << lead << "Completed with status: " << (outcome.succeeded ? "SUCCESS" : "FAILURE") << '\n';
  return outcome;
}

}  // namespace procedures
