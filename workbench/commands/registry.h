// The commands that the program knows.

#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "workbench/commands/common/command.h"
#include "workbench/commands/common/composer.h"

namespace workbench {

// In the order registered.
const std::vector<std::unique_ptr<Command>>& commands();

// Adds a further one; its name must be new.
void registerCommand(std::unique_ptr<Command> command);

// The program's subcommands that compose commands: `fit`, then those of single commands.
std::vector<std::unique_ptr<Composer>> composers();

// The one whose name a command text begins with, letters of either case. Throws UsageError with place and remedy when
// there is none.
const Command& commandOf(std::string_view text);

}  // namespace workbench
