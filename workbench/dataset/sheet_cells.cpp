#include "workbench/dataset/sheet_cells.h"

#include <charconv>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <map>
#include <utility>

namespace workbench {

namespace {

// Formats that every workbook has without saying so.
bool isBuiltInDate(int format) {
  return (format >= 14 && format <= 17) || format == 22 || (format >= 27 && format <= 36) ||
         (format >= 50 && format <= 58);
}

std::vector<bool> dateStyles(const pugi::xml_node& sheet) {
  std::map<int, bool> own;
  for (const pugi::xml_node format : sheet.child("numFmts").children("numFmt")) {
    own[format.attribute("numFmtId").as_int()] = showsDate(format.attribute("formatCode").value());
  }
  std::vector<bool> styles;
  for (const pugi::xml_node style : sheet.child("cellXfs").children("xf")) {
    const int format = style.attribute("numFmtId").as_int();
    const auto found = own.find(format);
    styles.push_back(found == own.end() ? isBuiltInDate(format) : found->second);
  }
  return styles;
}

template <class Number>
std::optional<Number> numberIn(const std::string& text) {
  Number number{};
  const char* end = text.data() + text.size();
  if (text.empty() || std::from_chars(text.data(), end, number).ptr != end) return std::nullopt;
  return number;
}

}  // namespace

std::optional<std::size_t> columnOf(std::string_view reference) {
  std::size_t column = 0;
  for (const char c : reference) {
    if (c < 'A' || c > 'Z' || column > kMostColumns) break;
    column = column * 26 + static_cast<std::size_t>(c - 'A') + 1;
  }
  return column == 0 ? std::nullopt : std::optional(column - 1);
}

std::string plainText(const pugi::xml_node& node) {
  std::string text = node.child("t").text().get();
  for (const pugi::xml_node run : node.children("r")) text += run.child("t").text().get();
  return text;
}

bool showsDate(std::string_view formatCode) {
  char closing = '\0';  // of a quoted text or a bracket, in which letters mean nothing
  for (std::size_t i = 0; i < formatCode.size(); ++i) {
    const char c = formatCode[i];
    if (closing != '\0') {
      if (c == closing) closing = '\0';
    } else if (c == '"') {
      closing = '"';
    } else if (c == '[') {
      closing = ']';
    } else if (c == '\\' || c == '_' || c == '*') {
      ++i;
    } else if (c == 'y' || c == 'Y' || c == 'd' || c == 'D' || formatCode.substr(i, 3) == "mmm") {
      return true;
    }
  }
  return false;
}

std::optional<std::string> dateOfSerial(double serial, bool since1904) {
  using namespace std::chrono;
  constexpr double kLatest = 2958466.0;  // 10000-01-01
  if (!(serial >= 1.0) || serial >= kLatest) return std::nullopt;
  const sys_days first = since1904 ? sys_days{year{1904} / January / 1} : sys_days{year{1899} / December / 30};
  const auto seconds = static_cast<std::int64_t>(std::llround(serial * 86400.0));
  const sys_days day = first + days{seconds / 86400};
  const hh_mm_ss<std::chrono::seconds> clock{std::chrono::seconds{seconds % 86400}};
  const year_month_day date{day};
  char text[40];
  const int length = std::snprintf(text, sizeof text, "%04d-%02u-%02u", int{date.year()}, unsigned{date.month()},
                                   unsigned{date.day()});
  if (seconds % 86400 != 0) {
    std::snprintf(text + length, sizeof text - static_cast<std::size_t>(length), " %02d:%02d:%02d",
                  static_cast<int>(clock.hours().count()), static_cast<int>(clock.minutes().count()),
                  static_cast<int>(clock.seconds().count()));
  }
  return text;
}

CellReader::CellReader(std::vector<std::string> texts, const pugi::xml_document& styles, bool since1904)
    : texts_(std::move(texts)), isDate_(dateStyles(styles.child("styleSheet"))), since1904_(since1904) {}

std::string CellReader::text(const pugi::xml_node& cell) const {
  const std::string type = cell.attribute("t").value();
  const std::string value = cell.child("v").text().get();
  if (type == "e") return "";
  if (type == "inlineStr") return plainText(cell.child("is"));
  if (type == "s") {
    const auto index = numberIn<std::size_t>(value);
    return index && *index < texts_.size() ? texts_[*index] : "";
  }
  if (type == "b") return value == "1" ? "true" : "false";
  if (type == "str" || type == "d") return value;
  return numberText(value, cell.attribute("s").as_uint());
}

std::string CellReader::numberText(const std::string& value, std::size_t style) const {
  if (style >= isDate_.size() || !isDate_[style]) return value;
  const auto serial = numberIn<double>(value);
  const std::optional<std::string> date = serial ? dateOfSerial(*serial, since1904_) : std::nullopt;
  return date.value_or(value);
}

}  // namespace workbench
