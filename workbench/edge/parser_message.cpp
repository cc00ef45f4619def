#include "host/parser_message.h"

#include "workbench/edge/session.h"

// The session knows which command it submitted, so the names that a procedure sets are kept but not repeated in texts.
struct ParserMessage::State {
  std::string commandName;
  std::string procedureTitle;
};

ParserMessage::ParserMessage() : state_(std::make_unique<State>()) {}
ParserMessage::~ParserMessage() = default;

void ParserMessage::SetCommandName(const std::string& name) {
  state_->commandName = name;
}
void ParserMessage::SetProcedureTitle(const std::string& title) {
  state_->procedureTitle = title;
}

void ParserMessage::GenericError(const std::string& text) {
  workbench::currentSession().messages.push_back({workbench::Message::Kind::error, text});
}

void ParserMessage::GenericWarning(const std::string& text) {
  workbench::currentSession().messages.push_back({workbench::Message::Kind::warning, text});
}
