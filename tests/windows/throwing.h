// What the two sides of the test of exceptions know of each other.

#pragma once

enum Kind { kOwnError, kNoMemory, kNumber, kRethrow };

#if defined(throwing_EXPORTS)
extern "C" __declspec(dllimport) void throwFromHost(int kind);
#else
extern "C" __declspec(dllexport) void throwFromHost(int kind);
#endif
