#include "kernel_support.h"

namespace vask::test {
namespace {

TEST_F(CKernelTest, TimedTasksCatchUpInTheOrderOfTheirDueTimes) {
  CFakeClock late(0xFFFFFFFFU - 120);  // wraps on the way
  Start("slow", 10, 100);
  Start("fast", 99, 50);
  const unsigned waits[] = {0, 100, 1, 250, 50};
  const std::string ran = RunFrames(5, [&](int frame) {
    record += "| ";
    late.Advance(waits[frame]);
  });
  // A task is due only past its time. Of two that are due at once, the one that ran comes first.
  EXPECT_EQ(ran, "| | fast | fast slow | fast fast slow fast fast slow fast | fast slow ");
}

TEST_F(CKernelTest, ATimedTaskCountsFromItsResume) {
  Start("t", 10, 100);
  const std::string ran = RunFrames(4, [this](int frame) {
    Resume("t");  // nothing in the frames in which it is not paused
    if (frame == 1) {
      Pause("t"), Pause("t");
    }
    clock.Advance(90);
    record += "| ";
  });
  // Started at 0 and paused at 90, resumed at 180: due past 280 and not before.
  EXPECT_EQ(ran, "| t.pause | t.resume | | t ");
}

TEST_F(CKernelTest, TimedTasksMayChangeTheListWhileTheyAreUpdated) {
  // clang-format off
  const struct {
    const char* what;
    std::function<void()> change;  // by a
    const char* ran;
  } cases[] = {
      {"nothing", [] {}, "a b b a "},
      {"pauses itself", [this] { Pause("a"); }, "a a.pause b b "},
      {"comes back later", [this] { Pause("a"), Resume("a"); }, "a a.pause a.resume b b "},
      {"kills itself", [this] { Kill("a"); }, "a a.exit b b "},
      {"kills the other", [this] { Kill("b"); }, "a b.exit a "},
      {"pauses the other", [this] { Pause("b"); }, "a b.pause a "},
      {"deletes itself", [this] { tasks["a"].reset(); }, "a b b "},
      {"deletes the other", [this] { tasks["b"].reset(); }, "a a "},
      {"takes its interval back", [this] { tasks["a"]->SetTimedInterval(0); }, "a b b "},
      {"wants the longest interval", [this] { tasks["a"]->SetTimedInterval(~0U); }, "a b b "},
  };
  // clang-format on
  for (const auto& c : cases) {
    Clean();
    Start("a", 10, 100).reactions["update"] = c.change;
    Start("b", 10, 100);
    EXPECT_EQ(RunFrames(1, [this](int) { clock.Advance(250); }), c.ran) << c.what;
  }
}

}  // namespace
}  // namespace vask::test
