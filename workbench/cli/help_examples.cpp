#include "workbench/cli/help_examples.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace workbench {
namespace {

struct Examples {
  std::string_view subcommand;
  const char* text;
};

constexpr const char* kProgram = R"(Begin with:
  varmodel describe examples/us_macro_quarterly.csv
  varmodel fit examples/us_macro_quarterly.csv --endogenous realgdp realcons \
    --dates year=year quarter=quarter --predict 8 --html report.html
  varmodel fit --help)";

constexpr std::array<Examples, 5> kExamples = {{
    {"describe", R"(Examples:
  varmodel describe examples/us_macro_quarterly.csv
  varmodel describe examples/monthly_rates.csv --na=n/a,-9999)"},
    {"fit", R"(Examples:
  varmodel fit examples/us_macro_quarterly.csv --endogenous realgdp realcons \
    --dates year=year quarter=quarter --predict 2011Q3 --html report.html
  varmodel fit examples/us_macro_quarterly.csv --endogenous realgdp realinv \
    --dates year=year quarter=quarter --lag 2 --backtest \
    --transform realgdp=dlog*100 realinv=dlog*100 --cumulative all)"},
    {"analyze", R"(Examples:
  varmodel analyze examples/us_macro_quarterly.csv --endogenous realgdp realcons \
    --lag 2 --trend trend --cilevel 68 95
  varmodel analyze examples/monthly_rates.csv --endogenous policy market spread \
    --dates month --seasonal --predict 6 --conditional --html report.html)"},
    {"run", R"(Examples:
  varmodel run examples/us_macro_analyze.toml --html report.html
  varmodel run examples/us_macro.toml --json record.json)"},
    {"check", R"(Example:
  varmodel check examples/us_macro.toml)"},
}};

}  // namespace

void addExamples(CLI::App& program) {
  program.footer(kProgram);
  for (CLI::App* app : program.get_subcommands({})) {
    const auto* found = std::ranges::find(kExamples, app->get_name(), &Examples::subcommand);
    if (found != kExamples.end()) app->footer(found->text);
  }
}

}  // namespace workbench
