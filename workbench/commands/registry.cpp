#include "workbench/commands/registry.h"

#include <utility>

#include "workbench/base/errors.h"
#include "workbench/base/suggest.h"
#include "workbench/commands/fit/fit_composer.h"
#include "workbench/commands/vardynamics/vardynamics_command.h"
#include "workbench/commands/varmodel/varmodel_command.h"
#include "workbench/dataset/dataset.h"
#include "workbench/language/lexer.h"

namespace workbench {

namespace {

std::vector<std::unique_ptr<Command>>& registered() {
  static std::vector<std::unique_ptr<Command>> list = [] {
    std::vector<std::unique_ptr<Command>> known;
    known.push_back(std::make_unique<VarmodelCommand>());
    known.push_back(std::make_unique<VardynamicsCommand>());
    return known;
  }();
  return list;
}

std::vector<std::string> names() {
  std::vector<std::string> list;
  for (const auto& command : commands()) list.push_back(command->name());
  return list;
}

}  // namespace

const std::vector<std::unique_ptr<Command>>& commands() {
  return registered();
}

void registerCommand(std::unique_ptr<Command> command) {
  registered().push_back(std::move(command));
}

std::vector<std::unique_ptr<Composer>> composers() {
  std::vector<std::unique_ptr<Composer>> found;
  found.push_back(std::make_unique<FitComposer>());
  for (const auto& command : commands()) {
    if (std::unique_ptr<Composer> composer = command->composer()) found.push_back(std::move(composer));
  }
  return found;
}

const Command& commandOf(std::string_view text) {
  const Token first = lex(text).front();
  for (const auto& command : commands()) {
    if (first.kind == TokenKind::word && sameName(first.text, command->name())) return *command;
  }
  if (first.kind != TokenKind::word) {
    throw UsageError(locatedMessage(
        text, first.span, Notice("syntax.no-command-name", "a command begins with its name: ^1.", listed(names()))));
  }
  throw UsageError(locatedMessage(text, first.span,
                                  Notice("syntax.no-command", "there is no command ^1.", inQuotes(first.text)) +
                                      didYouMeanOrList(first.text, names(), phrase("Commands"))));
}

}  // namespace workbench
