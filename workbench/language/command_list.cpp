#include "workbench/language/command_list.h"

#include "workbench/language/lexer.h"

namespace workbench {

namespace {

bool endsCommand(std::string_view text, const Token& token) {
  if (token.kind != TokenKind::word || text[token.span.end - 1] != '.') return false;
  return token.span.end == text.size() || kBlanks.find(text[token.span.end]) != std::string_view::npos;
}

// A blank for each character before the place; line ends stay.
std::string blanked(std::string_view text, std::size_t end) {
  std::string blanks;
  for (const char c : text.substr(0, end)) {
    const bool continues = (static_cast<unsigned char>(c) & 0xC0) == 0x80;
    if (c == '\n' || c == '\t') {
      blanks += c;
    } else if (!continues) {
      blanks += ' ';
    }
  }
  return blanks;
}

}  // namespace

std::vector<std::string> splitCommands(std::string_view text) {
  std::vector<std::string> commands;
  std::size_t begin = 0;
  bool holdsWords = false;
  const auto close = [&](std::size_t end) {
    if (holdsWords) commands.push_back(blanked(text, begin) + std::string(text.substr(begin, end - begin)));
    begin = end;
    holdsWords = false;
  };
  for (const Token& token : lexWithStops(text)) {
    const bool isStop = token.kind == TokenKind::word && token.text == ".";
    holdsWords = holdsWords || (token.kind != TokenKind::end && !isStop);
    if (endsCommand(text, token)) close(token.span.end);
  }
  close(text.size());
  if (commands.empty()) commands.emplace_back(text);
  return commands;
}

}  // namespace workbench
