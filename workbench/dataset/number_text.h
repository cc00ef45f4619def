// Numbers as people write them: 1.234,5 or 3.5 %.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace workbench {

struct NumberFormat {
  char decimal = '.';
  char thousands = '\0';  // none

  friend bool operator==(const NumberFormat&, const NumberFormat&) = default;
};

// The number that a text writes in this format. Blanks around it do not matter, nor does one percent sign behind it:
// "3.5 %" is 3.5. Groups of thousands have three digits, so that "1.234,5" is a number and "1.2.2001" is none. Words of
// infinity are numbers, those of "not a number" are not.
std::optional<double> readNumber(std::string_view text, NumberFormat format);

// The shortest text that reads back as the same number.
std::string numberText(double number);

// The text without blanks around it.
std::string_view withoutBlanks(std::string_view text);

}  // namespace workbench
