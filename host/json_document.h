// The JSON document type of the edge: RapidJSON, UTF-8, memory-pool allocator, assertions that throw.

#pragma once

#include <stdexcept>

#ifndef RAPIDJSON_ASSERT
#define RAPIDJSON_ASSERT(condition) \
  ((condition) ? static_cast<void>(0) : throw std::runtime_error("rapidjson exception"))
#define RAPIDJSON_NOEXCEPT_ASSERT(condition) static_cast<void>(0)
#endif
#ifndef RAPIDJSON_HAS_STDSTRING
#define RAPIDJSON_HAS_STDSTRING 1
#endif

#if defined(__GNUC__)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wconversion"
#pragma GCC diagnostic ignored "-Wsign-conversion"
#pragma GCC diagnostic ignored "-Wshadow"
#pragma GCC diagnostic ignored "-Wterminate"
#pragma GCC diagnostic ignored "-Wclass-memaccess"
#pragma GCC diagnostic ignored "-Wdeprecated-declarations"
#endif
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>
#if defined(__GNUC__)
#pragma GCC diagnostic pop
#endif

#if RAPIDJSON_MAJOR_VERSION != 1 || RAPIDJSON_MINOR_VERSION != 1
#error "Documents of RapidJSON 1.1 cross the edge; its memory layout is part of the contract."
#endif
