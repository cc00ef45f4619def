// Plain names for files from the lasting names of items.

#pragma once

#include <set>
#include <string>

namespace workbench {

// "parameters-realgdp" for "parameters:realgdp". Letters, digits, "_", "-" and "." stay, everything else becomes "-";
// short enough to be followed by an extension.
std::string plainName(const std::string& id);

// The names of one run, no two of them alike in whatever case.
class ItemNames {
 public:
  // The plain name. Where an item before has it, the procedure follows ("parameters-realgdp-vardynamics"), and where
  // that is taken, too, the number of the command.
  std::string take(const std::string& id, const std::string& procedure, int command);

 private:
  bool claim(const std::string& name);

  std::set<std::string> taken_;
};

}  // namespace workbench
