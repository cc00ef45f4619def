// A session with a few variables, and a command parsed in it the way a procedure does.

#pragma once

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

#include "host/command_parser.h"
#include "workbench/edge/session.h"

class ParserTest : public testing::Test {
 protected:
  ParserTest() {
    for (const char* name : {"date", "region", "realgdp", "realcons", "realinv", "net exports", "Größe", "to"}) {
      session_.dataset.columns.emplace_back().name = name;
    }
    session_.dataset.columns[0].kind = workbench::ColumnKind::instant;
    session_.dataset.columns[1].kind = workbench::ColumnKind::text;

    ParamDescriptor minLag = parameter("MINLAG", 7);
    minLag.setLowerBoundary(1.0, UPSpecTypes::LowerBdryOptions{1});
    ParamDescriptor maxLag = parameter("MAXLAG", 7);
    maxLag.setLowerBoundary(1.0, UPSpecTypes::LowerBdryOptions{1});
    maxLag.setUpperBoundary(25.0, UPSpecTypes::UpperBdryOptions{2});
    describe("", {});
    describe("MODEL", {parameter("ENDOGENOUS", 16), parameter("EXOGENOUS", 16),
                       parameter("LAG", 5, 3, {"AIC", "BIC", "HQIC"}), minLag, maxLag});
    describe("METHOD", {parameter("TYPE", 5, 3, {"OLS"})});
    describe("SAVE", {parameter("FILE", 23), parameter("PREDICTED", 4), parameter("NRESIDUAL", 4)});
    ParamDescriptor level = parameter("CILEVEL", 8);
    level.setUpperBoundary(100.0, UPSpecTypes::UpperBdryOptions{2});
    describe("AUXILIARY", {level});
    describe("MISSING", {parameter("USERMISSING", 3, 0, {"EXCLUDE", "INCLUDE"})});
  }

  // What getCommandSpecifications returned; the result and the session's messages are of this command only.
  int parse(const std::string& command) {
    session_.commandText = command;
    session_.messages.clear();
    result_ = std::make_unique<CommandSpec>();
    VEXA_TokenSequence tokens(true);
    return UniversalParser(tokens, *result_, description_).getCommandSpecifications();
  }

  // The parameter, null when it or its subcommand is absent.
  const ParamObj* given(const std::string& subcommand, const std::string& parameter) const {
    const SubComObj* found = result_->getSubComObj(subcommand);
    return found == nullptr ? nullptr : found->getParamObj(parameter);
  }

  std::vector<std::string> variables(const std::string& parameter) const {
    std::vector<VexaVarName> names;
    std::vector<std::string> plain;
    const ParamObj* found = given("MODEL", parameter);
    if (found != nullptr && found->getVarList(names)) {
      for (const VexaVarName& name : names) plain.push_back(name.name);
    }
    return plain;
  }

  std::vector<std::string> texts(const std::string& subcommand, const std::string& parameter) const {
    std::vector<std::string> found;
    const ParamObj* object = given(subcommand, parameter);
    if (object != nullptr) object->getStringList(found);
    return found;
  }

  // A text, and whether it was quoted.
  std::pair<std::string, bool> literal(const std::string& subcommand, const std::string& parameter) const {
    std::pair<std::string, bool> found;
    EXPECT_TRUE(given(subcommand, parameter)->getStringOrLiteral(found.first, found.second));
    return found;
  }

  std::string firstMessage() const { return session_.messages.empty() ? "" : session_.messages.front().text; }

  workbench::Session session_;
  workbench::SessionScope scope_{session_};
  CommandDescriptor description_{"VARMODEL"};
  std::unique_ptr<CommandSpec> result_;

 private:
  static ParamDescriptor parameter(const std::string& name, int kind, int brackets = 0,
                                   const std::vector<std::string>& keywords = {}) {
    ParamDescriptor described(name, UPSpecTypes::ParamSpec{kind}, false, true, UPSpecTypes::BracketOptions{brackets});
    for (const std::string& keyword : keywords) described.addStringValue(keyword);
    return described;
  }

  void describe(const std::string& subcommand, const std::vector<ParamDescriptor>& parameters) {
    SubComDescriptor described(subcommand, UPSpecTypes::SubComSpec{1}, false, false);
    for (const ParamDescriptor& each : parameters) described.addParamDesc(each);
    description_.addSubComDesc(described);
  }
};
