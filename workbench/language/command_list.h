// Several commands in one text.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

// The commands of a text in their order. A full stop ends one as the last character of a word before white space or the
// end of the text; the last command needs none. Each comes with its full stop and behind blanks that put every
// character at its line and column in the text, so that messages name the user's places. A text without any command is
// one.
std::vector<std::string> splitCommands(std::string_view text);

}  // namespace workbench
