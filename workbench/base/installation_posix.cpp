#include "workbench/base/installation.h"

namespace workbench {

std::filesystem::path installationFolder() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
}

}  // namespace workbench
