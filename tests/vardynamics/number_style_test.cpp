// Numbers as sentences tell them.

#include "procedures/vardynamics/output/number_style.h"

#include <gtest/gtest.h>

namespace vardynamics {
namespace {

TEST(NumberStyle, AProbabilityIsShownOnItsSideOfTheLevel) {
  struct Case {
    double p;
    double level;
    const char* shown;
  };
  for (const auto& [p, level, shown] : {Case{0.0499, 0.05, "= 0.0499"},
                                        {0.049996, 0.05, "= 0.049996"},
                                        {0.0501, 0.05, "= 0.0501"},
                                        {0.05, 0.05, "= 0.05"},
                                        {0.0502, 0.1, "= 0.05"},
                                        {0.0999, 0.1, "= 0.0999"},
                                        {0.1352, 0.05, "= 0.14"},
                                        {3.61e-8, 0.05, "= 3.6e-08"},
                                        {0.9999, 0.05, "> 0.99"},
                                        {0.0, 0.05, "< 1e-300"}}) {
    EXPECT_EQ(probabilityText(p, level), shown) << p << " at " << level;
  }
}

}  // namespace
}  // namespace vardynamics
