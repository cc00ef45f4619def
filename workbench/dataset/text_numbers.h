// Text columns that hold numbers: written with percent signs, decimal commas, groups of thousands, or among words.

#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "workbench/dataset/dataset.h"
#include "workbench/dataset/file_format.h"

namespace workbench {

// Text columns in which every value but missing ones is a number of the format (3.5 %, or 1,5 in a Parquet file)
// become numeric, and the numbers among the format's missing words become missing in every column. A text column that
// holds nothing at all stays as it is, and so does one without percent signs while the format is the usual one: who
// stored digits as text meant it.
void applyFormat(Dataset& dataset, const FileFormat& format);

// A column that was read as text, most of whose values are numbers.
struct TextNumber {
  std::string column;
  std::size_t row = 0;  // the first value that is none in the format the file was read with, from 0
  std::string value;
};

struct TextNumbers {
  std::vector<TextNumber> columns;
  FileFormat format;  // that reads all of them, to be given instead of the present one
};

// Nothing when no text column looks like numbers. One format is sought for all columns: that in which most of their
// values are numbers, and the words beside them as missing ones; or, where the only words are one row of names, with
// the lines above that row left out.
std::optional<TextNumbers> findTextNumbers(const Dataset& dataset, const FileFormat& present);

// The first of the usual formats in which the text is a number.
std::optional<NumberFormat> numberFormatOf(std::string_view text);

}  // namespace workbench
