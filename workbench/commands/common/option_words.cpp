#include "workbench/commands/common/option_words.h"

#include <algorithm>
#include <cctype>

namespace workbench {

namespace {

bool isVariable(const Dataset& dataset, std::string_view name) {
  return std::ranges::any_of(dataset.columns, [&](const Column& column) { return column.name == name; });
}

bool isWordCharacter(char c) {
  return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' || (static_cast<unsigned char>(c) & 0x80U) != 0;
}

// The entry whose keyword stands here as a whole word; null when none does.
const OptionWord* wordAt(std::string_view rest, std::span<const OptionWord> words) {
  const auto found = std::ranges::find_if(words, [&](const OptionWord& word) {
    const std::size_t length = word.keyword.size();
    return rest.starts_with(word.keyword) && (rest.size() == length || !isWordCharacter(rest[length]));
  });
  return found == words.end() ? nullptr : &*found;
}

}  // namespace

std::string inOptions(const std::string& message, std::span<const OptionWord> words, const Dataset& dataset) {
  const std::size_t end = std::min(message.find('\n'), message.size());
  std::string text;
  for (std::size_t at = 0; at < end;) {
    const bool begins = at == 0 || (!isWordCharacter(message[at - 1]) && message[at - 1] != '-');
    const std::string_view rest(message.data() + at, end - at);
    const OptionWord* word = begins ? wordAt(rest, words) : nullptr;
    if (word == nullptr || isVariable(dataset, word->keyword)) {
      text += message[at++];
      continue;
    }
    text += word->option;
    at += word->keyword.size();
    if (at < end && message[at] == '=') text += ' ', ++at;
  }
  return text + message.substr(end);
}

}  // namespace workbench
