// Trace lines of the output routines.

#pragma once

#include "procedures/common/trace.h"

namespace varmodel {

using procedures::traceLine;

// "Error: VAROutputGen::ROUTINE - TEXT"
inline void traceError(const std::string& routine, const std::string& text) {
  procedures::traceError("VAROutputGen", routine, text);
}

}  // namespace varmodel
