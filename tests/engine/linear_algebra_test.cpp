#include <gtest/gtest.h>

#include "engine/linear_algebra/cholesky.h"
#include "engine/linear_algebra/dense_algebra.h"
#include "engine/linear_algebra/lu.h"
#include "engine/linear_algebra/orthonormal_basis.h"
#include "engine/linear_algebra/symmetric_eigen.h"
#include "tests/engine/numeric_support.h"

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
  EXPECT_THAT(multiply(a, inverse).values, elementsNear(identity.values, 1e-11));
}

TEST(InvertMatrix, RefusesSingularAndOblongLeavingTheResult) {
  Matrix result = matrixOf({{7}});
  EXPECT_FALSE(invertMatrix(matrixOf({{1, 2}, {1, 2}}), result));
  EXPECT_FALSE(invertMatrix(matrixOf({{1, 2}}), result));
  EXPECT_FALSE(invertCrossProduct(matrixOf({{1, 2}}), result));
  EXPECT_THAT(result.values, ElementsAre(7));
  // X'X = (2 3; 3 5).
  ASSERT_TRUE(invertCrossProduct(matrixOf({{1, 1}, {1, 2}}), result));
  EXPECT_THAT(result.values, elementsNear({5, -3, -3, 2}, kRounding));
}

TEST(Cholesky, TextbookFactorInAnyUnitsAndRefusals) {
  const auto l = choleskyFactor(matrixOf({{4, -1, -1}, {12, 37, -1}, {-16, -43, 98}})).value();  // the lower triangle
  EXPECT_THAT(l.values, elementsNear({2, 0, 0, 6, 1, 0, -8, 5, 3}, kRounding));
  Matrix b = matrixOf({{2}, {7}, {0}});
  solveLower(l, b);
  EXPECT_THAT(b.values, elementsNear({1, 1, 1}, kRounding));
  b = matrixOf({{0}, {6}, {3}});
  solveLowerTransposed(l, b);
  EXPECT_THAT(b.values, elementsNear({1, 1, 1}, kRounding));
  const Matrix full = matrixOf({{4, 12, -16}, {12, 37, -43}, {-16, -43, 98}});
  EXPECT_THAT(multiply(full, inverseFromCholesky(l)).values, elementsNear(identityMatrix(3).values, 1e-11));
  EXPECT_TRUE(choleskyFactor(matrixOf({{1e-300, 0}, {0, 1e300}})));
  EXPECT_FALSE(choleskyFactor(matrixOf({{1, 1}, {1, 1}})));
  EXPECT_FALSE(choleskyFactor(matrixOf({{std::nan("")}})));
}

TEST(SymmetricEigen, KeepsTheDigitsOfSmallValues) {
  // Grading by 1e-10: the determinant 1e-20 (1 - 0.25) tells the small eigenvalue.
  const SymmetricEigen eigen = symmetricEigen(matrixOf({{1, 0.5e-10}, {0.5e-10, 1e-20}}));
  EXPECT_NEAR(std::min(eigen.values[0], eigen.values[1]) / 0.75e-20, 1.0, 1e-12);
  const SymmetricEigen three = symmetricEigen(matrixOf({{1, 0.2, 0.2}, {0.2, 1, 0.2}, {0.2, 0.2, 1}}));
  EXPECT_THAT(three.values, ::testing::UnorderedPointwise(::testing::DoubleNear(kRounding), {1.4, 0.8, 0.8}));
  EXPECT_THAT(multiplyTransposed(three.vectors, three.vectors).values,
              elementsNear(identityMatrix(3).values, kRounding));
}

TEST(OrthonormalBasis, StaysOrthonormalAndRefusesDependentColumns) {
  OrthonormalBasis basis;
  const std::vector<double> first = {1, 1e8, 0, 0};
  ASSERT_TRUE(basis.append(first));
  ASSERT_TRUE(basis.append(std::vector<double>{1, 1e8, 1, 0}));  // an angle of 1e-8
  ASSERT_TRUE(basis.append(std::vector<double>{1e-9, 0, 0, 0}));
  EXPECT_FALSE(basis.append(std::vector<double>{3, 3e8, 7, 0}));
  EXPECT_FALSE(basis.append(std::vector<double>(4, 0.0)));
  const SeriesList vectors = {basis[0], basis[1], basis[2]};
  EXPECT_THAT(columnProducts(vectors, vectors).values, elementsNear(identityMatrix(3).values, kRounding));
  std::vector<double> rest = {5, 6, 7, 8};
  basis.removeFrom(rest);
  EXPECT_THAT(rest, elementsNear({0, 0, 0, 8}, 1e-13));
}

}  // namespace
}  // namespace engine
