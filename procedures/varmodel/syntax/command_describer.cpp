#include "procedures/varmodel/syntax/command_describer.h"

#include <array>
#include <exception>
#include <iostream>

#include "procedures/common/command_table.h"
#include "procedures/common/trace.h"
#include "procedures/varmodel/syntax/command_identity.h"
#include "procedures/varmodel/syntax/keyword_flags.h"

namespace varmodel {
namespace {

using codes::kLowerBoundOfFirstKind;
using codes::kLowerBoundOfSecondKind;
using codes::kUpperBoundOfSecondKind;
using procedures::Bound;
using procedures::keywordList;
using procedures::keywordsOf;
using procedures::Subcommand;

std::array<Subcommand, 8> syntaxTable() {
  return {{
      {.name = ""},
      {.name = "MISSING",
       .exported = true,
       .parameters = {{.name = "USERMISSING", .kind = codes::kKeyword, .keywords = {"EXCLUDE", "INCLUDE"}}}},
      {.name = "MODEL",
       .parameters = {{.name = "ENDOGENOUS", .kind = codes::kVariableList, .required = true},
                      {.name = "EXOGENOUS", .kind = codes::kVariableList},
                      keywordList("LAG", true, keywordsOf(kLagFlags)),
                      {.name = "MINLAG", .kind = codes::kNumber, .lower = Bound{1.0, kLowerBoundOfFirstKind}},
                      {.name = "MAXLAG",
                       .kind = codes::kNumber,
                       .required = true,
                       .lower = Bound{1.0, kLowerBoundOfFirstKind},
                       .upper = Bound{25.0, kUpperBoundOfSecondKind}}}},
      {.name = "METHOD", .exported = true, .parameters = {keywordList("TYPE", true, {"OLS"})}},
      {.name = "MODELSTATISTICS",
       .exported = true,
       .parameters = {keywordList("MODELFIT", true, keywordsOf(kModelFitFlags))}},
      {.name = "SERIESPLOT", .exported = true, .parameters = {keywordList("PLOT", false, keywordsOf(kPlotFlags))}},
      {.name = "SAVE",
       .parameters = {{.name = "FILE", .kind = codes::kFileName, .required = true, .saysQualification = false},
                      {.name = "PREDICTED", .kind = codes::kOptionalName},
                      {.name = "NRESIDUAL", .kind = codes::kOptionalName}}},
      {.name = "AUXILIARY",
       .exported = true,
       .parameters = {{.name = "CILEVEL",
                       .kind = codes::kNumber,
                       .lower = Bound{0.0, kLowerBoundOfSecondKind},
                       .upper = Bound{100.0, kUpperBoundOfSecondKind}}}},
  }};
}

constexpr std::array<unsigned, 8> kRegistrationOrder = {0, 2, 3, 4, 5, 6, 7, 1};

}  // namespace

VARCommandDescriber::VARCommandDescriber(CommandDescriptor* commandDescriptor) : commandDescriptor_(commandDescriptor) {
  identify(parserMessage_, kIdentity);
}

std::int32_t VARCommandDescriber::describeCommand() {
  try {
    for (const unsigned index : kRegistrationOrder) {
      if (const std::int32_t result = setSubCommandDescription(index); result != 0) return result;
    }
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "VARCommandDescriber: Standard exception: " << procedures::OneLine{error.what()} << '\n';
  } catch (...) {
    std::cerr << "VARCommandDescriber: Unknown exception occurred.\n";
  }
  return 1;
}

std::int32_t VARCommandDescriber::setSubCommandDescription(unsigned index) {
  static const std::array<Subcommand, 8> kTable = syntaxTable();
  if (index >= kTable.size()) {
    std::cerr << "Error: VARCommandDescriber::setSubCommandDescription - Unknown sub-command\n";
    return 1;
  }
  commandDescriptor_->addSubComDesc(descriptorOf(kTable[index]));
  return 0;
}

}  // namespace varmodel
