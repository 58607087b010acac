#include "platform/process.h"

#include "platform/random.h"
#include "platform/wallclock.h"

#include <gtest/gtest.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <ctime>

namespace vask::platform {
namespace {

TEST(Process, ALostReaderIsAnErrorAndNotTheEnd) {
  std::signal(SIGPIPE, SIG_DFL);
  SurviveBrokenPipes();
  int ends[2] = {};
  ASSERT_EQ(pipe(ends), 0);
  close(ends[0]);
  EXPECT_EQ(write(ends[1], "x", 1), -1);
  EXPECT_EQ(errno, EPIPE);
  close(ends[1]);
}

// The numbers of the sample generator in the C standard.
TEST(Random, IsTheSequenceOfItsSeedUnlessASourceIsInstalled) {
  struct CSeven : IRandomSource {
    void Seed(unsigned) override {}
    int Next() override { return 7; }
  } seven;
  SeedRand(1);
  for (const int number : {16838, 5758, 10113, 17515, 31051}) {
    EXPECT_EQ(Rand(), number);
  }
  EXPECT_EQ(SetRandomSource(&seven), nullptr);
  EXPECT_EQ(Rand(), 7);
  EXPECT_EQ(SetRandomSource(nullptr), &seven);
  EXPECT_EQ(Rand(), 5627);
}

TEST(WallClock, IsTheSystemsUnlessReplaced) {
  EXPECT_NEAR(static_cast<double>(WallClockSeconds()), static_cast<double>(std::time(nullptr)), 2);
  SetWallClock([] { return std::int64_t{41}; });
  EXPECT_EQ(WallClockSeconds(), 41);
  SetWallClock(nullptr);
  EXPECT_GT(WallClockSeconds(), 41);
}

}  // namespace
}  // namespace vask::platform
