#include "tests/procedure/procedure_fixture.h"

#include <random>

#include "driver/varmodel_entry.h"
#include "syntax/command_describer.h"

namespace varmodel {

std::vector<std::string> StreamText::lines() const {
  std::vector<std::string> lines;
  std::istringstream text(text_.str());
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

ParsedCommand::ParsedCommand(int& parserResult) {
  EXPECT_EQ(VARCommandDescriber(&descriptor).describeCommand(), 0);
  VEXA_TokenSequence tokens(true);
  parserResult = UniversalParser(tokens, spec, descriptor).getCommandSpecifications();
}

workbench::Column& ProcedureTest::number(const std::string& name, const std::vector<double>& values) {
  workbench::Column& column = session.dataset.columns.emplace_back();
  column.name = name;
  column.numbers = values;
  session.dataset.rowCount = values.size();
  return column;
}

workbench::Column& ProcedureTest::text(const std::string& name, const std::vector<std::string>& values, int width) {
  workbench::Column& column = session.dataset.columns.emplace_back();
  column.name = name;
  column.kind = workbench::ColumnKind::text;
  column.texts = values;
  column.textWidth = width;
  return column;
}

void ProcedureTest::quarters(int firstQuarter) {
  std::vector<double> year;
  std::vector<double> quarter;
  for (std::size_t i = 0; i < session.dataset.rowCount; ++i) {
    const std::size_t period = i + static_cast<std::size_t>(firstQuarter) - 1;
    year.push_back(1990.0 + static_cast<double>(period / 4));
    quarter.push_back(1.0 + static_cast<double>(period % 4));
  }
  const int firstColumn = static_cast<int>(session.dataset.columns.size());
  number("YEAR_", year);
  number("QUARTER_", quarter);
  session.trends.dateVariables = {{firstColumn, 2, 0}, {firstColumn + 1, 3, 4}};
}

void ProcedureTest::predictThruQuarter(double year, double quarter) {
  session.trends.predictSet = true;
  session.trends.predictIsDate = true;
  session.trends.dateVariables.at(0).predictThru = year;
  session.trends.dateVariables.at(1).predictThru = quarter;
}

void ProcedureTest::predictThruCase(long caseNumber) {
  session.trends.predictSet = true;
  session.trends.predictCase = caseNumber;
}

VARInputSettings& ProcedureTest::validate(const std::string& commandText) {
  session.commandText = commandText;
  int parserResult = -1;
  parsed = std::make_unique<ParsedCommand>(parserResult);
  EXPECT_EQ(parserResult, 0) << commandText << testing::PrintToString(errors());
  if (parserResult == 0) status = parsed->settings.start();
  return parsed->settings;
}

void ProcedureTest::runProcedure(const std::string& commandText) {
  session.commandText = commandText;
  VARMODEL();
}

std::vector<std::string> ProcedureTest::messages(workbench::Message::Kind kind) const {
  std::vector<std::string> texts;
  for (const workbench::Message& message : session.messages) {
    if (message.kind == kind) texts.push_back(message.text);
  }
  return texts;
}

std::vector<std::string> labelTexts(const TimeAxis& axis) {
  std::vector<std::string> texts;
  for (const ForecastLabel& label : axis.forecastLabels) texts.push_back(label.text);
  return texts;
}

std::vector<double> noise(std::size_t n, unsigned seed) {
  std::mt19937 generator(seed);
  std::vector<double> values;
  for (std::size_t i = 0; i < n; ++i) values.push_back(static_cast<double>(generator()) / 4294967296.0);
  return values;
}

}  // namespace varmodel
