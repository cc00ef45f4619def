#include "procedures/common/long_work.h"

#include "tests/procedure/procedure_fixture.h"

namespace procedures {
namespace {

class LongWork : public varmodel::ProcedureTest {};

TEST_F(LongWork, GetsThreadsFromTheHostAndTellsItTheShareDone) {
  EXPECT_EQ(threadsAllowed(), 1u);
  EXPECT_TRUE(hostProgress()(0.5)) << "nobody listens";
  session.threads = 3;
  std::vector<double> told;
  session.progress = [&](double share) {
    told.push_back(share);
    return share < 0.5;
  };
  EXPECT_EQ(threadsAllowed(), 3u);
  EXPECT_TRUE(hostProgress()(0.25));
  EXPECT_FALSE(hostProgress()(0.5));
  EXPECT_THAT(told, testing::ElementsAre(0.25, 0.5));
}

}  // namespace
}  // namespace procedures
