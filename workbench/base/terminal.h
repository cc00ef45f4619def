// The terminal that a standard stream may lead to.

#pragma once

#include <cstdio>
#include <optional>
#include <string_view>

namespace workbench {

bool isTerminal(int descriptor);
// In columns; nothing where there is no terminal or it does not tell.
std::optional<int> terminalWidth(int descriptor);
// Whether the terminal takes colours.
bool takesColours(int descriptor);

// Writes a text in UTF-8 on one of C's streams, or on the descriptor at once. A lost text leaves the stream's error
// set.
void putText(std::FILE* stream, std::string_view text);
void putText(int descriptor, std::string_view text);

}  // namespace workbench
