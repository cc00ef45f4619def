// Responses and limits from draws, as a run tells them.

#include <algorithm>
#include <cmath>
#include <fstream>
#include <utility>

#include "procedures/vardynamics/analysis/analysis.h"
#include "procedures/vardynamics/data/user_error.h"
#include "tests/vardynamics/run_fixture.h"

namespace vardynamics {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

const std::string kModel = "VARDYNAMICS /MODEL ENDOGENOUS=a b c LAG=2 ";
constexpr double kRounding = 1e-11;

using Cells = std::vector<std::vector<double>>;

void expectScaled(const Cells& seen, const Cells& plain, const std::vector<double>& factors) {
  ASSERT_EQ(seen.size(), plain.size());
  for (std::size_t h = 0; h < seen.size(); ++h) {
    ASSERT_EQ(seen[h].size(), plain[h].size());
    for (std::size_t j = 0; j < seen[h].size(); ++j) {
      const double factor = factors[j * factors.size() / seen[h].size()];
      EXPECT_NEAR(seen[h][j] / factor, plain[h][j], kRounding) << "horizon " << h << ", column " << j;
    }
  }
}

std::vector<double> columnOf(const Cells& cells, std::size_t column) {
  std::vector<double> values;
  for (const auto& row : cells) values.push_back(row[column]);
  return values;
}

// Shocks that come together, so that their order matters.
class ImpulseRun : public RunTest {
 protected:
  void SetUp() override {
    const auto related = relatedSeries(120);
    series_ = {related[0], related[1], engine::noise(5, 120)};
    for (std::size_t t = 0; t < 120; ++t) {
      series_[1][t] += 0.5 * related[0][t];
      series_[2][t] += 0.4 * series_[1][t];
    }
    scale({1, 1, 1});
  }
  void scale(const std::vector<double>& factors) {
    auto scaled = series_;
    for (std::size_t i = 0; i < 3; ++i) {
      for (double& value : scaled[i]) value *= factors[i];
    }
    columns({{"a", scaled[0]}, {"b", scaled[1]}, {"c", scaled[2]}, {"x", engine::noise(7, 120)}});
  }

  std::vector<std::string> responseItems() const {
    std::vector<std::string> names = itemNames();
    std::erase_if(names, [](const std::string& name) { return name.find(" Responses") == std::string::npos; });
    return names;
  }

