// Under which name and title the command reports to the user.

#pragma once

#include "procedures/common/command_identity.h"

namespace vardynamics {

inline constexpr procedures::CommandIdentity kIdentity{"VARDYNAMICS", "VAR Dynamics"};

}  // namespace vardynamics
