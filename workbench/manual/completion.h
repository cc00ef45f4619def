// Completion scripts for shells: options, subcommands, keywords and file names.

#pragma once

#include <string>
#include <vector>

#include "workbench/manual/option_table.h"

namespace workbench {

struct Shell {
  const char* name;
  const char* file;  // below share/, where this shell looks for it
  std::string (*script)(const CommandEntry& program);
};

// bash, zsh and fish.
const std::vector<Shell>& shells();

std::string bashCompletion(const CommandEntry& program);
std::string zshCompletion(const CommandEntry& program);
std::string fishCompletion(const CommandEntry& program);

}  // namespace workbench
