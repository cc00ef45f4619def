// Manual pages, in the language of man(7).

#pragma once

#include <string>

#include "workbench/manual/option_table.h"

namespace workbench {

// varmodel.1: what the program is, its subcommands, exit codes.
std::string programPage(const CommandEntry& program, const std::string& version);

// varmodel-NAME.1: all options of a subcommand, group by group.
std::string subcommandPage(const CommandEntry& program, const CommandEntry& subcommand, const std::string& version);

}  // namespace workbench
