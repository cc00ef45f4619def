#include "workbench/base/message_catalogue.h"

#include <array>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <utility>

#include "workbench/base/json.h"

namespace workbench {

namespace {

constexpr std::size_t kMarkerLength = 2;
constexpr std::size_t kMostMarkers = 9;

// Where the first marker begins; the text's length when it has none.
std::size_t firstMarker(std::string_view text) {
  for (std::size_t at = 0; at + 1 < text.size(); ++at) {
    if (text[at] == '^' && text[at + 1] >= '1' && text[at + 1] <= '9') return at;
  }
  return text.size();
}

std::size_t markerIndex(std::string_view text, std::size_t marker) {
  return static_cast<std::size_t>(text[marker + 1] - '1');
}

std::string_view literalHead(std::string_view pattern) {
  return pattern.substr(0, firstMarker(pattern));
}

// How much of the text an argument takes that stands before `rest` of the pattern: up to the next literal.
std::size_t argumentLength(std::string_view text, std::string_view rest) {
  const std::string_view literal = literalHead(rest);
  if (literal.size() < rest.size()) return text.find(literal);
  return text.ends_with(literal) ? text.size() - literal.size() : std::string_view::npos;
}

// The arguments that fill a pattern to give the text. A marker that stands twice must have one argument.
std::optional<std::vector<std::string>> matchPattern(std::string_view pattern, std::string_view text) {
  std::array<std::optional<std::string_view>, kMostMarkers> found;
  while (text.starts_with(literalHead(pattern))) {
    const std::size_t marker = firstMarker(pattern);
    text.remove_prefix(marker);
    if (marker == pattern.size()) {
      if (!text.empty()) return std::nullopt;
      std::vector<std::string> arguments;
      arguments.reserve(found.size());
      for (const auto& argument : found) arguments.emplace_back(argument.value_or(""));
      return arguments;
    }
    auto& argument = found[markerIndex(pattern, marker)];
    pattern.remove_prefix(marker + kMarkerLength);
    const std::size_t length = argument ? argument->size() : argumentLength(text, pattern);
    if (length > text.size() || (argument && !text.starts_with(*argument))) return std::nullopt;
    argument = text.substr(0, length);
    text.remove_prefix(length);
  }
  return std::nullopt;
}

}  // namespace

MessageCatalogue MessageCatalogue::read(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("cannot be opened");
  const std::string content(std::istreambuf_iterator<char>(stream), {});
  rapidjson::Document document;
  document.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag>(content.data(),
                                                                                         content.size());
  if (document.HasParseError() || !document.IsObject()) throw std::runtime_error("is not a JSON object of texts");
  MessageCatalogue catalogue;
  for (const auto& entry : document.GetObject()) {
    if (!entry.value.IsString()) continue;
    catalogue.texts_.emplace(std::string(entry.name.GetString(), entry.name.GetStringLength()),
                             std::string(entry.value.GetString(), entry.value.GetStringLength()));
  }
  return catalogue;
}

std::string MessageCatalogue::lookUp(std::string_view key) const {
  const auto found = texts_.find(key);
  return found == texts_.end() ? std::string(key) : found->second;
}

std::string MessageCatalogue::translate(std::string_view text) const {
  const auto found = texts_.find(text);
  if (found != texts_.end()) return found->second;
  std::optional<Filled> filled = findFilled(text);
  if (!filled) return std::string(text);
  for (std::string& argument : filled->arguments) argument = translateList(argument);
  return fillMarkers(filled->text, filled->arguments);
}

std::optional<MessageCatalogue::Filled> MessageCatalogue::findFilled(std::string_view text) const {
  std::size_t longest = 0;
  std::optional<Filled> best;
  for (const auto& [key, value] : texts_) {
    if (key.size() <= longest || firstMarker(key) == 0 || firstMarker(key) == key.size()) continue;
    auto arguments = matchPattern(key, text);
    if (!arguments) continue;
    longest = key.size();
    best = Filled{value, std::move(*arguments)};
  }
  return best;
}

std::string MessageCatalogue::translateList(std::string_view argument) const {
  std::string list;
  while (true) {
    const std::size_t comma = argument.find(", ");
    const std::string_view part = argument.substr(0, comma);
    const std::optional<Filled> filled = findFilled(part);
    list += filled ? fillMarkers(filled->text, filled->arguments) : std::string(part);
    if (comma == std::string_view::npos) return list;
    list += ", ";
    argument.remove_prefix(comma + 2);
  }
}

bool fits(std::string_view pattern, std::string_view text) {
  return matchPattern(pattern, text).has_value();
}

std::string fillMarkers(std::string_view text, const std::vector<std::string>& arguments) {
  std::string filled;
  while (true) {
    const std::size_t marker = firstMarker(text);
    filled += text.substr(0, marker);
    if (marker == text.size()) return filled;
    const std::size_t index = markerIndex(text, marker);
    filled += index < arguments.size() ? std::string_view(arguments[index]) : text.substr(marker, kMarkerLength);
    text.remove_prefix(marker + kMarkerLength);
  }
}

}  // namespace workbench
