#include "workbench/cli/output_names.h"

#include <utility>

namespace workbench {

namespace {

template <class Value>
void complete(Value& given, const Value& otherwise) {
  if (given.empty()) given = otherwise;
}

}  // namespace

OutputNames completed(OutputNames given, const OutputNames& otherwise) {
  for (auto name :
       {&OutputNames::html, &OutputNames::json, &OutputNames::trace, &OutputNames::tables, &OutputNames::charts}) {
    complete(given.*name, otherwise.*name);
  }
  for (auto formats : {&OutputNames::tableFormats, &OutputNames::chartFormats})
    complete(given.*formats, otherwise.*formats);
  for (auto text : {&OutputNames::title, &OutputNames::author, &OutputNames::note})
    complete(given.*text, otherwise.*text);
  return given;
}

}  // namespace workbench
