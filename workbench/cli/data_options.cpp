#include "workbench/cli/data_options.h"

#include <sstream>

namespace workbench {

void addDataOptions(CLI::App& app, DataOptions& options) {
  constexpr const char* kGroup = "Reading the data";
  app.add_option("--decimal", options.decimal, "Decimal separator (default: .)")->type_name("CHAR")->group(kGroup);
  app.add_option("--thousands", options.thousands, "Separator of thousands")->type_name("CHAR")->group(kGroup);
  app.add_option("--na", options.na, "Words and numbers for missing values, separated by commas")
      ->type_name("WORDS")
      ->group(kGroup);
  app.add_option("--skip", options.skip, "Lines before the header")
      ->type_name("N")
      ->check(CLI::NonNegativeNumber)
      ->group(kGroup);
  app.add_option("--encoding", options.encoding, "Encoding of a text file (default: utf-8)")
      ->type_name("utf-8|latin1|utf-16")
      ->group(kGroup);
  app.add_option("--sheet", options.sheet, "Sheet of an Excel workbook")->type_name("NAME")->group(kGroup);
}

std::vector<std::string> wordsOf(const std::string& list) {
  std::vector<std::string> words;
  std::istringstream stream(list);
  for (std::string word; std::getline(stream, word, ',');) words.push_back(word);
  return words;
}

FileFormat formatFrom(const DataOptions& options) {
  FileFormat format;
  if (!options.decimal.empty()) format.numbers.decimal = separatorOf(options.decimal, "decimal");
  if (!options.thousands.empty()) format.numbers.thousands = separatorOf(options.thousands, "thousands");
  format.missing = options.missing;
  if (!options.na.empty()) format.missing = wordsOf(options.na);
  format.skip = options.skip;
  format.encoding = options.encoding;
  format.sheet = options.sheet;
  requirePossible(format);
  return format;
}

}  // namespace workbench
