#include "workbench/session/texts.h"

#include "workbench/session/session.h"

namespace workbench {

const MessageCatalogue& currentTexts() {
  static const MessageCatalogue english;
  const Session* session = runningSession();
  return session == nullptr ? english : session->texts;
}

}  // namespace workbench
