// Messages to the user. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>

#include "host/edge.h"

class HOST_API ParserMessage {
 public:
  ParserMessage();
  ParserMessage(const ParserMessage&) = delete;
  ParserMessage& operator=(const ParserMessage&) = delete;
  ~ParserMessage();

  void SetCommandName(const std::string& name);
  void SetProcedureTitle(const std::string& title);
  void GenericError(const std::string& text);
  void GenericWarning(const std::string& text);

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
