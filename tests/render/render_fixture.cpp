#include "tests/render/render_fixture.h"

#include <sstream>
#include <stdexcept>

namespace workbench {

rapidjson::Document parseJson(const std::string& json) {
  rapidjson::Document document;
  document.Parse<rapidjson::kParseFullPrecisionFlag>(json.data(), json.size());
  if (document.HasParseError()) throw std::runtime_error("test document: " + json);
  return document;
}

PivotTable tableFromJson(const std::string& json, const Locale& locale) {
  return readPivotTable(parseJson(json), locale);
}

const std::vector<std::string>& hostileTexts() {
  static const std::vector<std::string> texts{
      "</script><script>alert(1)</script>",
      "<!-- \"quoted\" & 'single' -->",
      "{{title}} {{{raw}}}",
      std::string("nul\0inside", 10),
      "\x1b[31mred\x1b]0;title\x07\x7f",
      "\xc2\x9b"
      "31m C1",
      "\xff\xc0\xaf\xed\xa0\x80 not UTF-8 \xe2\x82",
      "line\r\nbreak\ttab",
      "\xe2\x80\xae"
      "override\xe2\x81\xa6 isolate\xe2\x80\xa8",
      "مبيعات (t-1)",
      "日本の輸出",
      "👩‍💻🎉 emoji",
      "e\xcc\x81te\xcc\x81",
      "| a\\b `c` *d* _e_ [f](g) ~h~ $i$",
      std::string(300, 'x'),
      "",
      "   ",
  };
  return texts;
}

std::vector<std::string> linesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

}  // namespace workbench
