#include "kernel/tasktimedtasks.h"

#include "kernel_support.h"

namespace vask::test {
namespace {

TEST_F(CKernelTest, TimedTasksCatchUpInTheOrderOfTheirDueTimes) {
  // The clock wraps on the way.
  CFakeClock late(0xFFFFFFFFU - 120);
  Start("slow", 10, 100);
  Start("fast", 99, 50);
  const std::string ran = RunFrames(5, [&](int frame) {
    record += "| ";
    late.Advance(std::vector<unsigned>{0, 100, 1, 250, 50}[static_cast<std::size_t>(frame)]);
  });
  // A task is due only past its time. Of two that are due at once, the one that ran comes first.
  EXPECT_EQ(ran,
            "| | fast.update | fast.update slow.update "
            "| fast.update fast.update slow.update fast.update fast.update slow.update fast.update "
            "| fast.update slow.update ");
}

TEST_F(CKernelTest, ATimedTaskCountsFromItsResume) {
  Start("t", 10, 100);
  const std::string ran = RunFrames(4, [this](int frame) {
    CTask* task = tasks["t"].get();
    Kernel().ResumeTask(task);  // nothing in the frames in which it is not paused
    if (frame == 1) {
      Kernel().PauseTask(task);
      Kernel().PauseTask(task);
    }
    clock.Advance(90);
    record += "| ";
  });
  // Started at 0 and paused at 90, resumed at 180: due past 280 and not before.
  EXPECT_EQ(ran, "| t.pause | t.resume | | t.update ");
}

TEST_F(CKernelTest, TimedTasksMayChangeTheListWhileTheyAreUpdated) {
  struct CCase {
    const char* what;
    std::function<void(CKernel&, std::map<std::string, std::unique_ptr<CRecorder>>&)>
        change;  // by a
    const char* ran;
  };
  for (const CCase& c : std::vector<CCase>{
           {"nothing", [](auto&, auto&) {}, "a b b a"},
           {"pauses itself", [](auto&k, auto&t) { k.PauseTask(t["a"].get()); }, "a a.pause b b"},
           {"comes back later",
            [](auto&k, auto&t) { k.PauseTask(t["a"].get()), k.ResumeTask(t["a"].get()); },
            "a a.pause a.resume b b"},
           {"kills itself", [](auto&k, auto&t) { k.KillTask(t["a"].get()); }, "a a.exit b b"},
           {"kills the other", [](auto&k, auto&t) { k.KillTask(t["b"].get()); }, "a b.exit a"},
           {"pauses the other", [](auto&k, auto&t) { k.PauseTask(t["b"].get()); }, "a b.pause a"},
           {"deletes itself", [](auto&, auto&t) { t["a"].reset(); }, "a b b"},
           {"deletes the other", [](auto&, auto&t) { t["b"].reset(); }, "a a"},
           {"takes its interval back", [](auto&, auto&t) { t["a"]->SetTimedInterval(0); }, "a b b"},
           {"wants the longest interval", [](auto&, auto&t) { t["a"]->SetTimedInterval(~0U); },
            "a b b"},
       }) {
    tasks.clear();
    Clean();
    Start("a", 10, 100).reactions["update"] = [&] { c.change(Kernel(), tasks); };
    Start("b", 10, 100);
    std::string ran = RunFrames(1, [this](int) { clock.Advance(250); });
    for (std::size_t at = 0; (at = ran.find(".update")) != std::string::npos;) {
      ran.erase(at, 7);
    }
    EXPECT_EQ(ran, c.ran + std::string(" ")) << c.what;
  }
}

TEST_F(CKernelTest, TheRunnerWaitsUntilThereIsATimedTask) {
  Make("parked", 10).SetTimedInterval(10);
  tasks["parked"]->runs = false;
  Kernel().StartTask(tasks["parked"].get(), nullptr);
  clock.Advance(50);
  EXPECT_EQ(Kernel().Run(), 0);  // nobody in the run list
  EXPECT_EQ(record, "parked.start parked.exit ");
}

}  // namespace
}  // namespace vask::test
