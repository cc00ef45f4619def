// The progress lines around a subcommand handler.

#pragma once

#include <iostream>

namespace varmodel {

struct HandlerTrace {
  const char* handler;
  const char* subcommand;
  const char* statusMark = ": ";
};

// Runs `work` between the handler's two progress lines and returns what it returned.
template <typename Work>
bool traced(const HandlerTrace& trace, Work work) {
  std::cout << "VARSubCommands::" << trace.handler << " - Starting " << trace.subcommand << " subcommand parsing\n";
  const bool success = work();
  std::cout << "VARSubCommands::" << trace.handler << " - Completed with status" << trace.statusMark
            << (success ? "SUCCESS" : "FAILURE") << '\n';
  return success;
}

}  // namespace varmodel
