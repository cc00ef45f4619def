#include "workbench/edge/texts.h"

#include "workbench/edge/session.h"

namespace workbench {

const MessageCatalogue& currentTexts() {
  static const MessageCatalogue english;
  const Session* session = runningSession();
  return session == nullptr ? english : session->texts;
}

}  // namespace workbench
