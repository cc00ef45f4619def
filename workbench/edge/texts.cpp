#include "workbench/edge/texts.h"

#include "workbench/edge/session.h"

namespace workbench {

const Language& currentLanguage() {
  static const Language english;
  const Session* session = runningSession();
  return session == nullptr ? english : session->language;
}

}  // namespace workbench
