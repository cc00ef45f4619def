// Letters of A to Z in their two cases; all other bytes stay, whatever the locale.

#pragma once

#include <string>

namespace workbench {

inline char lowerCase(char c) {
  return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

inline std::string lowerCase(std::string text) {
  for (char& c : text) c = lowerCase(c);
  return text;
}

inline std::string upperCase(std::string text) {
  for (char& c : text) c = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
  return text;
}

}  // namespace workbench
