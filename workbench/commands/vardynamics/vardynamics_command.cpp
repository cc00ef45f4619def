#include "workbench/commands/vardynamics/vardynamics_command.h"

#include <algorithm>

#include "workbench/commands/vardynamics/analyze_composer.h"

namespace workbench {

bool VardynamicsCommand::includesUserMissing(const CallRecord& parsed) const {
  const auto found = parsed.requestedLists.find("MISSING USERMISSING");
  return found != parsed.requestedLists.end() && std::ranges::count(found->second, "INCLUDE") > 0;
}

std::unique_ptr<Composer> VardynamicsCommand::composer() const {
  return std::make_unique<vardynamics::AnalyzeComposer>();
}

}  // namespace workbench
