#include "workbench/commands/common/known_messages.h"

#include "workbench/base/message_catalogue.h"

namespace workbench {

const KnownMessage* findMessage(std::string_view message, std::span<const KnownMessage> known) {
  const KnownMessage* best = nullptr;
  for (const KnownMessage& one : known) {
    if (fits(one.text, message) && (best == nullptr || one.text.size() > best->text.size())) best = &one;
  }
  return best;
}

}  // namespace workbench
