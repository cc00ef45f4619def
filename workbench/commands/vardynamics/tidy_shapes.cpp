#include "workbench/commands/vardynamics/tidy_shapes.h"

namespace workbench::vardynamics {

namespace {

TidyShape responses(std::string_view id, std::string_view type) {
  return {.id = id,
          .file = "responses",
          .subject = "shock",
          .rows = "horizon",
          .groups = "response",
          .mark = "type",
          .marked = type};
}

// The standard error of the forecast stands before the shares.
TidyShape shares(std::string_view id, std::string_view type) {
  return {.id = id,
          .file = "shares",
          .subject = "response",
          .rows = "horizon",
          .groups = "shock",
          .shared = 1,
          .mark = "type",
          .marked = type};
}

TidyShape tests(std::string_view id, std::string_view test, std::string_view groups = "") {
  return {.id = id, .file = "tests", .rows = "term", .groups = groups, .mark = "test", .marked = test};
}

}  // namespace

std::vector<TidyShape> tidyShapes() {
  return {
      {.id = "parameters", .file = "coefficients", .subject = "equation", .rows = "term"},
      {.id = "forecast", .file = "forecasts", .subject = "response", .rows = "period"},
      {.id = "forecast", .file = "forecasts", .rows = "period", .groups = "response"},
      responses("orthogonal-responses", "orthogonal"),
      responses("generalized-responses", "generalized"),
      responses("reduced-responses", "reduced"),
      responses("exogenous-responses", "exogenous"),
      shares("variance-decomposition", "orthogonal"),
      shares("generalized-variance-decomposition", "generalized"),
      shares("normalised-generalized-decomposition", "normalised"),
      tests("granger-causality", "granger", "response"),
      tests("granger-causality-on-all-others", "granger-on-all-others"),
      tests("instantaneous-causality", "instantaneous"),
      tests("portmanteau-test", "portmanteau"),
      tests("lm-test", "lm", "form"),
      tests("arch-test", "arch"),
      tests("normality-tests", "normality"),
      tests("condition", "condition"),
  };
}

}  // namespace workbench::vardynamics
