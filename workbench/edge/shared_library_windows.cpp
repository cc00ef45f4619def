#include <system_error>

#include "workbench/base/errors.h"
#include "workbench/base/windows_api.h"
#include "workbench/edge/shared_library.h"

namespace workbench {

std::string libraryFile(const std::string& name) {
  return name + ".dll";
}

SharedLibrary::SharedLibrary(const std::filesystem::path& file) : handle_(LoadLibraryW(file.c_str())) {
  if (handle_ != nullptr) return;
  const int code = static_cast<int>(GetLastError());
  throw UsageError(file.string() + ": " + std::system_category().message(code));
}

SharedLibrary::~SharedLibrary() {
  FreeLibrary(static_cast<HMODULE>(handle_));
}

void (*SharedLibrary::function(const std::string& name) const)() {
  return reinterpret_cast<void (*)()>(GetProcAddress(static_cast<HMODULE>(handle_), name.c_str()));
}

}  // namespace workbench
