// What is wrong with a command line, and what to write instead.

#pragma once

#include <CLI/CLI.hpp>
#include <span>
#include <string>

#include "workbench/base/notice.h"

namespace workbench {

// In the language of the program; `words` are those behind its name.
Notice usageMessage(const CLI::App& program, const CLI::ParseError& error, std::span<const std::string> words);

}  // namespace workbench
