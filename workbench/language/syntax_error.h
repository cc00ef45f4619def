// A user's mistake in the command: where, and what is wrong with its remedy.

#pragma once

#include <stdexcept>
#include <string>

#include "workbench/base/text_excerpt.h"

namespace workbench {

struct SyntaxError : std::runtime_error {
  SyntaxError(Span where, const std::string& text) : std::runtime_error(text), span(where) {}
  Span span;
};

}  // namespace workbench
