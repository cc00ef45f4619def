#include "procedures/varmodel/syntax/input_settings.h"

#include <array>
#include <exception>
#include <iostream>
#include <stdexcept>

#include "procedures/common/trace.h"
#include "procedures/varmodel/syntax/command_identity.h"
#include "procedures/varmodel/syntax/subcommands.h"

namespace varmodel {
namespace {

struct NamedHandler {
  const char* name;
  bool (VARSubCommands::*run)();
};

constexpr std::array<NamedHandler, 8> kHandlers = {{
    {"get_Subcommand_Global", &VARSubCommands::get_Subcommand_Global},
    {"get_SubCommand_Missing", &VARSubCommands::get_SubCommand_Missing},
    {"get_SubCommand_Model", &VARSubCommands::get_SubCommand_Model},
    {"get_SubCommand_Method", &VARSubCommands::get_SubCommand_Method},
    {"get_SubCommand_ModelStatistics", &VARSubCommands::get_SubCommand_ModelStatistics},
    {"get_SubCommand_SeriesPlot", &VARSubCommands::get_SubCommand_SeriesPlot},
    {"get_SubCommand_Save", &VARSubCommands::get_SubCommand_Save},
    {"get_SubCommand_Auxiliary", &VARSubCommands::get_SubCommand_Auxiliary},
}};
constexpr int kHandlerCount = static_cast<int>(kHandlers.size());

void runHandlersInOrder(VARInputSettings& settings) {
  for (int index = 0; index < kHandlerCount; ++index) {
    if (settings.prepareInputSetting(index) == 0) continue;
    std::cerr << "VARInputSettings::start - ERROR: Failed at subcommand index: " << index << '\n';
    throw std::runtime_error("Error encountered while syntax parsing.");
  }
}

}  // namespace

VARInputSettings::VARInputSettings(CommandSpec* givenSpec, CommandDescriptor* givenDescriptor,
                                   ProcedureDataSource* givenDataSource)
    : commandSpec(givenSpec), commandDescriptor(givenDescriptor), dataSource(givenDataSource) {
  identify(parserMessage, kIdentity);
  std::cerr << "VARInputSettings::Constructor - Initializing input settings\n";
}

std::int32_t VARInputSettings::start() {
  std::cerr << "VARInputSettings::start - Beginning input settings preparation\n";
  try {
    runHandlersInOrder(*this);
    std::cerr << "VARInputSettings::start - All subcommands processed successfully\n"
              << "VARInputSettings::start - Completed successfully with status: SUCCESS\n";
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "VARInputSettings::start - EXCEPTION: Standard exception caught: " << procedures::OneLine{error.what()}
              << '\n';
  } catch (...) {
    std::cerr << "VARInputSettings::start - EXCEPTION: Unknown exception occurred\n";
  }
  std::cerr << "VARInputSettings::start - Completed with status: FAILURE\n";
  return 1;
}

std::int32_t VARInputSettings::prepareInputSetting(int index) {
  if (index == kHandlerCount) return 0;
  if (index < 0 || index > kHandlerCount) {
    std::cerr << "VARInputSettings::prepareInputSetting - ERROR: Unknown sub-command: " << index << '\n';
    return 1;
  }
  const NamedHandler& handler = kHandlers[static_cast<std::size_t>(index)];
  std::cerr << "VARInputSettings::prepareInputSetting - Calling " << handler.name << "()\n";
  VARSubCommands subcommands(*this);
  return (subcommands.*handler.run)() ? 0 : 1;
}

}  // namespace varmodel
