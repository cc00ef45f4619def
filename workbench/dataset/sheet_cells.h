// The cells of a worksheet as text.

#pragma once

#include <cstddef>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

inline constexpr std::size_t kMostColumns = 16384;  // of a worksheet

// From 0, of a reference such as "AB12"; nothing for what is none.
std::optional<std::size_t> columnOf(std::string_view reference);

// The text of a node whose runs may be formatted differently.
std::string plainText(const pugi::xml_node& node);

// Whether a cell format code ("yyyy\-mm", "dd.mm.yy") shows a date.
bool showsDate(std::string_view formatCode);

// A count of days as "2001-02-28", with the time of day when there is one; day 0 is 1899-12-30, or with the calendar of
// 1904 its first day. Nothing outside the years 1 to 9999.
std::optional<std::string> dateOfSerial(double serial, bool since1904);

class CellReader {
 public:
  // The workbook's shared texts, its styles, and which of the two calendars it counts days in.
  CellReader(std::vector<std::string> texts, const pugi::xml_document& styles, bool since1904);

  std::string text(const pugi::xml_node& cell) const;

 private:
  std::string numberText(const std::string& value, std::size_t style) const;

  std::vector<std::string> texts_;
  std::vector<bool> isDate_;  // by the number of a cell's style
  bool since1904_;
};

}  // namespace workbench
