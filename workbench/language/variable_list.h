// Variable lists of one subcommand.

#pragma once

#include <map>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "workbench/dataset/dataset.h"
#include "workbench/language/lexer.h"

namespace workbench {

// Resolves the items of variable lists against the dictionary. A variable stands in the lists of one subcommand once.
class VariableLists {
 public:
  // The names tell a forgotten equals sign or slash from a variable that does not exist.
  VariableLists(const Dataset& dataset, std::vector<std::string> parameterNames,
                std::vector<std::string> subcommandNames)
      : dataset_(dataset), parameterNames_(std::move(parameterNames)), subcommandNames_(std::move(subcommandNames)) {}

  // Names as written, with `a TO c` replaced by the variables from a to c. Throws SyntaxError at a variable that is
  // unknown or listed already, and at a range that lacks an end or runs backwards.
  std::vector<std::string> read(const std::string& parameter, std::span<const Token* const> items);

 private:
  int resolve(const Token& item) const;
  void addRange(const std::string& parameter, const Token& from, const Token& to, std::vector<std::string>& names);
  void claim(const std::string& parameter, int column, Span span);

  const Dataset& dataset_;
  std::vector<std::string> parameterNames_;
  std::vector<std::string> subcommandNames_;
  std::map<int, std::string> listedIn_;  // column to parameter
};

}  // namespace workbench
