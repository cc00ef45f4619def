#include "workbench/edge/texts.h"

#include <utility>

#include "workbench/edge/session.h"

namespace workbench {

namespace {

Language& languageOutsideCalls() {
  static Language language;
  return language;
}

}  // namespace

const Language& currentLanguage() {
  const Session* session = runningSession();
  return session == nullptr ? languageOutsideCalls() : session->language;
}

void setLanguage(Language language) {
  languageOutsideCalls() = std::move(language);
}

}  // namespace workbench
