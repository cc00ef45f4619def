// The host objects through which one pass over the active dataset is read.

#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>

#include "host/case_input.h"

namespace procedures {

// The reader's way to the case iterator, which stays the chain's.
class AlgoDataAccess {
 public:
  explicit AlgoDataAccess(ACAProcDataSourceIter& caseIterator) : iterator(caseIterator) {}
  AlgoDataAccess(const AlgoDataAccess&) = delete;
  AlgoDataAccess& operator=(const AlgoDataAccess&) = delete;
  virtual ~AlgoDataAccess() = default;

  ACAProcDataSourceIter& iterator;
};

// Each member refers to the one before it; declared in order of creation, so that they are released in reverse.
struct DataAccessChain {
  std::unique_ptr<ACAVarValidSpecs> variables;
  std::unique_ptr<ACAInputAdapter> adapter;
  std::unique_ptr<ACAProcDataSourceIter> iterator;
  std::unique_ptr<AlgoDataAccess> access;
  std::size_t columnCount = 0;  // of the dataset
};

// What each variable is registered with; only one of the three ever varies.
struct RegistrationFlags {
  bool registerAsAnalysis = true;
  bool excludeUserMissing = true;
  bool always = true;
};

// Completes the chain over the variables with these dictionary indexes and returns its access object; a chain that has
// one already is left as it is. Indexes that are not columns of the dataset are skipped. Null when there is no dataset;
// host exceptions pass through.
AlgoDataAccess* buildDataAccessChain(DataAccessChain& chain, std::span<const std::int32_t> indexes,
                                     ProcedureDataSource& dataSource, const RegistrationFlags& flags);

}  // namespace procedures
