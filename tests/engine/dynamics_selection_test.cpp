// The criteria of the selection table against an independent program, whose form leaves out K (1 + ln 2 pi).

#include <numbers>

#include "engine/regression/var_estimation.h"
#include "tests/engine/dynamics_fixture.h"

namespace engine {
namespace {

TEST(LagSelection, AgreesWithAnIndependentProgram) {
  const rapidjson::Document document = reference("us_dlog_lag2");
  const rapidjson::Value& wanted = document["selection_logdet_form_AIC_HQ_SC_FPE"];
  const SeriesList series = growth();
  const VarEstimation estimation = estimateVar({series, {}}, {.minLag = 0, .maxLag = 8});
  const double constant = 3.0 * (1.0 + std::log(2.0 * std::numbers::pi));
  for (rapidjson::SizeType lag = 1; lag <= 8; ++lag) {
    const CriterionValues& values = findLag(estimation, static_cast<std::int32_t>(lag))->criteria;
    const auto of = [&](Criterion criterion) { return values[static_cast<std::size_t>(criterion)]; };
    EXPECT_NEAR(of(Criterion::aic) - constant, wanted[0][lag - 1].GetDouble(), kReference);
    EXPECT_NEAR(of(Criterion::hqic) - constant, wanted[1][lag - 1].GetDouble(), kReference);
    EXPECT_NEAR(of(Criterion::bic) - constant, wanted[2][lag - 1].GetDouble(), kReference);
    EXPECT_NEAR(std::exp(of(Criterion::fpe)), wanted[3][lag - 1].GetDouble(), kReference);
  }
}

}  // namespace
}  // namespace engine
