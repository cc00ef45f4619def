// The texts of one language. English texts are the keys; arguments stand in them as ^1 to ^9.

#pragma once

#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

class MessageCatalogue {
 public:
  MessageCatalogue() = default;  // holds none
  explicit MessageCatalogue(std::map<std::string, std::string, std::less<>> texts) : texts_(std::move(texts)) {}
  // A dictionary file: one JSON object in UTF-8, English text -> text; other entries are left out. Throws
  // std::runtime_error with what is wrong with the file ("cannot be opened").
  static MessageCatalogue read(const std::filesystem::path& file);

  // The key itself when there is no text for it. Blanks count.
  std::string lookUp(std::string_view key) const;
  // A finished English text: one that is a key, or a key with its arguments filled in ("No forecast values for x" of
  // "No forecast values for ^1"; the longest such key, never one that begins with a marker, which would fit too much).
  // Arguments stay, except that the parts of a list ("a, b") are translated when they are filled-in keys themselves.
  // The text itself when no key fits.
  std::string translate(std::string_view text) const;

 private:
  struct Filled {
    std::string text;  // of the language, with its markers
    std::vector<std::string> arguments;
  };
  std::optional<Filled> findFilled(std::string_view text) const;
  std::string translateList(std::string_view argument) const;

  std::map<std::string, std::string, std::less<>> texts_;
};

// Whether the text is the pattern with its markers filled in.
bool fits(std::string_view pattern, std::string_view text);

// The text with its markers replaced, every occurrence; a marker without an argument stays, and so does one inside an
// argument.
std::string fillMarkers(std::string_view text, const std::vector<std::string>& arguments);

}  // namespace workbench
