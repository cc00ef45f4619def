#include "workbench/base/installation.h"

#include <string>

#include "workbench/base/windows_api.h"

namespace workbench {

std::filesystem::path installationFolder() {
  std::wstring program(32768, L'\0');  // the longest path there is
  const DWORD length = GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
  program.resize(length);
  return std::filesystem::path(program).parent_path().parent_path();
}

}  // namespace workbench
