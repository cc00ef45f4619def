#include <dlfcn.h>

#include "workbench/base/errors.h"
#include "workbench/edge/shared_library.h"

namespace workbench {

std::string libraryFile(const std::string& name) {
  return name + ".so";
}

SharedLibrary::SharedLibrary(const std::filesystem::path& file) : handle_(dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL)) {
  if (handle_ == nullptr) throw UsageError(dlerror());
}

SharedLibrary::~SharedLibrary() {
  dlclose(handle_);
}

void (*SharedLibrary::function(const std::string& name) const)() {
  return reinterpret_cast<void (*)()>(dlsym(handle_, name.c_str()));
}

}  // namespace workbench
