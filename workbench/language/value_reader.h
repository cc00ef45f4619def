// Values of parameters, by kind.

#pragma once

#include <string_view>

#include "workbench/language/command_description.h"
#include "workbench/language/parsed_command.h"
#include "workbench/language/token_cursor.h"
#include "workbench/language/variable_list.h"

namespace workbench {

// Reads what stands after the equals sign of a parameter and checks it against the description. `name` is the token of
// the parameter's name, for messages. Throws SyntaxError.
ParsedParameter readValue(TokenCursor& cursor, const ParameterDescription& parameter, const Token& name,
                          std::string_view source, VariableLists& variables);

}  // namespace workbench
