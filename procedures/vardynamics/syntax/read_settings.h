// From the parse result to the settings record.

#pragma once

#include "host/command_parser.h"
#include "host/data_source.h"
#include "procedures/vardynamics/syntax/settings.h"

namespace vardynamics {

// Checks the session and reads every subcommand. Throws UserError for what a user must change; the host itself reports
// variables that cannot be analysed.
Settings readSettings(const CommandSpec& command, const CommandDescriptor& descriptor, ProcedureDataSource& dataSource);

}  // namespace vardynamics
