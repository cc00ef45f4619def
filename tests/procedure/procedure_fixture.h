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
#include "procedures/varmodel/syntax/command_describer.h"
#include "procedures/varmodel/syntax/input_settings.h"
#include "workbench/edge/session.h"

namespace varmodel {

// Diverts a standard stream into a text for its life time.
class StreamText {
 public:
  explicit StreamText(std::ostream& stream) : stream_(stream), previous_(stream.rdbuf(text_.rdbuf())) {}
  StreamText(const StreamText&) = delete;
  StreamText& operator=(const StreamText&) = delete;
  ~StreamText() { stream_.rdbuf(previous_); }
  std::vector<std::string> lines() const {
    std::vector<std::string> lines;
    std::istringstream text(text_.str());
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    return lines;
  }

 private:
  std::ostream& stream_;
  std::ostringstream text_;
  std::streambuf* previous_;
};

// A command that the parser accepted, and the record that its handlers fill.
struct ParsedCommand {
  ProcedureDataSource dataSource;
  CommandDescriptor descriptor{"VARMODEL"};
  CommandSpec spec;
  VARInputSettings settings{&spec, &descriptor, &dataSource};
};

class ProcedureTest : public testing::Test {
 protected:
  // Given: a dataset, column by column. The first column decides how many cases there are.
  workbench::Column& number(const std::string& name, const std::vector<double>& values) {
    workbench::Column& column = session.dataset.columns.emplace_back();
    column.name = name;
    column.numbers = values;
    session.dataset.rowCount = values.size();
    return column;
  }
  void text(const std::string& name, const std::vector<std::string>& values, int width) {
    workbench::Column& column = session.dataset.columns.emplace_back();
    column.name = name;
    column.kind = workbench::ColumnKind::text;
    column.texts = values;
    column.textWidth = width;
  }

  // When: the command is parsed and its handlers run. The parser must accept it.
  VARInputSettings& validate(const std::string& commandText) {
    session.commandText = commandText;
    parsed = std::make_unique<ParsedCommand>();
    EXPECT_EQ(VARCommandDescriber(&parsed->descriptor).describeCommand(), 0);
    VEXA_TokenSequence tokens(true);
    status = UniversalParser(tokens, parsed->spec, parsed->descriptor).getCommandSpecifications();
    EXPECT_EQ(status, 0) << commandText << testing::PrintToString(errors());
    if (status == 0) status = parsed->settings.start();
    return parsed->settings;
  }

  // Then.
  std::vector<std::string> messages(workbench::Message::Kind kind) const {
    std::vector<std::string> texts;
    for (const workbench::Message& message : session.messages) {
      if (message.kind == kind) texts.push_back(message.text);
    }
    return texts;
  }
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

}  // namespace varmodel
