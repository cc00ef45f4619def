// Checks of options' values whose refusals name the remedy.

#pragma once

#include <CLI/CLI.hpp>
#include <string>
#include <vector>

namespace workbench {

// One of these words, letters of either case; kept as it stands here.
CLI::Validator keywordOf(std::vector<std::string> words);

// A confidence level above 1: below, a share is meant where a percentage is asked for.
CLI::Validator percentage();

// A whole number of at least 1; the remedy says how to ask for none.
CLI::Validator atLeastOne(std::string remedy);

}  // namespace workbench
