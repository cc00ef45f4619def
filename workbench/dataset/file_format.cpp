#include "workbench/dataset/file_format.h"

#include <algorithm>
#include <array>

#include "workbench/base/errors.h"
#include "workbench/base/shell_word.h"
#include "workbench/base/toml_text.h"

namespace workbench {

char separatorOf(const std::string& text, const std::string& setting) {
  constexpr std::string_view kSeparators = ".,' _";
  if (text.size() == 1 && kSeparators.find(text[0]) != std::string_view::npos) return text[0];
  throw UsageError("'" + setting + "' must be one of the characters . , ' _ and blank, not \"" + text + "\".");
}

void requirePossible(const FileFormat& format) {
  if (format.numbers.decimal == format.numbers.thousands) {
    throw UsageError(std::string("'decimal' and 'thousands' cannot both be \"") + format.numbers.decimal + "\".");
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
  std::string lower = encoding;
  std::ranges::transform(lower, lower.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  const auto* name = std::ranges::find(kNames, lower, &Name::given);
  if (name != kNames.end()) return name->duckdb;
  throw UsageError("'encoding': \"" + encoding +
                   "\" is not known. There are utf-8, latin1 (also for letters of windows-1252) and utf-16.");
}

WrittenSetting written(const std::string& name, const std::string& text) {
  return {"--" + name + "=" + shellWord(text), name + " = " + tomlText(text)};
}

WrittenSetting written(const std::string& name, const std::vector<std::string>& texts) {
  std::string option;
  for (const std::string& text : texts) option += (option.empty() ? "" : ",") + text;
  return {"--" + name + "=" + shellWord(option), name + " = " + tomlTexts(texts)};
}

std::string inWords(const WrittenSetting& setting) {
  return setting.option + " (in a job file, under [data]: " + setting.key + ")";
}

std::vector<WrittenSetting> writtenSettings(const FileFormat& format) {
  std::vector<WrittenSetting> settings;
  if (format.numbers.decimal != '.') settings.push_back(written("decimal", std::string(1, format.numbers.decimal)));
  if (format.numbers.thousands != '\0') {
    settings.push_back(written("thousands", std::string(1, format.numbers.thousands)));
  }
  if (!format.missing.empty()) settings.push_back(written("na", format.missing));
  if (format.skip) {
    const std::string lines = std::to_string(*format.skip);
    settings.push_back({"--skip=" + lines, "skip = " + lines});
  }
  if (!format.encoding.empty()) settings.push_back(written("encoding", format.encoding));
  if (!format.sheet.empty()) settings.push_back(written("sheet", format.sheet));
  return settings;
}

}  // namespace workbench
