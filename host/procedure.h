// The host's object of a running procedure. Conventions: edge.h.

#pragma once

#include <memory>
#include <string>

#include "host/edge.h"

class HOST_API BpProcedure {
 public:
  BpProcedure(std::string title, int kind);
  BpProcedure(const BpProcedure&) = delete;
  BpProcedure& operator=(const BpProcedure&) = delete;
  ~BpProcedure();

 private:
  friend struct HostAccess;
  struct State;
  std::unique_ptr<State> state_;
};
