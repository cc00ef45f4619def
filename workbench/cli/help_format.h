// The help of the program, no wider than a terminal.

#pragma once

#include <CLI/CLI.hpp>
#include <string>

namespace workbench {

class HelpFormat : public CLI::Formatter {
 public:
  std::string make_help(const CLI::App* app, std::string name, CLI::AppFormatMode mode) const override;
};

}  // namespace workbench
