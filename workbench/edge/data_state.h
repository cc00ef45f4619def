// What the host's dataset classes hide from the procedure.

#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

#include "host/case_input.h"
#include "host/data_source.h"
#include "workbench/dataset/dataset.h"
#include "workbench/edge/host_access.h"

// A variable of a dataset that is being written may be changed, one of the active dataset may not.
struct VEXA_Variable::State {
  workbench::StateOf<VEXA_DataSource>* source = nullptr;
  std::size_t column = 0;
};

// The active dataset of the session, or one of its own that is being written.
struct VEXA_DataSource::State {
  workbench::Dataset* dataset = nullptr;
  bool active = false;
  bool closed = false;   // and takes no more cases
  bool spoiled = false;  // a variable was refused: what is written would be incomplete
  workbench::Dataset own;
  std::vector<std::unique_ptr<VEXA_Variable>> variables;  // made when first asked for
  VEXA_TrendsInfo trends;
};

struct ACAVarValidSpecs::State {
  struct Variable {
    std::size_t column;
    bool excludeUserMissing;
  };
  std::vector<Variable> variables;
};