  std::vector<std::vector<double>> series_;
};

TEST_F(ImpulseRun, DefaultsAreAllTypesButGeneralizedWithDrawnBands) {
  ASSERT_TRUE(run(kModel + "/IMPULSE /PLOT TYPE=[IMPULSE]")) << firstError();
  EXPECT_THAT(responseItems(),
              ElementsAre("Orthogonal Responses - a", "Orthogonal Responses - b", "Orthogonal Responses - c",
                          "Orthogonal Responses Chart", "Reduced Responses - a", "Reduced Responses - b",
                          "Reduced Responses - c", "Reduced Responses Chart"));
  EXPECT_THAT(cells("Orthogonal Responses - a"), SizeIs(21));
  EXPECT_THAT(cells("Orthogonal Responses - a")[0], SizeIs(9));
  EXPECT_THAT(notes("Orthogonal Responses - a"), Contains(StartsWith("Limits from 2000 bootstrap draws, corrected")));
  EXPECT_THAT(notes("Orthogonal Responses - a"),
              Contains(StartsWith("Orthogonal shocks in the order a, b and c: a shock")));
  EXPECT_THAT(notes("Orthogonal Responses - b"), ElementsAre(StartsWith("Size of the shock: one standard deviation")));
  EXPECT_THAT(notes("Model Summary"), Contains(StartsWith("Orthogonal shocks in the order a, b and c: a moves b")));
  ASSERT_TRUE(run("VARDYNAMICS /MODEL ENDOGENOUS=a b EXOGENOUS=x XLAGS=1 LAG=1 /IMPULSE SHOCKS=b x BANDS=NONE"));
  EXPECT_THAT(responseItems(),
              ElementsAre("Orthogonal Responses - b", "Reduced Responses - b", "Exogenous Responses - x"));
  EXPECT_THAT(cells("Exogenous Responses - x")[0], SizeIs(2));  // no limits
  EXPECT_EQ(cells("Exogenous Responses - x")[0][0], cells("Parameters - a")[3][0]);
  ASSERT_TRUE(run("VARDYNAMICS /MODEL ENDOGENOUS=a b EXOGENOUS=x LAG=1 /IMPULSE HORIZON=2"));
  EXPECT_THAT(notes("Model Summary"), Contains(StartsWith("Exogenous series: none moves")));
}

TEST_F(ImpulseRun, TheOrderIsThatOfTheShocksAndNotOfTheModel) {
  const std::string rest = "/IMPULSE TYPE=[ORTHOGONAL] HORIZON=6 CUMULATIVE=c BANDS=ANALYTIC ";
  ASSERT_TRUE(run(kModel + rest));
  const Cells plain = cells("Orthogonal Responses - b");
  ASSERT_TRUE(run("VARDYNAMICS /MODEL ENDOGENOUS=c a b LAG=2 " + rest + "ORDER=a b c"));
  Cells seen = cells("Orthogonal Responses - b");
  for (auto& row : seen) std::rotate(row.begin(), row.begin() + 4, row.end());
  expectScaled(seen, plain, {1});
  EXPECT_EQ(plain[0][0], 0.0);  // none before
  ASSERT_TRUE(run(kModel + rest + "ORDER=b c a"));
  EXPECT_GT(std::fabs(cells("Orthogonal Responses - b")[0][0]), 0.1);
}

TEST_F(ImpulseRun, GeneralizedIsOrthogonalOfTheFirstSeries) {
  ASSERT_TRUE(run(kModel + "/IMPULSE TYPE=[GENERALIZED]"));
  const Cells generalized = cells("Generalized Responses - c");
  ASSERT_TRUE(run(kModel + "/IMPULSE TYPE=[ORTHOGONAL] ORDER=c b a"));
  expectScaled(cells("Orthogonal Responses - c"), generalized, {1});
}

TEST_F(ImpulseRun, UnitsChangeNothingButUnits) {
  const std::string rest = "/IMPULSE TYPE=[ORTHOGONAL REDUCED] HORIZON=5 /FORECAST INTERVAL=BOOTSTRAP HORIZON=3";
  ASSERT_TRUE(run(kModel + rest));
  const Cells orthogonal = cells("Orthogonal Responses - b");
  const Cells reduced = cells("Reduced Responses - b");
  const Cells forecast = cells("Forecast - c");
  for (const auto& notesOf : {"Reduced Responses - b", "Orthogonal Responses - c"}) {
    EXPECT_THAT(notes(notesOf), Contains(StartsWith("Size of the shock")));
  }
  scale({1e-6, 1e3, 1e6});
  ASSERT_TRUE(run(kModel + rest));
  expectScaled(cells("Orthogonal Responses - b"), orthogonal, {1e-6, 1e3, 1e6});
  expectScaled(cells("Reduced Responses - b"), reduced, {1e-9, 1, 1e3});
  expectScaled(cells("Forecast - c"), forecast, {1e6});
}

TEST_F(ImpulseRun, SizesAndSumsAreTakenInsideTheDraws) {
  ASSERT_TRUE(run(kModel + "/IMPULSE TYPE=[ORTHOGONAL] SIZE=UNIT HORIZON=4"));
  EXPECT_THAT(cells("Orthogonal Responses - b")[0], ElementsAre(0, 0, 0, 1, 1, 1, testing::_, testing::_, testing::_));
  EXPECT_THAT(notes("Orthogonal Responses - b"), ElementsAre("Size of the shock: one unit of b."));
  const Cells plain = cells("Orthogonal Responses - b");
  ASSERT_TRUE(run(kModel + "/IMPULSE TYPE=[ORTHOGONAL] SIZE=UNIT HORIZON=4 CUMULATIVE=ALL"));
  const Cells summed = cells("Orthogonal Responses - b");
  EXPECT_THAT(item("Orthogonal Responses - b")["columns"][1]["label"].GetString(), std::string("b, summed"));
  EXPECT_THAT(notes("Orthogonal Responses - a"), Contains(HasSubstr("up to each: a, b and c.")));
  double sum = 0.0;
  double lowerLimits = 0.0;
  for (std::size_t h = 0; h < plain.size(); ++h) {
    sum += plain[h][3];
    lowerLimits += plain[h][4];
    EXPECT_NEAR(summed[h][3], sum, kRounding);
  }
  EXPECT_GT(summed.back()[4], lowerLimits + 0.01);  // limits of sums are no sums of limits
}

TEST_F(ImpulseRun, DrawsFollowTheirSettings) {
  const std::string rest = "/IMPULSE TYPE=[ORTHOGONAL] HORIZON=4 ";
  const auto bands = [&](const std::string& options) {
    EXPECT_TRUE(run(kModel + rest + options)) << firstError();
    return cells("Orthogonal Responses - a");
  };
  const Cells plain = bands("");
  EXPECT_EQ(bands("/BOOTSTRAP SEED=1 REPLICATIONS=2000"), plain);
  EXPECT_NE(bands("/BOOTSTRAP SEED=2"), plain);
  // Of normal shocks, wild draws make the variance vary three times as much.
  const Cells wild = bands("RESAMPLE=WILD");
  EXPECT_GT(wild[0][2] - wild[0][1], 1.3 * (plain[0][2] - plain[0][1]));
  EXPECT_THAT(notes("Orthogonal Responses - a"), Contains(StartsWith("RESAMPLE=WILD:")));
  const Cells whole = bands("SIMULTANEOUS=YES");
  EXPECT_THAT(notes("Orthogonal Responses - a"), Contains(StartsWith("A band holds the whole path")));
  const Cells nested = bands("/AUXILIARY CILEVEL=95 68");
  for (std::size_t h = 0; h < plain.size(); ++h) {
    EXPECT_LT(whole[h][1], plain[h][1]);
    EXPECT_GT(whole[h][2], plain[h][2]);
    EXPECT_TRUE(nested[h][3] == plain[h][1] && nested[h][1] > nested[h][3] && nested[h][2] < nested[h][4]);
  }
}

// Far from zero and along a trend.
TEST_F(ImpulseRun, FutureAndResponsesShareTheDraws) {
  for (std::size_t t = 0; t < 120; ++t) series_[0][t] += 50.0 + 0.2 * static_cast<double>(t);
  scale({1, 1, 1});
  const std::string model = kModel + "DETERMINISTIC=TREND ";
  ASSERT_TRUE(run(model + "/FORECAST INTERVAL=BOOTSTRAP HORIZON=6 /PLOT TYPE=[FORECAST]"));
  const Cells drawn = cells("Forecast - a");
  EXPECT_THAT(drawn[0], SizeIs(3));  // no standard error
  ASSERT_TRUE(run(model + "/FORECAST HORIZON=6"));
  const Cells analytic = cells("Forecast - a");
  EXPECT_EQ(columnOf(drawn, 0), columnOf(analytic, 0));
  for (std::size_t h = 0; h < drawn.size(); ++h) {
    const double width = analytic[h][3] - analytic[h][2];
    EXPECT_NEAR(drawn[h][1], analytic[h][2], 0.15 * width);
    EXPECT_NEAR(drawn[h][2], analytic[h][3], 0.15 * width);
  }
  ASSERT_TRUE(run(model + "/FORECAST INTERVAL=BOOTSTRAP HORIZON=6 SIMULTANEOUS=YES /IMPULSE"));
  EXPECT_LT(cells("Forecast - a")[0][1], drawn[0][1]);
  EXPECT_THAT(notes("Forecast - a"), Contains(StartsWith("The limits hold the whole path")));
}

// Neither the number of threads nor watching changes a bit; what is stopped throws and gives nothing.
TEST(Draws, AreTheSameOnAnyNumberOfThreads) {
  Settings settings;
  settings.model.endogenous.names = {"a", "b"};
  settings.model.lag = 1;
  settings.impulse = ImpulseSettings{.reduced = false, .exogenous = false, .horizon = 6, .shocks = {0, 1}};
  settings.forecast = ForecastSettings{.interval = Interval::bootstrap};
  const Observations observations{.sample = {.cases = {0, 99}, .endogenous = relatedSeries(100)}, .horizon = 3};
  const Analysis one = analyse(settings, observations);
  double share = 0.0;
  const auto follow = [&](double done) {
    share = done;
    return true;
  };
  const Analysis three = analyse(settings, observations, {.jobs = 3, .progress = follow});
  EXPECT_EQ(share, 1.0);
  for (std::size_t h = 0; h <= 6; ++h) {
    EXPECT_EQ(one.impulse[0].bands[0].lower[h].values, three.impulse[0].bands[0].lower[h].values);
  }
  EXPECT_EQ(one.forecast->limits(95).upper.values, three.forecast->limits(95).upper.values);
  bool drawn = false;
  const auto stopBands = [&](double done) { return !std::exchange(drawn, drawn || done == 1.0); };
  EXPECT_THROW(analyse(settings, observations, {.progress = stopBands}), Stopped);
  bool asked = false;
  const auto stopDraws = [&](double) { return std::exchange(asked, true); };
  EXPECT_THROW(analyse(settings, observations, {.progress = stopDraws}), Stopped);
}

// Refused by a number, which is then not refused.
TEST(Draws, NeedNoMoreMemoryThanThereIs) {
  engine::FittedVar fit;
  fit.coefficients = engine::Matrix(3, 10);
  Settings settings;
  settings.impulse = ImpulseSettings{.horizon = 1000};
  settings.bootstrap.replications = kMostReplications;
  std::string message;
  try {
    requireMemory(settings, fit, 0);
  } catch (const UserError& error) {
    message = error.what();
  }
  const std::size_t place = message.find("Give REPLICATIONS=");
  ASSERT_NE(place, std::string::npos) << message;
  settings.bootstrap.replications = std::stoi(message.substr(place + 18));
  EXPECT_EQ(settings.bootstrap.replications, 176'486);  // 2^32 bytes over 8 * 3 (10 + 3 + 1001)
  EXPECT_NO_THROW(requireMemory(settings, fit, 0));
  settings.impulse->horizon = 20;
  settings.bootstrap.replications = kMostReplications;
  EXPECT_NO_THROW(requireMemory(settings, fit, 0));
}

// A random walk beside two stationary series.
TEST_F(ImpulseRun, NotesTellOfUnstableDrawsAndNarrowLimits) {
  ASSERT_TRUE(run(kModel + "/IMPULSE BANDS=ANALYTIC"));
  EXPECT_THAT(notes("Orthogonal Responses - a"), Contains(HasSubstr("too narrow beyond short horizons")));
  EXPECT_THAT(notes("Orthogonal Responses - a"), Not(Contains(HasSubstr("bootstrap draws"))));
  const std::vector<double> steps = engine::noise(9, 120);
  const auto notesOfWalk = [&](double drift) {
    for (std::size_t t = 1; t < 120; ++t) series_[0][t] = series_[0][t - 1] + drift + 0.5 * steps[t];
    scale({1, 1, 1});
    EXPECT_TRUE(run(kModel + "/IMPULSE TYPE=[ORTHOGONAL] HORIZON=8"));
    return notes("Orthogonal Responses - a");
  };
  EXPECT_THAT(notesOfWalk(0.0), Contains(HasSubstr("kept without correction: ")));
  const auto drifting = notesOfWalk(0.3);
  EXPECT_THAT(drifting, Contains(HasSubstr("not corrected for bias, since a root of the model")));
  EXPECT_THAT(drifting, Contains(StartsWith("With a root near one")));
}

TEST_F(ImpulseRun, WildDrawsAreAdvisedWhereTheVarianceChanges) {
  const std::string rest = "/TESTS TYPE=[ARCH] /IMPULSE TYPE=[ORTHOGONAL] HORIZON=2 ";
  const auto advice = Contains(HasSubstr("RESAMPLE=WILD gives limits for"));
  ASSERT_TRUE(run(kModel + rest));
  EXPECT_THAT(notes("Orthogonal Responses - a"), Not(advice));
  for (std::size_t t = 1; t < 120; ++t) series_[2][t] *= std::sqrt(0.2 + 2.0 * std::pow(series_[2][t - 1], 2));
  scale({1, 1, 1});
  ASSERT_TRUE(run(kModel + rest));
  EXPECT_THAT(notes("Orthogonal Responses - a"), advice);
  ASSERT_TRUE(run(kModel + rest + "RESAMPLE=WILD"));
  EXPECT_THAT(notes("Orthogonal Responses - a"), Not(advice));
}

TEST_F(ImpulseRun, ResponsesOutsideTheirBandAreNamed) {
  ASSERT_TRUE(run(kModel + "/IMPULSE TYPE=[ORTHOGONAL] HORIZON=12 CUMULATIVE=ALL /AUXILIARY CILEVEL=10"));
  std::string outside;
  const Cells table = cells("Orthogonal Responses - a");
  for (std::size_t i = 0; i < 3; ++i) {
    std::string horizons;
    for (std::size_t h = 0; h < table.size(); ++h) {
      const double* one = table[h].data() + 3 * i;
      if (one[0] < one[1] || one[0] > one[2]) horizons += (horizons.empty() ? "" : ", ") + std::to_string(h);
    }
    const std::string name(1, static_cast<char>('a' + i));
    if (!horizons.empty()) outside += (outside.empty() ? "" : "; ") + name + " at " + horizons;
  }
  ASSERT_FALSE(outside.empty());
  EXPECT_THAT(notes("Orthogonal Responses - a"), Contains("Responses outside their 10 % band: " + outside +
                                                          ". The band is corrected for bias, the least-squares "
                                                          "response is not."));
}

TEST_F(ImpulseRun, SavedShocksMakeTheResiduals) {
  ASSERT_TRUE(run(kModel + "/IMPULSE TYPE=[ORTHOGONAL] BANDS=NONE HORIZON=1 ORDER=b a c "
                           "/SAVE FILE='shocks.csv' RESIDUALS SHOCKS"))
      << firstError();
  std::ifstream file(folder.path() / "shocks.csv");
  std::string line;
  std::getline(file, line);
  EXPECT_THAT(line, HasSubstr("a_residual,a_shock,b_residual,b_shock,c_residual,c_shock"));
  Cells impact;
  for (const std::string name : {"a", "b", "c"}) impact.push_back(cells("Orthogonal Responses - " + name)[0]);
  std::vector<double> squares(3);
  std::size_t rows = 0;
  while (std::getline(file, line)) {
    std::vector<double> values;
    std::istringstream fields(line + ",");
    for (std::string field; std::getline(fields, field, ',');) values.push_back(field.empty() ? NAN : std::stod(field));
    if (std::isnan(values.back())) continue;
    const double* one = values.data() + values.size() - 6;
    for (std::size_t i = 0; i < 3; ++i) {
      const double made = impact[0][i] * one[1] + impact[1][i] * one[3] + impact[2][i] * one[5];
      EXPECT_NEAR(made, one[2 * i], 1e-12);
      squares[i] += one[2 * i + 1] * one[2 * i + 1];
    }
    ++rows;
  }
  EXPECT_EQ(rows, 118U);
  for (const double sum : squares) EXPECT_NEAR(sum, 111.0, 1e-9);  // n - m
}

}  // namespace
}  // namespace vardynamics
