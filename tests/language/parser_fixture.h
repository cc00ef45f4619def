// A session with the variables date, region, realgdp, realcons, realinv, "net exports", Größe and to, and a command
// parsed in it the way a procedure does.

#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/command_parser.h"
#include "workbench/session/session.h"

class ParserTest : public testing::Test {
 protected:
  ParserTest();

  // What getCommandSpecifications returned; the result and the session's messages are of this command only.
  int parse(const std::string& command);
  // The parameter, null when it or its subcommand is absent.
  const ParamObj* given(const std::string& subcommand, const std::string& parameter) const;
  std::vector<std::string> variables(const std::string& parameter) const;
  std::vector<std::string> texts(const std::string& subcommand, const std::string& parameter) const;
  std::string onlyMessage() const;

  workbench::Session session_;
  workbench::SessionScope scope_{session_};
  CommandDescriptor description_{"VARMODEL"};
  std::unique_ptr<CommandSpec> result_;
};
