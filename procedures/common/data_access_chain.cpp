#include "procedures/common/data_access_chain.h"

namespace procedures {
namespace {

void registerVariables(ACAVarValidSpecs& variables, std::span<const std::int32_t> indexes, std::int64_t columnCount,
                       const RegistrationFlags& flags) {
  for (const std::int32_t index : indexes) {
    if (index < 0 || index >= columnCount) continue;
    variables.AddVariable(index, false, flags.registerAsAnalysis, flags.excludeUserMissing, flags.always);
  }
}

}  // namespace

AlgoDataAccess* buildDataAccessChain(DataAccessChain& chain, std::span<const std::int32_t> indexes,
                                     ProcedureDataSource& dataSource, const RegistrationFlags& flags) {
  if (chain.access) return chain.access.get();
  const VEXA_DataSource* dataset = dataSource.GetDataSource();
  if (dataset == nullptr) return nullptr;
  chain.variables = std::make_unique<ACAVarValidSpecs>(true, true, true);
  chain.columnCount = dataset->ColumnCount();
  registerVariables(*chain.variables, indexes, static_cast<std::int64_t>(chain.columnCount), flags);
  chain.adapter = std::make_unique<ACAInputAdapter>(chain.variables.get(), dataSource);
  chain.iterator = std::make_unique<ACAProcDataSourceIter>(*chain.adapter, true);
  chain.access = std::make_unique<AlgoDataAccess>(*chain.iterator);
  return chain.access.get();
}

}  // namespace procedures
