#include "procedures/common/command_table.h"

#include <utility>

namespace procedures {

namespace {

ParamDescriptor descriptorOf(const Parameter& parameter) {
  ParamDescriptor descriptor(parameter.name, parameter.kind, parameter.required, true, parameter.brackets);
  if (parameter.saysQualification) descriptor.setQualifOption(codes::kUnqualified);
  for (const std::string& keyword : parameter.keywords) descriptor.addStringValue(keyword);
  if (const auto& bound = parameter.lower) descriptor.setLowerBoundary(bound->value, bound->option);
  if (const auto& bound = parameter.upper) descriptor.setUpperBoundary(bound->value, bound->option);
  return descriptor;
}

}  // namespace

Parameter keywordList(const char* name, bool required, std::vector<std::string> keywords) {
  return {.name = name,
          .kind = codes::kKeywordList,
          .required = required,
          .brackets = codes::kSquareBrackets,
          .keywords = std::move(keywords)};
}

SubComDescriptor descriptorOf(const Subcommand& subcommand) {
  SubComDescriptor descriptor(subcommand.name, codes::kSubcommand, false, false);
  if (subcommand.exported) descriptor.setExportParamDesc(codes::kExportedParameters, false);
  for (const Parameter& parameter : subcommand.parameters) descriptor.addParamDesc(descriptorOf(parameter));
  return descriptor;
}

}  // namespace procedures
