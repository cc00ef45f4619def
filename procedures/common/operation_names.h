// Under which names a procedure's operations on the active dataset appear in its trace.

#pragma once

#include <string>

namespace procedures {

struct OperationNames {
  const char* className;
  const char* fetch;
  const char* predictRequest;
  const char* historicalLabels;
  const char* forecastLabels;

  // "CLASS::OPERATION - ", with which a progress line begins.
  std::string lead(const char* operation) const { return std::string(className) + "::" + operation + " - "; }
};

}  // namespace procedures
