#include <gtest/gtest.h>

#include "engine/linear_algebra/condition.h"
#include "engine/linear_algebra/lu.h"
#include "tests/engine/numeric_support.h"
#include "tests/engine/plain_least_squares.h"

namespace engine {
namespace {

using ::testing::ElementsAre;

TEST(Lu, TextbookFactorsAndTheFirstOfEqualPivots) {
  // Column 0: row 2 (6) is the pivot; then 2 - 1/3 * 6 = 0 and 4 - 2/3 * 6 = 0 leave their rows' remainders.
  const LuFactors factors = factorizeLu(matrixOf({{2, 1, 4}, {4, 5, 1}, {6, 3, 6}}));
  EXPECT_THAT(factors.pivotRow, ElementsAre(2, 1, 2));
  EXPECT_THAT(factors.lu.values, elementsNear({6, 3, 6, 2.0 / 3, 3, -3, 1.0 / 3, 0, 2}, kRounding));
  EXPECT_FALSE(factors.singular);
  EXPECT_THAT(factorizeLu(matrixOf({{1, 2}, {-1, 5}})).pivotRow, ElementsAre(0, 1));
}

TEST(Determinant, KnownValues) {
  const std::vector<std::pair<SeriesList, double>> cases = {
      {{}, 0.0},
      {{{5}}, 5.0},
      {{{0, 1}, {1, 0}}, -1.0},
      {{{1, 2}, {1, 2}}, 0.0},
      {{{2, 1, 4}, {4, 5, 1}, {6, 3, 6}}, -36.0},
      // Two interchanges cancel: the cyclic permutation matrix.
      {{{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}, 1.0},
      // Hilbert 3 x 3: 1/2160.
      {{{1, 1.0 / 2, 1.0 / 3}, {1.0 / 2, 1.0 / 3, 1.0 / 4}, {1.0 / 3, 1.0 / 4, 1.0 / 5}}, 1.0 / 2160},
  };
  for (const auto& [rows, expected] : cases) EXPECT_NEAR(determinant(rows), expected, kRounding * 100);
}

TEST(InvertMatrix, TimesTheMatrixIsTheIdentity) {
  Matrix a(30, 30);
  a.values = noise(11, a.values.size());
  Matrix inverse;
  ASSERT_TRUE(invertMatrix(a, inverse));
  Matrix identity(30, 30);
  for (std::size_t i = 0; i < 30; ++i) identity(i, i) = 1.0;
  // The condition number of this matrix is some hundreds.
  EXPECT_THAT(product(a, inverse).values, elementsNear(identity.values, 1e-11));
}

TEST(InvertMatrix, RefusesSingularAndOblongLeavingTheResult) {
  Matrix result = matrixOf({{7}});
  EXPECT_FALSE(invertMatrix(matrixOf({{1, 2}, {1, 2}}), result));
  EXPECT_FALSE(invertMatrix(matrixOf({{1, 2}}), result));
  EXPECT_THAT(result.values, ElementsAre(7));
}

double conditionOf(const Matrix& x) {
  Matrix inverse;
  Matrix gram;
  EXPECT_TRUE(invertCrossProduct(x, inverse, &gram));
  return reciprocalCondition(gram, inverse);
}

TEST(ReciprocalCondition, IsOneForOrthogonalRegressorsInAnyUnits) {
  EXPECT_NEAR(conditionOf(matrixOf({{1, 1e6}, {1, -1e6}})), 1.0, kRounding);
  // Correlation c between two regressors: ((1 - c) / (1 + c)); here c = 3 / sqrt(15).
  const double c = 3.0 / std::sqrt(15.0);
  EXPECT_NEAR(conditionOf(matrixOf({{1, 0}, {1, 1}, {1, 2}})), (1 - c) / (1 + c), kRounding);
  EXPECT_NEAR(conditionOf(matrixOf({{1, 0}, {1, 1e-7}, {1, 2e-7}})), (1 - c) / (1 + c), kRounding);
}

TEST(ClassifyCondition, Bounds) {
  EXPECT_EQ(classifyCondition(1e-12, 10), Conditioning::sound);
  EXPECT_EQ(classifyCondition(0.99e-12, 10), Conditioning::poor);
  EXPECT_EQ(classifyCondition(2.3e-15, 10), Conditioning::poor);
  EXPECT_EQ(classifyCondition(2.1e-15, 10), Conditioning::singular);
  EXPECT_EQ(classifyCondition(std::nan(""), 10), Conditioning::poor);
}

}  // namespace
}  // namespace engine
