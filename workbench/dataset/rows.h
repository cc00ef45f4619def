// Choosing and ordering the rows of a dataset.

#pragma once

#include <cstddef>
#include <span>

#include "workbench/dataset/dataset.h"

namespace workbench {

inline constexpr std::size_t kEmptyRow = static_cast<std::size_t>(-1);

// The dataset's rows become these, in this order; kEmptyRow stands for one without any value.
void takeRows(Dataset& dataset, std::span<const std::size_t> rows);

}  // namespace workbench
