// Filling a dataset column from the vectors of a DuckDB result.

#pragma once

#include <duckdb.h>

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "workbench/dataset/dataset.h"

namespace workbench {

class ColumnReader {
 public:
  // Numbers of every width, decimals and booleans become 64-bit floats; text, enumerations and UUIDs text; dates and
  // timestamps instants. Throws DataError for any other type.
  ColumnReader(duckdb_logical_type type, const std::string& name);

  void append(duckdb_vector vector, idx_t count, Column& column) const;

  // What converting needs besides the values: facts of the type.
  struct Type {
    double scale = 1;                     // decimals: the power of ten that divides the stored integer
    std::vector<std::string> dictionary;  // enumerations
  };
  // The values of one vector; validity is null when all are valid.
  struct Values {
    const void* data;
    std::uint64_t* validity;
    idx_t count;
  };
  using Append = void (*)(const Type& type, const Values& values, Column& column);

 private:
  Append append_ = nullptr;
  ColumnKind kind_ = ColumnKind::number;
  Type type_;
};

}  // namespace workbench
