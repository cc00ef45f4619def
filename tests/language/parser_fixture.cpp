#include "parser_fixture.h"

namespace {

using Keywords = std::vector<std::string>;

ParamDescriptor parameter(const std::string& name, int kind, int brackets = 0, const Keywords& keywords = {}) {
  ParamDescriptor described(name, UPSpecTypes::ParamSpec{kind}, false, true, UPSpecTypes::BracketOptions{brackets});
  for (const std::string& keyword : keywords) described.addStringValue(keyword);
  return described;
}

SubComDescriptor subcommand(const std::string& name, const std::vector<ParamDescriptor>& parameters) {
  SubComDescriptor described(name, UPSpecTypes::SubComSpec{1}, false, false);
  for (const ParamDescriptor& each : parameters) described.addParamDesc(each);
  return described;
}

workbench::Column column(const std::string& name, workbench::ColumnKind kind) {
  workbench::Column made;
  made.name = name;
  made.kind = kind;
  return made;
}

}  // namespace

ParserTest::ParserTest() {
  using enum workbench::ColumnKind;
  session_.dataset.columns = {column("date", instant),    column("region", text),    column("realgdp", number),
                              column("realcons", number), column("realinv", number), column("net exports", number),
                              column("Größe", number),    column("to", number)};

  ParamDescriptor minLag = parameter("MINLAG", 7);
  minLag.setLowerBoundary(1.0, UPSpecTypes::LowerBdryOptions{1});
  ParamDescriptor maxLag = parameter("MAXLAG", 7);
  maxLag.setLowerBoundary(1.0, UPSpecTypes::LowerBdryOptions{1});
  maxLag.setUpperBoundary(25.0, UPSpecTypes::UpperBdryOptions{2});
  description_.addSubComDesc(subcommand("", {}));
  description_.addSubComDesc(subcommand("MODEL", {parameter("ENDOGENOUS", 16), parameter("EXOGENOUS", 16),
                                                  parameter("LAG", 5, 3, {"AIC", "BIC", "HQIC"}), minLag, maxLag}));
  description_.addSubComDesc(subcommand("METHOD", {parameter("TYPE", 5, 3, {"OLS"})}));
  description_.addSubComDesc(
      subcommand("SAVE", {parameter("FILE", 23), parameter("PREDICTED", 4), parameter("NRESIDUAL", 4)}));
  description_.addSubComDesc(subcommand("MISSING", {parameter("USERMISSING", 3, 0, {"EXCLUDE", "INCLUDE"})}));
}

int ParserTest::parse(const std::string& command) {
  session_.commandText = command;
  session_.messages.clear();
  result_ = std::make_unique<CommandSpec>();
  VEXA_TokenSequence tokens(true);
  return UniversalParser(tokens, *result_, description_).getCommandSpecifications();
}

const ParamObj* ParserTest::given(const std::string& subcommand, const std::string& parameter) const {
  const SubComObj* found = result_->getSubComObj(subcommand);
  return found == nullptr ? nullptr : found->getParamObj(parameter);
}

std::vector<std::string> ParserTest::variables(const std::string& parameter) const {
  std::vector<VexaVarName> names;
  const ParamObj* found = given("MODEL", parameter);
  if (found == nullptr || !found->getVarList(names)) return {};
  std::vector<std::string> plain;
  for (const VexaVarName& name : names) plain.push_back(name.name);
  return plain;
}

std::vector<std::string> ParserTest::texts(const std::string& subcommand, const std::string& parameter) const {
  std::vector<std::string> found;
  const ParamObj* object = given(subcommand, parameter);
  if (object == nullptr || !object->getStringList(found)) return {};
  return found;
}

std::string ParserTest::onlyMessage() const {
  return session_.messages.size() == 1 ? session_.messages.front().text
                                       : std::to_string(session_.messages.size()) + " messages";
}
