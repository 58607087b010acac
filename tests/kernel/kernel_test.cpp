#include "kernel/kernel.h"

#include "kernel_support.h"
#include "utils/log/log.h"

namespace vask::test {
namespace {

TEST_F(CKernelTest, TasksMayChangeTheRunListWhileItIsWalked) {
  // clang-format off
  const struct {
    const char* what;
    std::function<void()> change;  // by b
    const char* frames;
  } cases[] = {
      {"nothing", [] {}, "| a b c d | a b c d "},
      {"starts one behind", [&] { Start("x", 25); }, "| a b x.start x c d | a b x c d "},
      {"starts one before", [&] { Start("x", 15); }, "| a b x.start c d | a x b c d "},
      {"starts an equal", [&] { Start("x", 20); }, "| a b x.start c d | a x b c d "},
      {"starts a parked one", [&] { Start("x", 25, 0, false); }, "| a b x.start c d | a b c d "},
      {"pauses itself", [&] { Pause("b"), Pause("b"); }, "| a b b.pause c d | a c d "},
      {"pauses the next", [&] { Pause("c"); }, "| a b c.pause d | a b d "},
      {"pauses the one before", [&] { Pause("a"); }, "| a b a.pause c d | b c d "},
      {"comes back", [&] { Pause("b"), Resume("b"), Resume("b"); }, "| a b b.pause b.resume c d | a b c d "},
      {"comes back at the end", [&] { Pause("b"), tasks["b"]->SetPriority(90), Resume("b"); },
       "| a b b.pause b.resume c d | a c d b "},
      {"kills itself", [&] { Kill("b"); }, "| a b b.exit c d | a c d "},
      {"kills the next", [&] { Kill("c"), Kill("c"); }, "| a b c.exit d | a b d "},
      {"deletes itself", [&] { tasks["b"].reset(); }, "| a b c d | a c d "},
      {"deletes the next two", [&] { tasks["c"].reset(), tasks["d"].reset(); }, "| a b | a b "},
  };
  // clang-format on
  for (const auto& c : cases) {
    Clean();
    for (const auto& [name, priority] : {std::pair("d", 40), {"b", 20}, {"c", 30}, {"a", 10}}) {
      Start(name, priority);
    }
    tasks["b"]->reactions["update"] = c.change;
    EXPECT_EQ(RunFrames(2, [this](int) { record += "| "; }), c.frames) << c.what;
  }
}

TEST_F(CKernelTest, EveryHookMayDoAnythingToItsTask) {
  const std::pair<const char*, std::function<void()>> acts[] = {
      {"pause", [this] { Pause("t"); }},         {"resume", [this] { Resume("t"); }},
      {"kill", [this] { Kill("t"); }},           {"delete", [this] { tasks["t"].reset(); }},
      {"start", [this] { Start("other", 50); }}, {"focus", [] { Focus(false); }},
  };
  for (const unsigned interval : {0U, 10U}) {
    for (const char* hook : {"start", "update", "pause", "resume", "exit"}) {
      for (const auto& [name, act] : acts) {
        Clean();
        CRecorder& task = Make("t", 20, interval);
        record.clear();
        task.pausesOnFocusLost = true;
        task.reactions[hook] = act;
        Kernel().StartTask(&task, nullptr);
        const std::string started = record;
        const std::string ran = started + RunFrames(6, [&](int frame) {
                                  clock.Advance(15);
                                  if (tasks["t"] != nullptr) {
                                    frame == 1 ? Pause("t") : void();
                                    frame == 3 ? Resume("t") : void();
                                    frame == 5 ? Kill("t") : void();
                                  }
                                });
        const std::string what = std::string(name) + " in " + hook + ": " + ran;
        const std::size_t exit = ran.find("t.exit");
        if (tasks["t"] != nullptr) {
          EXPECT_TRUE(task.IsDead() && exit != std::string::npos) << what;
        }
        if (exit != std::string::npos) {  // nothing happens to a task behind its Exit
          EXPECT_EQ(ran.find("t.", exit + 1), std::string::npos) << what;
          EXPECT_EQ(ran.find(" t ", exit + 1), std::string::npos) << what;
        }
      }
    }
  }
}

TEST_F(CKernelTest, QuitEndsTheFrameThenKillsAllByPriority) {
  Start("first", 1);
  Start("gfx", 80);
  Start("game", 50).pausesOnFocusLost = true;
  Start("timed", 7, 20);
  Start("pausedTimed", 7, 20);
  Pause("pausedTimed");
  Start("window", 1000, 0, false);
  Start("scripted", 60);
  Pause("scripted");
  Start("dead", 70);
  Kill("dead");
  // An Exit that takes others along, or starts a task, must not be followed into them.
  tasks["first"]->reactions["exit"] = [this] {
    tasks["scripted"].reset();
    Start("late", 5);
  };
  Focus(false);
  RunFrames(1);
  EXPECT_EQ(record,
            "first gfx first.exit game.exit gfx.exit timed.exit pausedTimed.exit window.exit ");
}

TEST_F(CKernelTest, ParkedTasksDoNotKeepTheProgramAlive) {
  Start("timed", 10, 10, false);
  Start("parked", 10, 0, false);
  EXPECT_EQ(Kernel().Run(), 0);
  EXPECT_EQ(record, "timed.start parked.start parked.exit timed.exit ");
}

TEST_F(CKernelTest, TheFocusPausesWhoAsksAndWakesOnlyThem) {
  const auto nothing = [] {};
  // clang-format off
  const struct {
    const char* what;
    std::function<void()> before;
    std::function<void()> during;
    const char* hooks;
  } cases[] = {
      {"plain", nothing, nothing, "game.pause game.resume game other "},
      {"lost twice", nothing, [] { Focus(false); }, "game.pause game.resume game other "},
      {"paused before", [this] { Pause("game"); }, nothing, "game.pause other "},
      {"paused meanwhile", nothing, [this] { Pause("game"); }, "game.pause other "},
      {"resumed meanwhile", nothing, [this] { Resume("game"); }, "game.pause game.resume game other "},
      {"resumed and paused meanwhile", nothing, [this] { Resume("game"), Pause("game"); },
       "game.pause game.resume game.pause other "},
      {"killed meanwhile", nothing, [this] { Kill("game"); }, "game.pause game.exit other "},
      {"marked dead meanwhile", nothing, [this] { tasks["game"]->SetDead(true); }, "game.pause other "},
      {"killed before", [this] { Kill("game"); }, nothing, "game.exit other "},
  };
  // clang-format on
  for (const auto& c : cases) {
    Clean();
    Start("game", 50).pausesOnFocusLost = true;
    Start("other", 60);
    const std::string ran = RunFrames(1, [&](int) {
      c.before();
      Focus(false);
      EXPECT_FALSE(Kernel().HasFocus());
      c.during();
      Focus(true);
    });
    EXPECT_EQ(ran, c.hooks) << c.what;
  }
}

TEST_F(CKernelTest, ATaskThatDiesInTheFocusPausedListIsForgotten) {
  for (const char* name : {"a", "b", "c"}) {
    Start(name, 10).pausesOnFocusLost = true;
  }
  tasks["c"]->reactions["pause"] = [this] { tasks["b"].reset(); };
  tasks["c"]->reactions["resume"] = [] { Focus(false); };
  const std::string ran = RunFrames(1, [this](int) {
    Focus(false);
    record += "| ";
    Focus(true);  // c loses it again, so a goes on waiting
  });
  EXPECT_EQ(ran, "c.pause a.pause | c.resume c ");
}

TEST_F(CKernelTest, TasksMayOutliveTheKernelAndTheLog) {
  Start("t", 10);
  Start("timed", 10, 5);
  auto alive = std::exchange(tasks, {});
  Clean();
  CLog::DeleteSingleton();
  alive.clear();
  EXPECT_EQ(CKernel::PeekSingletonPtr(), nullptr);
  EXPECT_EQ(CLog::PeekSingletonPtr(), nullptr);
}

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
