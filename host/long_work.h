// Work that takes long: on how many threads, how far it is, and whether to go on. Conventions: edge.h.
//
// A host need not know this. On ELF both functions are weak: in a host that lacks them their addresses are null, and
// the procedure computes on one thread and tells nobody. On PE, where nothing may stay undefined, they are declared for
// procedures that are linked against a host that has them (-DHOST_HAS_LONG_WORK).

#pragma once

#include "host/edge.h"

#if defined(_WIN32) && (defined(VARMODEL_BUILDING_HOST) || defined(HOST_HAS_LONG_WORK))
#define HOST_LONG_WORK
#elif !defined(_WIN32)
#define HOST_LONG_WORK __attribute__((weak))
#endif

#if defined(HOST_LONG_WORK)
// On how many threads the procedure may compute, its caller's among them: at least 1. No result may depend on it.
extern "C" HOST_API HOST_LONG_WORK int HostThreadsAllowed();

// Tells the host that this share (0 to 1) of the present piece of work is done; a smaller share than the last one
// begins another piece. False: stop, and end the run as a failure. Against convention 8 any thread of the procedure's
// may call it, but no two at once.
extern "C" HOST_API HOST_LONG_WORK bool HostReportProgress(double share);
#endif
