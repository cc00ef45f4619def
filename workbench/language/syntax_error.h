// A user's mistake in the command: where, and what is wrong with its remedy.

#pragma once

#include <stdexcept>
#include <string_view>
#include <utility>

#include "workbench/base/notice.h"
#include "workbench/base/text_excerpt.h"

namespace workbench {

struct SyntaxError : std::runtime_error {  // what() is English
  SyntaxError(Span where, Notice what) : std::runtime_error(what.text()), span(where), notice(std::move(what)) {}
  template <class... Arguments>
  SyntaxError(Span where, std::string_view id, std::string_view key, const Arguments&... arguments)
      : SyntaxError(where, Notice(id, key, arguments...)) {}

  Span span;
  Notice notice;
};

}  // namespace workbench
