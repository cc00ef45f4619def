#include "workbench/base/shell_word.h"

#include <algorithm>
#include <string_view>

namespace workbench {

namespace {

// Bytes of letters beyond ASCII are plain, too.
bool isPlain(char c) {
  const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || static_cast<unsigned char>(c) >= 0x80;
  return isLetter || (c >= '0' && c <= '9') || std::string_view(",._%+-/=:@").find(c) != std::string_view::npos;
}

}  // namespace

std::string shellWord(const std::string& text) {
  if (!text.empty() && std::ranges::all_of(text, isPlain)) return text;
  std::string word = "'";
  for (const char c : text) word += c == '\'' ? std::string(R"('\'')") : std::string(1, c);
  return word + "'";
}

std::string shellWords(const std::vector<std::string>& words) {
  std::string line;
  for (const std::string& word : words) line += (line.empty() ? "" : " ") + shellWord(word);
  return line;
}

}  // namespace workbench
