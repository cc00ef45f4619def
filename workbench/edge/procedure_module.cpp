#include "workbench/edge/procedure_module.h"

#include "workbench/base/errors.h"
#include "workbench/base/installation.h"

namespace workbench {

namespace {

SharedLibrary load(const std::filesystem::path& library) {
  try {
    return SharedLibrary(library);
  } catch (const UsageError& error) {
    throw UsageError(
        "program.no-procedure",
        "the procedure could not be loaded: ^1\nIt belongs in lib/varmodel beside the program's folder, in a "
        "build tree in lib: install varmodel again, or build it with 'make build'.",
        error.what());
  }
}

}  // namespace

ProcedureModule::ProcedureModule(const std::filesystem::path& library, const std::string& entry)
    : library_(load(library)), entry_(library_.function(entry)) {
  if (entry_ == nullptr) {
    throw UsageError("program.wrong-procedure", "^1 has no procedure ^2. Build it with 'make build'.", library, entry);
  }
}

CapturedStreams ProcedureModule::call(Session& session) const {
  const SessionScope scope(session);
  StreamCapture capture;
  session.clock.set(StageClock::callStart);
  entry_();
  session.clock.set(StageClock::callEnd);
  return capture.finish();
}

// An installation keeps them in a folder of its own, a build tree does not.
std::filesystem::path installedProcedures() {
  const std::filesystem::path libraries = installationFolder() / "lib";
  return std::filesystem::is_directory(libraries / "varmodel") ? libraries / "varmodel" : libraries;
}

}  // namespace workbench
