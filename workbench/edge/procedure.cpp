#include "host/procedure.h"

// The session knows which procedure it called.
struct BpProcedure::State {};

BpProcedure::BpProcedure(std::string /*title*/, int /*kind*/) {}
BpProcedure::~BpProcedure() = default;
