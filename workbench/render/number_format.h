// Numbers as the tables show them.

#pragma once

#include <cstddef>
#include <string>

#include "workbench/base/language.h"
#include "workbench/document/document_reader.h"

namespace workbench {

struct NumberText {
  std::string text;
  std::size_t integerLength = 0;  // bytes of `text` before the decimal point; where columns align
};

// The system-missing value and everything that is not finite.
bool isMissing(double value);

// Fixed decimals. A missing value is "."; a non-zero value that would print as all zeros takes short scientific form
// (3.2e-07); from 1e16 on, where a double holds no decimals and not even every integer, so does the number
// (1.234568e+20).
NumberText formatNumber(double value, const CellFormat& format, const Language& language = {});

// The shortest text that reads back as the same double; "" for a missing value.
std::string fullPrecision(double value);

}  // namespace workbench
