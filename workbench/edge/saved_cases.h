// Which cases of the active dataset those of a saved file are.

#pragma once

#include "workbench/edge/session.h"

namespace workbench {

// Puts the row number and the date variables of the session's kept cases before the columns: the last saved case is the
// last kept one. Does nothing without kept cases, or with fewer of them. Throws OutputError where the file holds a
// column of such a name.
void addCaseColumns(Dataset& saved, const CallInput& input);

}  // namespace workbench
