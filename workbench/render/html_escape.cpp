#include "workbench/render/html_escape.h"

#include <stdexcept>

#include "workbench/base/utf8.h"
#include "workbench/base/visible_text.h"

namespace workbench {

namespace {

std::string_view entity(char c) {
  switch (c) {
    case '&':
      return "&amp;";
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '"':
      return "&quot;";
    case '\'':
      return "&#39;";
    case '{':
      return "&#123;";
    default:
      return {};
  }
}

// How a character of JSON text is written in a script; empty when it stands for itself. Apart from braces these
// characters occur in JSON only inside strings, where an escape means the same; "{{" occurs nowhere else.
std::string_view scriptEscape(char32_t character, bool afterBrace) {
  switch (character) {
    case '<':
      return "\\u003c";
    case '>':
      return "\\u003e";
    case '&':
      return "\\u0026";
    case 0x2028:
      return "\\u2028";
    case 0x2029:
      return "\\u2029";
    case '{':
      return afterBrace ? "\\u007b" : "";
    default:
      return {};
  }
}

}  // namespace

std::string htmlText(std::string_view text) {
  std::string escaped;
  for (const char c : visibleText(text)) {
    const std::string_view replacement = entity(c);
    replacement.empty() ? escaped.push_back(c) : void(escaped += replacement);
  }
  return escaped;
}

std::string scriptJson(const rapidjson::Value& value) {
  rapidjson::StringBuffer buffer;
  rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
  if (!value.Accept(writer)) throw std::runtime_error("A number of the document is not finite.");
  const std::string_view json(buffer.GetString(), buffer.GetSize());
  std::string escaped;
  bool afterBrace = false;
  for (std::size_t at = 0; at < json.size();) {
    const CodePoint next = firstCodePoint(json.substr(at));
    const std::string_view replacement = next.valid ? scriptEscape(next.value, afterBrace) : kReplacementText;
    escaped += replacement.empty() ? json.substr(at, next.bytes) : replacement;
    afterBrace = next.value == U'{' && replacement.empty();
    at += next.bytes;
  }
  return escaped;
}

}  // namespace workbench
