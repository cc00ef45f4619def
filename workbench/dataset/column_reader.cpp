#include "workbench/dataset/column_reader.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

#include "workbench/base/errors.h"

namespace workbench {

namespace {

using Type = ColumnReader::Type;
using Values = ColumnReader::Values;
using Append = ColumnReader::Append;

bool isValid(const Values& values, idx_t row) {
  return values.validity == nullptr || (values.validity[row / 64] >> (row % 64) & 1) != 0;
}

template <class Stored, class Result, class Convert>
void appendValues(const Values& values, std::vector<Result>& target, const Result& missing, Convert convert) {
  const auto* stored = static_cast<const Stored*>(values.data);
  const std::size_t start = target.size();
  target.resize(start + values.count);
  for (idx_t row = 0; row < values.count; ++row) {
    target[start + row] = isValid(values, row) ? convert(stored[row]) : missing;
  }
}

// Numbers.

double toDouble(duckdb_hugeint value) {
  return duckdb_hugeint_to_double(value);
}
double toDouble(duckdb_uhugeint value) {
  return duckdb_uhugeint_to_double(value);
}
template <class Number>
double toDouble(Number value) {
  return static_cast<double>(value);
}

template <class Stored>
void appendNumbers(const Type&, const Values& values, Column& column) {
  appendValues<Stored>(values, column.numbers, kSystemMissing, [](Stored value) {
    const double number = toDouble(value);
    return std::isnan(number) ? kSystemMissing : number;
  });
}

// Integer and power of ten are exact up to 2^53 and 10^22, so that one division gives the nearest double.
template <class Stored>
void appendDecimals(const Type& type, const Values& values, Column& column) {
  appendValues<Stored>(values, column.numbers, kSystemMissing,
                       [&type](Stored value) { return toDouble(value) / type.scale; });
}

Append decimalAppend(duckdb_type internalType) {
  switch (internalType) {
    case DUCKDB_TYPE_SMALLINT:
      return appendDecimals<std::int16_t>;
    case DUCKDB_TYPE_INTEGER:
      return appendDecimals<std::int32_t>;
    case DUCKDB_TYPE_BIGINT:
      return appendDecimals<std::int64_t>;
    default:
      return appendDecimals<duckdb_hugeint>;
  }
}

// Texts.

std::string_view view(const duckdb_string_t& text) {
  const bool inlined = duckdb_string_is_inlined(text);
  return inlined ? std::string_view(text.value.inlined.inlined, text.value.inlined.length)
                 : std::string_view(text.value.pointer.ptr, text.value.pointer.length);
}

// The stored integer is the number of the UUID with its highest bit flipped.
std::string uuidText(duckdb_hugeint stored) {
  static constexpr std::string_view kDigits = "0123456789abcdef";
  const std::array<std::uint64_t, 2> halves{static_cast<std::uint64_t>(stored.upper) ^ (std::uint64_t{1} << 63),
                                            stored.lower};
  std::string text;
  for (unsigned digit = 0; digit < 32; ++digit) {
    if (digit == 8 || digit == 12 || digit == 16 || digit == 20) text += '-';
    text += kDigits[halves[digit / 16] >> (60 - 4 * (digit % 16)) & 15];
  }
  return text;
}

void appendTexts(const Type&, const Values& values, Column& column) {
  appendValues<duckdb_string_t>(values, column.texts, std::string(),
                                [](const duckdb_string_t& text) { return std::string(view(text)); });
}

void appendUuids(const Type&, const Values& values, Column& column) {
  appendValues<duckdb_hugeint>(values, column.texts, std::string(), uuidText);
}

template <class Stored>
void appendEnumTexts(const Type& type, const Values& values, Column& column) {
  appendValues<Stored>(values, column.texts, std::string(), [&type](Stored code) { return type.dictionary[code]; });
}

Append enumAppend(duckdb_type internalType) {
  switch (internalType) {
    case DUCKDB_TYPE_UTINYINT:
      return appendEnumTexts<std::uint8_t>;
    case DUCKDB_TYPE_USMALLINT:
      return appendEnumTexts<std::uint16_t>;
    default:
      return appendEnumTexts<std::uint32_t>;
  }
}

std::vector<std::string> enumDictionary(duckdb_logical_type type) {
  std::vector<std::string> dictionary(duckdb_enum_dictionary_size(type));
  for (idx_t i = 0; i < dictionary.size(); ++i) {
    char* word = duckdb_enum_dictionary_value(type, i);
    dictionary[i] = word;
    duckdb_free(word);
  }
  return dictionary;
}

// Instants. Infinite ones, and those outside 64-bit microseconds, are missing.

template <class Stored, std::int64_t microsecondsPerUnit>
std::int64_t scaledInstant(Stored units) {
  constexpr Stored infinite = std::numeric_limits<Stored>::max();
  constexpr std::int64_t largest = std::numeric_limits<std::int64_t>::max() / microsecondsPerUnit;
  if (units == infinite || units == -infinite || units > largest || units < -largest) return kMissingInstant;
  return units * microsecondsPerUnit;
}

std::int64_t fromNanoseconds(std::int64_t nanoseconds) {
  constexpr std::int64_t infinite = std::numeric_limits<std::int64_t>::max();
  if (nanoseconds == infinite || nanoseconds == -infinite) return kMissingInstant;
  return nanoseconds / 1000 - (nanoseconds % 1000 < 0 ? 1 : 0);
}

template <class Stored, std::int64_t microsecondsPerUnit>
void appendInstants(const Type&, const Values& values, Column& column) {
  appendValues<Stored>(values, column.instants, kMissingInstant, scaledInstant<Stored, microsecondsPerUnit>);
}

void appendNanoseconds(const Type&, const Values& values, Column& column) {
  appendValues<std::int64_t>(values, column.instants, kMissingInstant, fromNanoseconds);
}

// Types.

struct Rule {
  duckdb_type type;
  ColumnKind kind;
  Append append;
};

constexpr std::int64_t kSecond = 1'000'000;
constexpr std::int64_t kDay = 86'400 * kSecond;

constexpr Rule kRules[] = {
    {DUCKDB_TYPE_BOOLEAN, ColumnKind::number, appendNumbers<bool>},
    {DUCKDB_TYPE_TINYINT, ColumnKind::number, appendNumbers<std::int8_t>},
    {DUCKDB_TYPE_SMALLINT, ColumnKind::number, appendNumbers<std::int16_t>},
    {DUCKDB_TYPE_INTEGER, ColumnKind::number, appendNumbers<std::int32_t>},
    {DUCKDB_TYPE_BIGINT, ColumnKind::number, appendNumbers<std::int64_t>},
    {DUCKDB_TYPE_UTINYINT, ColumnKind::number, appendNumbers<std::uint8_t>},
    {DUCKDB_TYPE_USMALLINT, ColumnKind::number, appendNumbers<std::uint16_t>},
    {DUCKDB_TYPE_UINTEGER, ColumnKind::number, appendNumbers<std::uint32_t>},
    {DUCKDB_TYPE_UBIGINT, ColumnKind::number, appendNumbers<std::uint64_t>},
    {DUCKDB_TYPE_HUGEINT, ColumnKind::number, appendNumbers<duckdb_hugeint>},
    {DUCKDB_TYPE_UHUGEINT, ColumnKind::number, appendNumbers<duckdb_uhugeint>},
    {DUCKDB_TYPE_FLOAT, ColumnKind::number, appendNumbers<float>},
    {DUCKDB_TYPE_DOUBLE, ColumnKind::number, appendNumbers<double>},
    {DUCKDB_TYPE_DECIMAL, ColumnKind::number, nullptr},  // by the decimal's width
    {DUCKDB_TYPE_VARCHAR, ColumnKind::text, appendTexts},
    {DUCKDB_TYPE_UUID, ColumnKind::text, appendUuids},
    {DUCKDB_TYPE_ENUM, ColumnKind::text, nullptr},  // by the enumeration's size
    {DUCKDB_TYPE_DATE, ColumnKind::instant, appendInstants<std::int32_t, kDay>},
    {DUCKDB_TYPE_TIMESTAMP, ColumnKind::instant, appendInstants<std::int64_t, 1>},
    {DUCKDB_TYPE_TIMESTAMP_TZ, ColumnKind::instant, appendInstants<std::int64_t, 1>},
    {DUCKDB_TYPE_TIMESTAMP_S, ColumnKind::instant, appendInstants<std::int64_t, kSecond>},
    {DUCKDB_TYPE_TIMESTAMP_MS, ColumnKind::instant, appendInstants<std::int64_t, 1000>},
    {DUCKDB_TYPE_TIMESTAMP_NS, ColumnKind::instant, appendNanoseconds},
};

}  // namespace

ColumnReader::ColumnReader(duckdb_logical_type type, const std::string& name) {
  const duckdb_type id = duckdb_get_type_id(type);
  const auto* rule = std::find_if(std::begin(kRules), std::end(kRules), [id](const Rule& r) { return r.type == id; });
  if (rule == std::end(kRules)) {
    throw DataError("data.column-type",
                    "column \"^1\" holds neither numbers, text, dates nor timestamps. Leave it out or cast it in a "
                    "query, for instance SELECT * EXCLUDE (\"^1\") FROM source.",
                    name);
  }
  kind_ = rule->kind;
  append_ = rule->append;
  if (id == DUCKDB_TYPE_DECIMAL) {
    append_ = decimalAppend(duckdb_decimal_internal_type(type));
    type_.scale = std::pow(10.0, duckdb_decimal_scale(type));
  } else if (id == DUCKDB_TYPE_ENUM) {
    append_ = enumAppend(duckdb_enum_internal_type(type));
    type_.dictionary = enumDictionary(type);
  }
}

void ColumnReader::append(duckdb_vector vector, idx_t count, Column& column) const {
  column.kind = kind_;
  append_(type_, {duckdb_vector_get_data(vector), duckdb_vector_get_validity(vector), count}, column);
}

}  // namespace workbench
