// Places in user text, shown to the user.

#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "workbench/base/notice.h"

namespace workbench {

// A stretch of bytes [begin, end) of a source text.
struct Span {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Both count from 1; a column is a character (code point), a tab being one.
struct TextPosition {
  std::size_t line = 1;
  std::size_t column = 1;
};

TextPosition positionOf(std::string_view source, std::size_t offset);

// The line on which the span begins, indented by two, and below it a caret with tildes under the span:
//   /MODEL ENDOGENOUS=realgdp realcns
//                             ^~~~~~~
// A long line is cut around the span. Characters that are not printable show as U+FFFD. "" when the line is blank.
std::string excerpt(std::string_view source, Span span);

// "line 2, column 41: TEXT" and the excerpt below it.
Notice locatedMessage(std::string_view source, Span span, const Notice& text);

// User text within a message: in double quotes, on one line, cut after 60 characters.
std::string inQuotes(std::string_view text);

}  // namespace workbench
