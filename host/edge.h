// The plug-in edge: what every header in this folder takes for granted.
//
//  1. Direction. The procedure includes these headers and nothing else of a host. A host implements every class below;
//     the procedure is a shared library whose undefined symbols the host resolves when it loads it.
//  2. Entry. The procedure exports one symbol, the C function `VARMODEL`, taking nothing and returning nothing. A host
//     makes the submitted command, the active dataset and the session's settings current, calls it, and takes results
//     from its own implementations of these classes.
//  3. Ownership. Whoever constructs an object destroys it. A pointer or reference received from a host object stays the
//     host's and lives as long as that object, unless its comment says otherwise; nothing is freed across the edge.
//  4. Strings are UTF-8 in std::string, may hold any byte but are never null; a host copies what it keeps.
//  5. Numbers are IEEE 754 binary64. The system-missing value is the most negative finite one (-DBL_MAX).
//  6. Indexes and case offsets count from 0 unless a comment says otherwise.
//  7. Errors. An operation that returns bool returns false for "could not be done" and then leaves its outputs
//  untouched.
//     Host operations may throw std::exception; the procedure lets none of them leave `VARMODEL`.
//  8. Threads. Everything happens on the thread that called `VARMODEL`; no host object is shared between threads.
//  9. Life time. Objects that the procedure makes live inside one call of `VARMODEL`; a host keeps no pointer to them.
// 10. Layout. A host class shows its operations and one pointer to hidden state, so that both sides may be built apart
//     (with one compiler and standard library: the edge passes C++ types).

#pragma once

#if defined(_WIN32)
#if defined(VARMODEL_BUILDING_HOST)
#define HOST_API __declspec(dllexport)
#else
#define HOST_API __declspec(dllimport)
#endif
#define PROCEDURE_EXPORT extern "C" __declspec(dllexport)
#else
#define HOST_API __attribute__((visibility("default")))
#define PROCEDURE_EXPORT extern "C" __attribute__((visibility("default")))
#endif
