// What a procedure is known to tell. Its texts reach the workbench finished.

#pragma once

#include <span>
#include <string_view>

namespace workbench {

struct KnownMessage {
  std::string_view id;           // that lasts
  std::string_view text;         // with ^1, ^2, ... where values are put in
  std::string_view remedy = {};  // empty where the text says it, or more than a sentence is to be said
};

// The one with the longest text that the message fills in; null when none fits.
const KnownMessage* findMessage(std::string_view message, std::span<const KnownMessage> known);

}  // namespace workbench
