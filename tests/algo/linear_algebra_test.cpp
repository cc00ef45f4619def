#include <gtest/gtest.h>

#include "algo/condition.h"
#include "algo/lu.h"
#include "algo/products.h"
#include "tests/algo/numeric_support.h"
#include "tests/algo/plain_least_squares.h"

namespace varmodel {
namespace {

using ::testing::ElementsAre;

TEST(Products, GiveHandComputedValues) {
  const Matrix a = matrixOf({{1, 2}, {3, 4}, {5, 6}});
  const Matrix b = matrixOf({{1, 0, 2}, {0, 1, 3}, {1, 1, 1}});
  EXPECT_THAT(product(b, a).values, ElementsAre(11, 14, 18, 22, 9, 12));
  EXPECT_THAT(crossProduct(a, b).values, ElementsAre(6, 8, 16, 8, 10, 22));
  EXPECT_THAT(crossProduct(a).values, ElementsAre(35, 44, 44, 56));
}

// The order of a sum decides its last bits: blocks of rows and the symmetric half must not change it.
TEST(Products, AddRowsInOrderWhateverTheBlocking) {
  Matrix x(101, 7);
  x.values = noise(3, x.values.size());
  const Matrix cross = crossProduct(x);
  for (std::size_t i = 0; i < x.columns; ++i) {
    for (std::size_t j = 0; j < x.columns; ++j) {
      double sum = 0.0;
      for (std::size_t r = 0; r < x.rows; ++r) sum += x(r, i) * x(r, j);
      EXPECT_EQ(cross(i, j), sum);
    }
  }
  EXPECT_EQ(cross.values, crossProduct(x, x).values);
}

TEST(Lu, KeepsTheTextbookFactorsAndPivots) {
  // Column 0: row 2 (6) is the pivot; then 2 - 1/3 * 6 = 0 and 4 - 2/3 * 6 = 0 leave their rows' remainders.
  const LuFactors factors = factorizeLu(matrixOf({{2, 1, 4}, {4, 5, 1}, {6, 3, 6}}));
  EXPECT_THAT(factors.pivotRow, ElementsAre(2, 1, 2));
  EXPECT_THAT(factors.lu.values, elementsNear({6, 3, 6, 2.0 / 3, 3, -3, 1.0 / 3, 0, 2}, kRounding));
  EXPECT_FALSE(factors.singular);
}

TEST(Lu, TakesTheFirstOfEqualPivots) {
  EXPECT_THAT(factorizeLu(matrixOf({{1, 2}, {-1, 5}})).pivotRow, ElementsAre(0, 1));
}

struct DeterminantCase {
  SeriesList rows;
  double expected;
};

TEST(Determinant, KnownValues) {
  const std::vector<DeterminantCase> cases = {
      {{}, 0.0},
      {{{5}}, 5.0},
      {{{0, 1}, {1, 0}}, -1.0},
      {{{1, 2}, {1, 2}}, 0.0},
      {{{1, 2, 3}, {4, 5, 6}}, 0.0},
      {{{2, 1, 4}, {4, 5, 1}, {6, 3, 6}}, -36.0},
      // Two interchanges cancel: the cyclic permutation matrix.
      {{{0, 1, 0}, {0, 0, 1}, {1, 0, 0}}, 1.0},
      // Hilbert 3 x 3: 1/2160.
      {{{1, 1.0 / 2, 1.0 / 3}, {1.0 / 2, 1.0 / 3, 1.0 / 4}, {1.0 / 3, 1.0 / 4, 1.0 / 5}}, 1.0 / 2160},
  };
  for (const DeterminantCase& one : cases) EXPECT_NEAR(determinant(one.rows), one.expected, kRounding * 100);
}

TEST(InvertMatrix, KnownInverses) {
  Matrix result;
  ASSERT_TRUE(invertMatrix(matrixOf({{0, 1}, {1, 0}}), result));
  EXPECT_THAT(result.values, ElementsAre(0, 1, 1, 0));
  // The inverse of the 3 x 3 Hilbert matrix is integer (condition number 524).
  ASSERT_TRUE(invertMatrix(matrixOf({{1, 1.0 / 2, 1.0 / 3}, {1.0 / 2, 1.0 / 3, 1.0 / 4}, {1.0 / 3, 1.0 / 4, 1.0 / 5}}),
                           result));
  EXPECT_THAT(result.values, elementsNear({9, -36, 30, -36, 192, -180, 30, -180, 180}, 1e-10));
  // An inverse of a matrix that needs interchanges in two columns: a wrong order of them shows.
  ASSERT_TRUE(invertMatrix(matrixOf({{0, 2, 0}, {0, 0, 4}, {5, 0, 0}}), result));
  EXPECT_THAT(result.values, ElementsAre(0, 0, 0.2, 0.5, 0, 0, 0, 0.25, 0));
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
  EXPECT_THAT(product(inverse, a).values, elementsNear(identity.values, 1e-11));
}

TEST(InvertMatrix, RefusesSingularAndOblongLeavingTheResult) {
  Matrix result = matrixOf({{7}});
  EXPECT_FALSE(invertMatrix(matrixOf({{1, 2}, {1, 2}}), result));
  EXPECT_FALSE(invertMatrix(matrixOf({{1, 2}}), result));
  EXPECT_FALSE(invertCrossProduct(Matrix(3, 4), result));
  EXPECT_FALSE(invertCrossProduct(Matrix(0, 2), result));
  EXPECT_FALSE(invertCrossProduct(Matrix(2, 0), result));
  EXPECT_FALSE(invertCrossProduct(matrixOf({{1, 1}, {1, 1}, {1, 1}}), result));
  EXPECT_THAT(result.values, ElementsAre(7));
}

TEST(InvertCrossProduct, InvertsTheGramMatrixAndReturnsIt) {
  Matrix result;
  Matrix gram;
  ASSERT_TRUE(invertCrossProduct(matrixOf({{1, 0}, {1, 1}, {1, 2}}), result, &gram));
  EXPECT_THAT(gram.values, ElementsAre(3, 3, 3, 5));
  EXPECT_THAT(result.values, elementsNear({5.0 / 6, -0.5, -0.5, 0.5}, kRounding));
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

TEST(ReciprocalCondition, FindsATotalBesideItsParts) {
  Matrix x(200, 4);
  for (std::size_t r = 0; r < x.rows; ++r) {
    const double first = 100.0 + noise(2 * r + 1, 1)[0];
    const double second = 40.0 + noise(2 * r + 2, 1)[0];
    std::ranges::copy(std::vector<double>{1.0, first, second, first + second}, x.row(r).begin());
  }
  EXPECT_EQ(classifyCondition(conditionOf(x), x.columns), Conditioning::singular);
}

TEST(ClassifyCondition, Bounds) {
  EXPECT_EQ(classifyCondition(1e-12, 10), Conditioning::sound);
  EXPECT_EQ(classifyCondition(0.99e-12, 10), Conditioning::poor);
  EXPECT_EQ(classifyCondition(2.3e-15, 10), Conditioning::poor);
  EXPECT_EQ(classifyCondition(2.1e-15, 10), Conditioning::singular);
  EXPECT_EQ(classifyCondition(std::nan(""), 10), Conditioning::poor);
}

}  // namespace
}  // namespace varmodel
