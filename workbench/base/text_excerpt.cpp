#include "workbench/base/text_excerpt.h"

#include <algorithm>

#include "workbench/base/utf8.h"

namespace workbench {

namespace {

constexpr std::size_t kLineWidth = 100;   // characters of a line that are shown
constexpr std::size_t kContext = 40;      // of them before the span, when the line is cut
constexpr std::size_t kQuotedWidth = 60;  // characters of a quoted word
constexpr std::u32string_view kCut = U"...";

char32_t printable(char32_t character) {
  if (character == '\t') return ' ';
  const bool control = character < 0x20 || (character >= 0x7F && character < 0xA0);
  return control ? kReplacementCharacter : character;
}

std::u32string printableCharacters(std::string_view bytes) {
  std::u32string characters = decodeUtf8(bytes);
  std::transform(characters.begin(), characters.end(), characters.begin(), printable);
  return characters;
}

Span lineAround(std::string_view source, std::size_t offset) {
  const std::size_t before = offset == 0 ? std::string_view::npos : source.rfind('\n', offset - 1);
  Span line{before == std::string_view::npos ? 0 : before + 1, std::min(source.find('\n', offset), source.size())};
  if (line.end > line.begin && line.end > offset && source[line.end - 1] == '\r') --line.end;
  return line;
}

std::string_view slice(std::string_view source, Span span) {
  return source.substr(span.begin, span.end - span.begin);
}

bool isBlank(std::string_view text) {
  return text.find_first_not_of(" \t\r\f\v") == std::string_view::npos;
}

}  // namespace

TextPosition positionOf(std::string_view source, std::size_t offset) {
  const std::string_view before = source.substr(0, offset);
  const std::size_t line = static_cast<std::size_t>(std::count(before.begin(), before.end(), '\n')) + 1;
  const std::size_t lineBegin = before.rfind('\n') + 1;  // npos + 1 is 0
  return {line, countCharacters(before.substr(lineBegin)) + 1};
}

std::string excerpt(std::string_view source, Span span) {
  const Span line = lineAround(source, span.begin);
  if (isBlank(slice(source, line))) return "";
  const std::u32string shown = printableCharacters(slice(source, line));
  const std::size_t column = countCharacters(slice(source, {line.begin, span.begin}));
  const std::size_t length = countCharacters(slice(source, {span.begin, std::clamp(span.end, span.begin, line.end)}));

  const bool fits = shown.size() <= kLineWidth;
  const std::size_t from = fits || column <= kContext ? 0 : column - kContext;
  const std::size_t to = std::min(shown.size(), from + kLineWidth);
  const std::u32string_view lead = from > 0 ? kCut : std::u32string_view();
  const std::u32string_view trail = to < shown.size() ? kCut : std::u32string_view();
  const std::size_t marked = std::max<std::size_t>(1, std::min(length, to - std::min(column, to)));

  std::u32string text = U"  ";
  text.append(lead).append(shown, from, to - from).append(trail).append(U"\n  ");
  text.append(lead.size() + column - from, U' ').append(U"^").append(marked - 1, U'~');
  return encodeUtf8(text);
}

Notice locatedMessage(std::string_view source, Span span, const Notice& text) {
  const TextPosition position = positionOf(source, span.begin);
  const std::string shown = excerpt(source, span);
  return phrase("line ^1, column ^2: ^3", position.line, position.column, text) +
         (shown.empty() ? Notice() : Notice("\n" + shown));
}

std::string inQuotes(std::string_view text) {
  // A character takes at most four bytes, so this much is enough to see whether the text is cut.
  std::u32string characters = printableCharacters(text.substr(0, 4 * (kQuotedWidth + 1)));
  if (characters.size() > kQuotedWidth) {
    characters.resize(kQuotedWidth - kCut.size());
    characters += kCut;
  }
  return "\"" + encodeUtf8(characters) + "\"";
}

}  // namespace workbench
