#include "workbench/dataset/file_format.h"

#include <algorithm>
#include <array>

#include "workbench/base/errors.h"
#include "workbench/base/letter_case.h"
#include "workbench/base/shell_word.h"
#include "workbench/base/toml_text.h"

namespace workbench {

char separatorOf(const std::string& text, const std::string& setting) {
  constexpr std::string_view kSeparators = ".,' _";
  if (text.size() == 1 && kSeparators.find(text[0]) != std::string_view::npos) return text[0];
  throw UsageError("data.separator", "'^1' must be one of the characters . , ' _ and blank, not \"^2\".", setting,
                   text);
}

void requirePossible(const FileFormat& format) {
  if (format.numbers.decimal == format.numbers.thousands) {
    throw UsageError("data.equal-separators",
                     "'decimal' and 'thousands' cannot both be \"^1\". Give two different ones.",
                     std::string(1, format.numbers.decimal));
  }
  encodingName(format.encoding);
}

std::string encodingName(const std::string& encoding) {
  struct Name {
    std::string_view given;
    const char* duckdb;
  };
  static constexpr std::array<Name, 8> kNames{{{"utf-8", "utf-8"},
                                               {"utf8", "utf-8"},
                                               {"latin1", "latin-1"},
                                               {"latin-1", "latin-1"},
                                               {"iso-8859-1", "latin-1"},
                                               {"utf-16", "utf-16"},
                                               {"utf16", "utf-16"},
                                               {"", "utf-8"}}};
  const auto* name = std::ranges::find(kNames, lowerCase(encoding), &Name::given);
  if (name != kNames.end()) return name->duckdb;
  throw UsageError("data.encoding",
                   "'encoding': \"^1\" is not known. There are utf-8, latin1 (also for letters of windows-1252) and "
                   "utf-16.",
                   encoding);
}

std::string WrittenSetting::option() const {
  std::string list;
  for (const std::string& text : values) list += (list.empty() ? "" : ",") + text;
  return "--" + name + "=" + shellWord(list);
}

std::string WrittenSetting::value() const {
  if (kind == Kind::number) return values.front();
  return kind == Kind::texts ? tomlTexts(values) : tomlText(values.front());
}

Notice inWords(const WrittenSetting& setting) {
  return phrase("^1 (in a job file, under [data]: ^2)", setting.option(), setting.key());
}

std::vector<WrittenSetting> writtenSettings(const FileFormat& format) {
  std::vector<WrittenSetting> settings;
  if (format.numbers.decimal != '.') settings.push_back({"decimal", {std::string(1, format.numbers.decimal)}});
  if (format.numbers.thousands != '\0') settings.push_back({"thousands", {std::string(1, format.numbers.thousands)}});
  if (!format.missing.empty()) settings.push_back({"na", format.missing, WrittenSetting::Kind::texts});
  if (format.skip) settings.push_back({"skip", {std::to_string(*format.skip)}, WrittenSetting::Kind::number});
  if (!format.encoding.empty()) settings.push_back({"encoding", {format.encoding}});
  if (!format.sheet.empty()) settings.push_back({"sheet", {format.sheet}});
  return settings;
}

}  // namespace workbench
