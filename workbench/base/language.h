// The language that the output speaks: its texts and how it writes numbers.

#pragma once

#include <string>
#include <string_view>

#include "workbench/base/message_catalogue.h"
#include "workbench/base/notice.h"

namespace workbench {

class Language {
 public:
  Language() = default;  // English, whose texts are the keys
  Language(std::string code, MessageCatalogue texts);

  const std::string& code() const { return code_; }  // BCP 47
  // Shows in how the language writes the text "0.5".
  const std::string& decimalSeparator() const { return decimalSeparator_; }

  // The text for a key, with its arguments.
  template <class... Arguments>
  std::string tr(std::string_view key, const Arguments&... arguments) const {
    return in(phrase(key, arguments...));
  }
  std::string in(const Notice& notice) const { return notice.in(texts_); }
  // A finished English text, as MessageCatalogue::translate does it.
  std::string translate(std::string_view text) const { return texts_.translate(text); }

 private:
  std::string code_ = "en";
  MessageCatalogue texts_;
  std::string decimalSeparator_ = ".";
};

}  // namespace workbench
