// The plug-in edge: what every header in this folder takes for granted.
//
//  1. Direction. A procedure includes these headers and nothing else of a host. A host implements every class below;
//     a procedure is a shared library whose undefined symbols the host resolves when it loads it.
//  2. Entry. A procedure exports one symbol, a C function named like its command (`VARMODEL`), taking nothing and
//     returning nothing. A host makes the submitted command, the active dataset and the session's settings current,
//     calls it, and takes results from its own implementations of these classes.
//  3. Ownership. Whoever constructs an object destroys it. A pointer or reference received from a host object stays the
//     host's and lives as long as that object, unless its comment says otherwise; nothing is freed across the edge.
//  4. Strings are UTF-8 in std::string, may hold any byte but are never null; a host copies what it keeps.
//  5. Numbers are IEEE 754 binary64. The system-missing value is the most negative finite one (-DBL_MAX). Integers with
//     a meaning of their own (kinds, levels, units) have their names in codes.h.
//  6. Indexes and case offsets count from 0 unless a comment says otherwise.
//  7. Errors. An operation that returns bool returns false for "could not be done" and then leaves its outputs
//     untouched. Host operations may throw std::exception; a procedure lets none of them leave its entry.
//  8. Threads. Everything happens on the thread that called the entry; no host object is shared between threads.
//     The one exception is the report of progress (long_work.h), which a host may lack.
//  9. Life time. Objects that a procedure makes live inside one call of its entry; a host keeps no pointer to them.
// 10. Layout. A host class shows its operations alone. Its state is one pointer to a type that the host defines, and
//     only the host's HostAccess reaches it; so both sides may be built apart, as far as 11 goes.
// 11. What both sides share, since C++ types cross the edge: the compiler's C++ ABI and the standard library (one
//     compiler family, one setting of _GLIBCXX_USE_CXX11_ABI, or one runtime and _ITERATOR_DEBUG_LEVEL), run-time type
//     information and exceptions on, and one RapidJSON (1.1) with the macros of json_document.h (assertions that throw,
//     RAPIDJSON_HAS_STDSTRING, default allocators and no 48-bit pointer switch): a document that one side made is read,
//     changed and freed by the other.
// 12. How a procedure finds the host's classes. ELF (Linux): they stay undefined in the procedure's library; the host
//     shows its own symbols to what it loads (linked with -rdynamic) and loads with RTLD_NOW, so that a missing one
//     fails at once. PE (Windows): nothing may stay undefined, so the procedure is linked against the import library
//     that the host's build leaves (its .lib or .dll.a), which names the host's program or DLL.

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

struct HostAccess;  // defined by a host alone: its way to the state that its classes hide
