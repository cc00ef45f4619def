#include "workbench/edge/procedure_module.h"

#include <dlfcn.h>

#include <utility>

#include "workbench/base/errors.h"
#include "workbench/base/installation.h"

namespace workbench {

ProcedureModule::ProcedureModule(const std::filesystem::path& library, const std::string& entry) {
  library_ = dlopen(library.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library_ == nullptr) {
    throw UsageError(std::string("the procedure could not be loaded: ") + dlerror() +
                     "\nIt belongs in the folder lib beside the program's folder; build it with 'make build'.");
  }
  entry_ = reinterpret_cast<void (*)()>(dlsym(library_, entry.c_str()));
  if (entry_ == nullptr) {
    dlclose(std::exchange(library_, nullptr));
    throw UsageError(library.string() + " has no procedure " + entry + ".");
  }
}

ProcedureModule::~ProcedureModule() {
  if (library_ != nullptr) dlclose(library_);
}

CapturedStreams ProcedureModule::call(Session& session) const {
  const SessionScope scope(session);
  StreamCapture capture;
  session.clock.set(StageClock::callStart);
  entry_();
  session.clock.set(StageClock::callEnd);
  return capture.finish();
}

std::filesystem::path installedProcedures() {
  return installationFolder() / "lib";
}

}  // namespace workbench
