// The module's only exported function.

#pragma once

#include "host/edge.h"

// Runs the submitted VARDYNAMICS command over the current dataset. Lets no exception out; the outcome reaches the host
// through messages, output and the saved file.
PROCEDURE_EXPORT void VARDYNAMICS();
