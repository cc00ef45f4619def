// The active dataset in memory.

#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

inline constexpr double kSystemMissing = std::numeric_limits<double>::lowest();
inline constexpr std::int64_t kMissingInstant = std::numeric_limits<std::int64_t>::min();

enum class MeasurementLevel { nominal = 1, ordinal = 2, scale = 3 };
enum class ColumnKind { number, text, instant };

struct DisplayFormat {
  int type = 5;  // 5: plain numeric
  int width = 8;
  int decimals = 2;
};

struct Column {
  std::string name;
  std::string label;
  ColumnKind kind = ColumnKind::number;
  MeasurementLevel level = MeasurementLevel::scale;
  DisplayFormat printFormat;
  DisplayFormat writeFormat;
  // The values, in the vector of the column's kind; the other two stay empty.
  std::vector<double> numbers;         // NULL and NaN became kSystemMissing
  std::vector<std::string> texts;      // NULL became ""
  std::vector<std::int64_t> instants;  // microseconds since 1970-01-01 00:00, or kMissingInstant
  int textWidth = 0;                   // bytes of the widest text
  std::vector<double> userMissing;     // values the user declared missing
};

// Variable names are compared without regard to the case of the letters A to Z.
bool sameName(std::string_view left, std::string_view right);

struct Dataset {
  std::string origin;  // what it was read from, for messages
  std::string label;
  std::vector<Column> columns;
  std::size_t rowCount = 0;

  // Index of a column by name, letters of either case; -1 when there is none.
  int find(std::string_view name) const;
};

}  // namespace workbench
