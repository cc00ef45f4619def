#include "host/procedure.h"

#include <utility>

struct BpProcedure::State {
  std::string title;
};

BpProcedure::BpProcedure(std::string title, int /*kind*/) : state_(new State{std::move(title)}) {}
BpProcedure::~BpProcedure() = default;

const std::string& BpProcedure::title() const {
  return state_->title;
}
