// What the unit-root tests say of a series: each outcome once, and no verdict beyond the table of KPSS.

#include "tests/vardynamics/run_fixture.h"

namespace vardynamics {
namespace {

using testing::AllOf;
using testing::EndsWith;
using testing::HasSubstr;
using testing::SizeIs;
using testing::StartsWith;

const std::string kCommand = "VARDYNAMICS /MODEL ENDOGENOUS=calm walk drifting LAG=1 ";

class UnitRootSentences : public RunTest {
 protected:
  // Noise; a sum of noise that drifts; noise about a level that rises slowly.
  void SetUp() override { give(200); }

  void give(std::size_t length) {
    const std::vector<double> calm = engine::noise(1, length);
    std::vector<double> walk = engine::noise(2, length);
    std::vector<double> drifting = engine::noise(3, length);
    for (std::size_t t = 1; t < length; ++t) walk[t] += walk[t - 1] + 0.1;
    for (std::size_t t = 0; t < length; ++t) drifting[t] += 0.003 * static_cast<double>(t);
    columns({{"calm", calm}, {"walk", walk}, {"drifting", drifting}});
  }
  std::vector<std::string> said(const std::string& more = "") {
    EXPECT_TRUE(run(kCommand + "/TESTS TYPE=[UNITROOT] " + more)) << firstError();
    return notes("Unit Root Tests");
  }
};

TEST_F(UnitRootSentences, OneASeriesByBothTests) {
  const auto sentences = said();
  ASSERT_THAT(sentences, SizeIs(4));
  EXPECT_THAT(sentences[0], AllOf(StartsWith("calm looks stationary around a constant: ADF rejects a unit root (p = "),
                                  EndsWith("), KPSS does not reject stationarity (p ≥ 0.1).")));
  EXPECT_THAT(sentences[1], AllOf(StartsWith("walk looks as if it had a unit root: ADF does not reject one (p "),
                                  EndsWith("), KPSS rejects stationarity around a constant (p ≤ 0.01).")));
  EXPECT_THAT(sentences[2], StartsWith("The tests disagree about drifting: ADF rejects a unit root (p = "));
  EXPECT_THAT(cells("Unit Root Tests"), SizeIs(6));
}

// Around what the model has.
TEST_F(UnitRootSentences, AroundATrendInAModelWithTrend) {
  ASSERT_TRUE(run(kCommand + "DETERMINISTIC=TREND /TESTS TYPE=[UNITROOT]"));
  EXPECT_THAT(notes("Unit Root Tests")[2], StartsWith("drifting looks stationary around a trend: "));
}

TEST_F(UnitRootSentences, NoVerdictWhereTheTableOfKpssEnds) {
  EXPECT_THAT(said("/AUXILIARY CILEVEL=80")[0],
              AllOf(StartsWith("ADF rejects a unit root of calm around a constant (p = "),
                    EndsWith("); KPSS has no verdict at this level (p ≥ 0.1).")));
  EXPECT_THAT(said("/AUXILIARY CILEVEL=99.5")[1], AllOf(StartsWith("ADF does not reject a unit root of walk"),
                                                        EndsWith("no verdict at this level (p ≤ 0.01).")));
  EXPECT_THAT(said("/AUXILIARY CILEVEL=99")[1], HasSubstr("KPSS rejects stationarity"));
  EXPECT_THAT(said("/AUXILIARY CILEVEL=90")[0], HasSubstr("KPSS does not reject stationarity"));
}

TEST_F(UnitRootSentences, AShortSampleLeavesItOpen) {
  give(24);
  EXPECT_THAT(said()[1], StartsWith("walk may have a unit root or be stationary around a constant: ADF does not "));
}

}  // namespace
}  // namespace vardynamics
