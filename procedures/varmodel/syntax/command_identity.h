// Under which name and title the command reports to the user.

#pragma once

#include "procedures/common/command_identity.h"

namespace varmodel {

inline constexpr procedures::CommandIdentity kIdentity = {"VARMODEL", "Vector Autoregressive Models"};

}  // namespace varmodel
