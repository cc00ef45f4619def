#include "workbench/manual/completion.h"

namespace workbench {

const std::vector<Shell>& shells() {
  static const std::vector<Shell> known = {
      {"bash", "bash-completion/completions/varmodel", bashCompletion},
      {"zsh", "zsh/site-functions/_varmodel", zshCompletion},
      {"fish", "fish/vendor_completions.d/varmodel.fish", fishCompletion},
  };
  return known;
}

}  // namespace workbench
