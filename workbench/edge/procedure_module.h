// Loading a procedure and calling it for a session.

#pragma once

#include <filesystem>
#include <string>

#include "workbench/edge/session.h"
#include "workbench/edge/shared_library.h"
#include "workbench/edge/stream_capture.h"

namespace workbench {

// A loaded procedure library; unloaded with the object.
class ProcedureModule {
 public:
  // Throws UsageError when the library cannot be loaded or lacks the entry.
  ProcedureModule(const std::filesystem::path& library, const std::string& entry);
  ProcedureModule(const ProcedureModule&) = delete;
  ProcedureModule& operator=(const ProcedureModule&) = delete;

  // Runs the procedure on the session's command and data; returns what it wrote to the standard streams.
  CapturedStreams call(Session& session) const;

 private:
  SharedLibrary library_;
  void (*entry_)();
};

// Where the program's own procedures lie: ../lib beside the folder of the running program.
std::filesystem::path installedProcedures();

}  // namespace workbench
