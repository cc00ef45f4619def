// What is wrong with the command or the data, told to the user: the text names the place and the remedy.

#pragma once

#include <initializer_list>
#include <stdexcept>
#include <string>

namespace vardynamics {

// The driver reports it and ends the run.
class UserError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// The text with the marker ^1 replaced by the first argument wherever it stands, and so on.
std::string filled(std::string text, std::initializer_list<std::string> arguments);

// Throws the filled text as a UserError. The text begins with no marker, so that dictionaries can hold it.
[[noreturn]] void fail(const std::string& text, std::initializer_list<std::string> arguments = {});

}  // namespace vardynamics
