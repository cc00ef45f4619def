#include "workbench/export/item_names.h"

#include <algorithm>

#include "workbench/base/utf8.h"
#include "workbench/base/visible_text.h"

namespace workbench {

namespace {

constexpr std::size_t kLongest =
    180;  // of 255 bytes: what follows a name, and the mark of a file that is not yet whole

std::string lowered(std::string text) {
  std::ranges::transform(text, text.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  return text;
}

bool isPlain(std::string_view character) {
  const char c = character[0];
  const bool letter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
  const bool beyondAscii = character.size() > 1 && character != kReplacementText && character != "\u00a0";
  return letter || beyondAscii || (c >= '0' && c <= '9') || c == '_' || c == '-' || c == '.';
}

}  // namespace

std::string plainName(const std::string& id) {
  const std::string visible = visibleText(id);
  std::string name;
  for (std::string_view rest = visible; !rest.empty();) {
    const std::string_view character = rest.substr(0, firstCodePoint(rest).bytes);
    if (name.size() + character.size() > kLongest) break;
    name += isPlain(character) ? character : "-";
    rest.remove_prefix(character.size());
  }
  return name;
}

bool ItemNames::claim(const std::string& name) {
  return taken_.insert(lowered(name)).second;
}

std::string ItemNames::take(const std::string& id, const std::string& procedure, int command) {
  std::string name = plainName(id);
  if (claim(name)) return name;
  name += "-" + lowered(procedure);
  if (claim(name)) return name;
  name += "-" + std::to_string(command);
  const std::string numbered = name;
  for (int more = 2; !claim(name); ++more) name = numbered + "-" + std::to_string(more);
  return name;
}

}  // namespace workbench
