#include "tests/recording/recording_host.h"

#include <algorithm>
#include <stdexcept>

#include "host/command_syntax.h"
#include "host/parser_message.h"
#include "host/procedure.h"
#include "tests/recording/operation.h"

namespace recording {
namespace {

Host* inUse = nullptr;

}  // namespace

Host::Host() {
  inUse = this;
}
Host::~Host() {
  inUse = nullptr;
}
Host& current() {
  return *inUse;
}

void counted(const char* operation) {
  if (++inUse->callCount != inUse->failingCall) return;
  inUse->failedOperation = operation;
  if (inUse->throwsNumber) throw 1;
  throw std::runtime_error("host");
}

Object::~Object() {
  const Spared spared;
  std::vector<std::string>& living = inUse->living;
  inUse->calls.push_back("~" + name_);
  if (living.back() != name_) inUse->destroyedOutOfOrder.push_back(name_);
  living.erase(std::find(living.rbegin(), living.rend(), name_).base() - 1);
}

}  // namespace recording

using recording::counted;
using recording::current;
using recording::noted;
using recording::textOf;

// ---- procedure.h, parser_message.h

OBJECT(BpProcedure)
BpProcedure::BpProcedure(std::string title, int kind) : state_(new State("BpProcedure", title, kind)) {}

OBJECT(ParserMessage)
ParserMessage::ParserMessage() : state_(new State("ParserMessage")) {}
NOTES(void, ParserMessage, SetCommandName(const std::string& name), void(), "SetCommandName", name)
NOTES(void, ParserMessage, SetProcedureTitle(const std::string& title), void(), "SetProcedureTitle", title)
void ParserMessage::GenericError(const std::string& text) {
  counted("GenericError");
  current().messages.push_back("error: " + text);
}
void ParserMessage::GenericWarning(const std::string& text) {
  counted("GenericWarning");
  current().messages.push_back("warning: " + text);
}

// ---- command_syntax.h: a descriptor is the text of what it was told, one line a parameter

struct ParamDescriptor::State {
  std::string text;
  void add(const char* operation, const std::string& said) {
    text += ' ' + said;
    counted(operation);
  }
};
ParamDescriptor::ParamDescriptor(std::string name, UPSpecTypes::ParamSpec spec, bool flag1, bool flag2,
                                 UPSpecTypes::BracketOptions brackets)
    : state_(new State{textOf(name.c_str(), int{spec}, flag1, flag2, int{brackets})}) {
  counted("ParamDescriptor");
}
ParamDescriptor::~ParamDescriptor() = default;
void ParamDescriptor::setQualifOption(UPSpecTypes::QualifOptions option) {
  state_->add("setQualifOption", textOf("qualif", int{option}));
}
void ParamDescriptor::addStringValue(const std::string& keyword) {
  state_->add("addStringValue", keyword);
}
void ParamDescriptor::setLowerBoundary(double bound, UPSpecTypes::LowerBdryOptions option) {
  state_->add("setLowerBoundary", textOf("lower", bound, int{option}));
}
void ParamDescriptor::setUpperBoundary(double bound, UPSpecTypes::UpperBdryOptions option) {
  state_->add("setUpperBoundary", textOf("upper", bound, int{option}));
}

struct SubComDescriptor::State {
  std::string text;
};
SubComDescriptor::SubComDescriptor(std::string name, UPSpecTypes::SubComSpec spec, bool flag1, bool flag2)
    : state_(new State{textOf(("/" + name).c_str(), int{spec}, flag1, flag2)}) {
  counted("SubComDescriptor");
}
SubComDescriptor::~SubComDescriptor() = default;
void SubComDescriptor::setExportParamDesc(UPSpecTypes::ParamSpec spec, bool flag) {
  state_->text += ' ' + textOf("export", int{spec}, flag);
  counted("setExportParamDesc");
}
void SubComDescriptor::addParamDesc(const ParamDescriptor& parameter) {
  state_->text += "\n  " + HostAccess::state(parameter).text;
  counted("addParamDesc");
}

OBJECT(CommandDescriptor)
CommandDescriptor::CommandDescriptor(const std::string& commandName)
    : state_(new State("CommandDescriptor", commandName)) {}
void CommandDescriptor::addSubComDesc(const SubComDescriptor& subcommand) {
  current().calls.push_back(HostAccess::state(subcommand).text);
  counted("addSubComDesc");
}
