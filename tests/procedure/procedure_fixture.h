// One submitted command over a dataset in memory: what a test gives, what it runs, and what it looks at.

#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "host/command_parser.h"
#include "host/data_source.h"
#include "syntax/input_settings.h"
#include "workbench/session/session.h"

namespace varmodel {

// Diverts a standard stream into a text for its life time.
class StreamText {
 public:
  explicit StreamText(std::ostream& stream) : stream_(stream), previous_(stream.rdbuf(text_.rdbuf())) {}
  StreamText(const StreamText&) = delete;
  StreamText& operator=(const StreamText&) = delete;
  ~StreamText() { stream_.rdbuf(previous_); }
  std::vector<std::string> lines() const;

 private:
  std::ostream& stream_;
  std::ostringstream text_;
  std::streambuf* previous_;
};

// A command that the parser accepted, and the record that its handlers fill.
struct ParsedCommand {
  explicit ParsedCommand(int& parserResult);

  ProcedureDataSource dataSource;
  CommandDescriptor descriptor{"VARMODEL"};
  CommandSpec spec;
  VARInputSettings settings{&spec, &descriptor, &dataSource};
};

class ProcedureTest : public testing::Test {
 protected:
  // Given: a dataset, column by column. The first column decides how many cases there are.
  workbench::Column& number(const std::string& name, const std::vector<double>& values);
  workbench::Column& text(const std::string& name, const std::vector<std::string>& values, int width);
  // Quarters from 1990Q`firstQuarter` on, as date variables YEAR_ and QUARTER_.
  void quarters(int firstQuarter = 1);
  void predictThruQuarter(double year, double quarter);
  void predictThruCase(long caseNumber);  // 0: through the end

  // When: the command is parsed and its handlers run (the parser must accept it), or the whole procedure runs.
  VARInputSettings& validate(const std::string& commandText);
  void runProcedure(const std::string& commandText);

  // Then.
  std::vector<std::string> messages(workbench::Message::Kind kind) const;
  std::vector<std::string> errors() const { return messages(workbench::Message::Kind::error); }
  std::vector<std::string> warnings() const { return messages(workbench::Message::Kind::warning); }

  workbench::Session session;
  StreamText out{std::cout};
  StreamText err{std::cerr};
  std::unique_ptr<ParsedCommand> parsed;
  std::int32_t status = -1;  // of VARInputSettings::start

 private:
  workbench::SessionScope scope_{session};
};

std::vector<std::string> labelTexts(const TimeAxis& axis);

// n values without pattern, the same for equal seeds.
std::vector<double> noise(std::size_t n, unsigned seed);

}  // namespace varmodel
