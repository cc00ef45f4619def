// Which column depends on which, when a regression has collinear regressors.

#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

namespace engine {

struct ColumnDependence {
  std::size_t column = 0;            // the first that is a linear combination of columns before it
  std::vector<std::size_t> on = {};  // those with a part in it, ascending; none for a column that does not vary
};

// Columns of equal length in any units; with a constant each is taken about its mean, a column that does not vary is
// then a multiple of the constant. A column depends on those before it when they leave less than 1e-7 of its length,
// which is where the cross-products of the columns are singular in doubles; one of them has a part in it when its term
// is above 1e-6 of that length. Nothing when no column depends on others so closely.
std::optional<ColumnDependence> findDependence(std::span<const std::vector<double>> columns, bool constant);

}  // namespace engine
