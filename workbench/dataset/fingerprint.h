// A fingerprint of the values that were read, so that a record tells whether a repetition had the same data.

#pragma once

#include <string>

#include "workbench/dataset/dataset.h"

namespace workbench {

// SHA-256 in lower-case hexadecimal digits over the columns' own fingerprints, which follow each other as such digits.
// A column's is the SHA-256 of its name, a zero byte, `n`, `t` or `i` for numbers, texts or instants, and its values
// from the first row on: numbers as IEEE 754 binary64, least byte first (missing: -DBL_MAX), instants as 64-bit
// microseconds since 1970, least byte first (missing: the least), texts followed by a zero byte. Labels, levels and
// user-missing values do not take part.
std::string fingerprint(const Dataset& dataset);

}  // namespace workbench
