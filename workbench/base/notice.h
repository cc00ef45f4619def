// What is told to the user, kept in its parts until the language is known in which it is said.

#pragma once

#include <concepts>
#include <filesystem>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "workbench/base/message_catalogue.h"

namespace workbench {

// Throw DataError("data.no-file", "data file ^1: there is no such file.", path) and it is German at the top. The id
// names the message for good, whatever its words become; docs/messages.md lists all. Both texts are literals.
class Notice {
 public:
  Notice() = default;  // says nothing
  // A name, a value, another's words: never translated.
  Notice(std::string text) : text_(std::move(text)) {}
  Notice(std::string_view text) : text_(text) {}
  Notice(const char* text) : text_(text) {}
  Notice(const std::filesystem::path& path) : Notice(path.string()) {}
  Notice(std::integral auto number) : Notice(std::to_string(number)) {}
  // An English text with ^1 to ^9 where its arguments stand, which may be notices themselves.
  template <class... Arguments>
  Notice(std::string_view id, std::string_view key, const Arguments&... arguments)
      : id_(id), text_(key), isKey_(true), arguments_{Notice(arguments)...} {}

  // Another's words, in the language they came in.
  static Notice quoted(std::string id, std::string text);

  bool empty() const { return text_.empty() && following_.empty(); }
  // Its own, or that of the first part that has one.
  std::string id() const;
  std::string in(const MessageCatalogue& texts) const;
  std::string text() const { return in({}); }  // in English

  // What is said behind it: after a blank, or on a new line where it begins with one.
  Notice& operator+=(Notice more);
  friend Notice operator+(Notice first, Notice more) { return std::move(first += std::move(more)); }

  // With other words in the place of every part that reads `name`, and of the name within others' words.
  Notice renamed(const std::string& name, const Notice& other) const;

 private:
  std::string id_;
  std::string text_;
  bool isKey_ = false;
  std::vector<Notice> arguments_;
  std::vector<Notice> following_;
};

// A part of a notice: translated, and without an id.
template <class... Arguments>
Notice phrase(std::string_view key, const Arguments&... arguments) {
  return Notice("", key, arguments...);
}

}  // namespace workbench
