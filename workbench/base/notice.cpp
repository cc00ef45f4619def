#include "workbench/base/notice.h"

namespace workbench {

Notice Notice::quoted(std::string id, std::string text) {
  Notice notice(std::move(text));
  notice.id_ = std::move(id);
  return notice;
}

std::string Notice::id() const {
  if (!id_.empty()) return id_;
  for (const std::vector<Notice>* parts : {&arguments_, &following_}) {
    for (const Notice& part : *parts) {
      if (std::string id = part.id(); !id.empty()) return id;
    }
  }
  return {};
}

std::string Notice::in(const MessageCatalogue& texts) const {
  std::string said = text_;
  if (isKey_) {
    std::vector<std::string> arguments;
    for (const Notice& argument : arguments_) arguments.push_back(argument.in(texts));
    said = fillMarkers(texts.lookUp(text_), arguments);
  }
  for (const Notice& more : following_) {
    const std::string words = more.in(texts);
    said += (said.empty() || words.empty() || words.front() == '\n' ? "" : " ") + words;
  }
  return said;
}

Notice& Notice::operator+=(Notice more) {
  if (!more.empty()) following_.push_back(std::move(more));
  return *this;
}

Notice Notice::renamed(const std::string& name, const Notice& other) const {
  if (text() == name) return other;
  Notice result = *this;
  for (std::vector<Notice>* parts : {&result.arguments_, &result.following_}) {
    for (Notice& part : *parts) part = part.renamed(name, other);
  }
  if (isKey_) return result;
  for (auto at = result.text_.find(name); at != std::string::npos; at = result.text_.find(name, at)) {
    result.text_.replace(at, name.size(), other.text());
  }
  return result;
}

}  // namespace workbench
