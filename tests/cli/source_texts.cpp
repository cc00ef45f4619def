#include "source_texts.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <vector>

namespace fs = std::filesystem;

namespace {

std::string withoutComments(std::istream& source) {
  static const std::regex comment("^\\s*//.*| // .*$");
  std::string text;
  for (std::string line; std::getline(source, line);) text += std::regex_replace(line, comment, "") + "\n";
  return text;
}

void forEachSource(const std::vector<std::string>& folders, const std::function<void(const std::string&)>& use) {
  for (const std::string& folder : folders) {
    for (const auto& entry : fs::recursive_directory_iterator(fs::path(VARMODEL_SOURCE_DIR) / folder)) {
      if (entry.path().extension() != ".cpp") continue;
      std::ifstream file(entry.path());
      use(withoutComments(file));
    }
  }
}

// The literal that begins at a quotation mark, joined with those right behind it; `at` moves past them.
std::string readLiteral(const std::string& text, std::size_t& at) {
  std::string literal;
  while (at < text.size() && text[at] == '"') {
    for (++at; text[at] != '"'; ++at) {
      if (text[at] == '\\') ++at;
      literal += text[at - 1] == '\\' && text[at] == 'n' ? '\n' : text[at];
    }
    const std::size_t next = text.find_first_not_of(" \n", at + 1);
    if (next == std::string::npos || text[next] != '"') break;
    at = next;
  }
  ++at;
  return literal;
}

// A statement or an argument list in parts: literals, and the code between them.
struct Part {
  bool isLiteral;
  std::string text;
};

std::vector<Part> partsUpTo(const std::string& text, std::size_t at, const std::string& ends) {
  std::vector<Part> parts;
  int depth = 0;
  while (at < text.size()) {
    if (text[at] == '"') {
      parts.push_back({true, readLiteral(text, at)});
      continue;
    }
    if (depth <= 0 && ends.find(text[at]) != std::string::npos) break;
    depth += text[at] == '(' || text[at] == '{' ? 1 : text[at] == ')' || text[at] == '}' ? -1 : 0;
    if (parts.empty() || parts.back().isLiteral) parts.push_back({false, ""});
    parts.back().text += text[at++];
  }
  return parts;
}

std::map<std::string, std::string> textConstants(const std::string& source) {
  static const std::regex definition(R"re(constexpr (?:const char ?\* ?|std::string_view )(\w+) =\s*")re");
  std::map<std::string, std::string> constants;
  for (std::sregex_iterator it(source.begin(), source.end(), definition), end; it != end; ++it) {
    std::size_t at = static_cast<std::size_t>(it->position() + it->length() - 1);
    constants[(*it)[1]] = readLiteral(source, at);
  }
  return constants;
}

// The message that the parts put together; "" when it holds nothing but values.
std::string messageOf(const std::vector<Part>& parts, const std::map<std::string, std::string>& constants) {
  static const std::regex glue("std::string|std::to_string|[\\s+<>()]");
  // The operation that warns is written out, or told by its caller.
  static const std::regex heading("^Warning: (\\w+::\\w+ - |\\^1)?");
  std::string message;
  bool says = false;
  std::vector<std::string> values;
  for (const Part& part : parts) {
    const std::string value = part.isLiteral ? "" : std::regex_replace(part.text, glue, "");
    const auto constant = constants.find(value);
    if (part.isLiteral || constant != constants.end()) {
      message += part.isLiteral ? part.text : constant->second;
      says = true;
    } else if (!value.empty()) {
      const auto known = std::find(values.begin(), values.end(), value);
      message += "^" + std::to_string(known - values.begin() + 1);
      if (known == values.end()) values.push_back(value);
    }
  }
  if (!message.empty() && message.back() == '\n') message.pop_back();
  return says ? std::regex_replace(message, heading, "") : "";
}

void addMessages(const std::string& source, const std::regex& start, const std::string& ends,
                 std::set<std::string>& messages) {
  const auto constants = textConstants(source);
  for (std::sregex_iterator it(source.begin(), source.end(), start), end; it != end; ++it) {
    const auto at = static_cast<std::size_t>(it->position() + it->length());
    const std::string message = messageOf(partsUpTo(source, at, ends), constants);
    if (!message.empty()) messages.insert(message);
  }
}

}  // namespace

std::set<std::string> lookedUpKeys() {
  // What comes before the keys, and what ends them.
  const std::pair<std::regex, std::string> rules[] = {
      {std::regex(R"re(\b(localize|tr|phrase)\(\s*(?="))re"), ",)"},
      {std::regex(R"re(\b(localizeAll|addTest|addCriterion)\()re"), ")"},
      {std::regex(R"re(\bgenerateAutocorrelationCharts\(\{(?="))re"), ",}"},
      {std::regex(R"re(\bpaintMessage\((?!std::))re"), ","},
      {std::regex(R"re(\{&VARInputSettings::\w+, (?="))re"), ",}"},
  };
  std::set<std::string> keys;
  forEachSource({"procedures", "workbench"}, [&](const std::string& source) {
    for (const auto& [call, ends] : rules) {
      for (std::sregex_iterator it(source.begin(), source.end(), call), end; it != end; ++it) {
        for (const Part& part : partsUpTo(source, static_cast<std::size_t>(it->position() + it->length()), ends)) {
          if (part.isLiteral) keys.insert(part.text);
        }
      }
    }
  });
  return keys;
}

std::map<std::string, std::set<SourceNotice>> notices() {
  static const std::regex named(R"re("[a-z]+\.[a-z0-9-]+",\s*(?="))re");
  std::map<std::string, std::set<SourceNotice>> found;
  forEachSource({"workbench"}, [&](const std::string& source) {
    for (std::sregex_iterator it(source.begin(), source.end(), named), end; it != end; ++it) {
      auto at = static_cast<std::size_t>(it->position());
      const bool isRow = at > 0 && source[at - 1] == '{';  // of the messages that a procedure is known for
      const std::string id = readLiteral(source, at);
      at = static_cast<std::size_t>(it->position() + it->length());
      SourceNotice notice{readLiteral(source, at), ""};
      if (notice.text.find_first_of(" ^") == std::string::npos) continue;  // a setting and its value
      at = source.find_first_not_of(", \n", at);
      if (isRow && source[at] == '"') notice.remedy = readLiteral(source, at);
      found[id].insert(notice);
    }
  });
  return found;
}

std::set<std::string> procedureMessages() {
  static const std::regex message(R"re(\b(fail|GenericError|GenericWarning)\()re");
  static const std::regex warning(R"re((?="Warning: ))re");
  std::set<std::string> messages;
  forEachSource({"procedures/varmodel/syntax", "procedures/varmodel/data", "procedures/varmodel/algo"},
                [&](const std::string& source) { addMessages(source, message, ")", messages); });
  forEachSource({"procedures"}, [&](const std::string& source) { addMessages(source, warning, ";", messages); });
  // There the text comes with its markers, its arguments after it.
  static const std::regex withMarkers(R"re(\bfail\(\s*(?="))re");
  forEachSource({"procedures/vardynamics"},
                [&](const std::string& source) { addMessages(source, withMarkers, ",)", messages); });
  return messages;
}
