// Messages to the user as terminal text.

#pragma once

#include <string>
#include <string_view>

#include "workbench/render/terminal.h"

namespace workbench {

// "LABEL: text" for a label "error", "warning", "note" or "hint", shown in the language; wrapped to the
// style's width with the following lines indented by two blanks. Lines of the text that begin with two blanks (a quoted
// line of the command and its caret) and an unbroken command stay as they are.
std::string paintMessage(std::string_view label, std::string_view text, const TerminalStyle& style,
                         const Language& language);

}  // namespace workbench
