// The Windows API, with the macros that collide with our names left out.

#pragma once

#if !defined(WIN32_LEAN_AND_MEAN)
#define WIN32_LEAN_AND_MEAN
#endif
#if !defined(NOMINMAX)
#define NOMINMAX
#endif
#include <windows.h>

namespace workbench {

// The errno code of what the last failed call of the API met.
int errnoOfLastError();

}  // namespace workbench
