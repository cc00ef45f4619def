// Random numbers: published answers, and the distributions they are to have.

#include <boost/math/distributions/normal.hpp>
#include <set>

#include "engine/arithmetic/normal_quantile.h"
#include "engine/arithmetic/philox.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

using ::testing::ElementsAre;

TEST(Philox, AnswersOfItsInventors) {
  const std::uint32_t ones = 0xffffffff;
  EXPECT_THAT(philox({0, 0, 0, 0}, {0, 0}), ElementsAre(0x6627e8d5, 0xe169c58d, 0xbc57ac4c, 0x9b00dbd8));
  EXPECT_THAT(philox({ones, ones, ones, ones}, {ones, ones}),
              ElementsAre(0x408f276d, 0x41c83b0e, 0xa20bc7c6, 0x6d5451fd));
  EXPECT_THAT(philox({0x243f6a88, 0x85a308d3, 0x13198a2e, 0x03707344}, {0xa4093822, 0x299f31d0}),
              ElementsAre(0xd16cfe09, 0x94fdcceb, 0x5001e420, 0x24126ea1));
}

// After 2^34 words of one stream; the words of the stream's number stay.
TEST(RandomStream, CountsOnBeyondThe32BitsOfItsFirstWord) {
  const std::uint32_t ones = 0xffffffff;
  std::array<std::uint32_t, 4> counter = {ones - 1, 7, 3, 4};
  advance(counter);
  EXPECT_THAT(counter, ElementsAre(ones, 7, 3, 4));
  advance(counter);
  EXPECT_THAT(counter, ElementsAre(0, 8, 3, 4));
}

TEST(RandomStream, StreamsAndSeedsAreApart) {
  std::set<std::uint32_t> words;
  for (const std::uint64_t seed : {1ull, 2ull, 1ull << 32}) {
    for (const std::uint64_t stream : {0ull, 1ull, 1ull << 32}) {
      RandomStream random(seed, stream);
      for (int i = 0; i < 100; ++i) words.insert(random.word());
    }
  }
  EXPECT_EQ(words.size(), 900u);
}

TEST(RandomStream, NumbersHaveTheirDistributions) {
  constexpr int kDraws = 200000;
  RandomStream random(7, 3);
  std::vector<double> counts(5);
  double moments[4] = {};
  double tail = 0.0;
  for (int i = 0; i < kDraws; ++i) {
    counts[random.below(5)] += 1.0;
    const double z = random.normal();
    for (int power = 0; power < 4; ++power) moments[power] += std::pow(z, power + 1) / kDraws;
    tail += std::fabs(z) > 3.0 ? 1.0 : 0.0;
  }
  // Five standard errors each: sqrt(1), sqrt(2), sqrt(15), sqrt(96) over sqrt(draws); binomial counts.
  const double error = 5.0 / std::sqrt(kDraws);
  EXPECT_NEAR(moments[0], 0.0, error);
  EXPECT_NEAR(moments[1], 1.0, error * std::sqrt(2.0));
  EXPECT_NEAR(moments[2], 0.0, error * std::sqrt(15.0));
  EXPECT_NEAR(moments[3], 3.0, error * std::sqrt(96.0));
  EXPECT_NEAR(tail, kDraws * 0.0026998, 5.0 * std::sqrt(kDraws * 0.0026998));
  for (const double count : counts) EXPECT_NEAR(count, kDraws / 5, 5.0 * std::sqrt(kDraws * 0.16));
}

TEST(NormalQuantile, AgreesWithBoostInEveryRegion) {
  const boost::math::normal_distribution<long double> normal;
  for (const double p : {1e-300, 1e-30, 1e-12, 1e-11, 1e-3, 0.0749, 0.0751, 0.3, 0.499, 0.6, 0.95, 1 - 1e-10}) {
    EXPECT_TRUE(closeTo(normalQuantile(p),
                        static_cast<double>(boost::math::quantile(normal, static_cast<long double>(p))), 1e-15))
        << p;
  }
  EXPECT_EQ(normalQuantile(0.5), 0.0);
  for (const double x : {1e-300, 1e-5, 0.5, 0.70710678, 0.99999, 1.00001, 3.7, 1e300}) {
    EXPECT_TRUE(closeTo(portableLog(x), std::log(x), 5e-16)) << x;
  }
  // Bits that every machine must give.
  EXPECT_EQ(normalQuantile(0x1.5p-5), -0x1.bd3069b1abb85p+0);
}

}  // namespace
}  // namespace engine
