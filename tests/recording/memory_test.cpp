// Memory runs out at every allocation in turn. With EVERY_FAILURE in the environment that is every one of them, else a
// few hundred spread over the run.

#include <gmock/gmock.h>

#include <algorithm>
#include <cstdlib>
#include <iterator>

#include "procedures/vardynamics/driver/vardynamics_entry.h"
#include "tests/recording/failing_allocation.h"
#include "tests/recording/scene.h"

namespace recording {
namespace {

struct Ended {
  std::string trace;
  std::vector<std::string> calls;
  std::vector<std::string> messages;
  std::size_t allocations = 0;
};

struct Scene {
  const char* name;
  void (*give)(Host&);
  void (*procedure)();
};

// Without a dictionary every text stands as its key, which is no failure.
bool isRequired(const std::string& call) {
  return call.find("FacSTDictionary") == std::string::npos && !call.starts_with("SetProcedure(");
}

Ended runWithFailure(const Scene& scene, std::size_t n, bool andAllAfter) {
  Host host;
  scene.give(host);
  Ended ended;
  ended.trace = traceOf([&] {
    const FailingAllocation failing(n, andAllAfter);
    scene.procedure();
    ended.allocations = FailingAllocation::count();
  });
  EXPECT_THAT(host.living, testing::IsEmpty());
  std::ranges::copy_if(host.calls, std::back_inserter(ended.calls), isRequired);
  ended.messages = host.messages;
  return ended;
}

// A run that says no more and no less than an undisturbed one has done all that it does.
void expectSurvived(const Ended& ended, const Ended& undisturbed) {
  const bool isSilent = ended.trace == undisturbed.trace && ended.messages == undisturbed.messages;
  EXPECT_FALSE(ended.trace.empty());
  if (isSilent) {
    EXPECT_EQ(ended.calls, undisturbed.calls);
  }
}

class Memory : public testing::TestWithParam<Scene> {};

TEST_P(Memory, MayRunOutAnywhere) {
  const Scene& scene = GetParam();
  runWithFailure(scene, 0, false);  // what is made once stays
  const Ended undisturbed = runWithFailure(scene, 0, false);
  const std::size_t step = std::getenv("EVERY_FAILURE") != nullptr ? 1 : undisturbed.allocations / 150 + 1;
  for (std::size_t n = 1; n <= undisturbed.allocations; n += step) {
    for (const bool andAllAfter : {false, true}) {
      SCOPED_TRACE("allocation " + std::to_string(n) + (andAllAfter ? " and all after" : ""));
      const std::ptrdiff_t before = livingAllocations();
      expectSurvived(runWithFailure(scene, n, andAllAfter), undisturbed);
      EXPECT_EQ(livingAllocations(), before);
      if (HasFailure()) return;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Procedures, Memory,
                         testing::Values(Scene{"VARDYNAMICS", giveEverySubcommand, VARDYNAMICS}),
                         [](const auto& scene) { return scene.param.name; });

}  // namespace
}  // namespace recording
