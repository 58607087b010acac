#include "kernel/kernel.h"

#include "kernel_support.h"
#include "utils/log/log.h"

namespace vask::test {
namespace {

TEST_F(CKernelTest, UpdatesByPriorityAndNewcomersBeforeTheirEquals) {
  EXPECT_EQ(Kernel().Run(), 0);  // nothing to run
  Start("last", 1000);
  Start("old", 10);
  Start("new", 10);
  Start("parked", 1).runs = true;
  Kernel().PauseTask(tasks["parked"].get());
  EXPECT_EQ(RunFrames(2), "new.update old.update last.update new.update old.update last.update ");
}

TEST_F(CKernelTest, AParkedTaskRunsOnceResumed) {
  Make("p", 5).runs = false;
  Kernel().StartTask(tasks["p"].get(), nullptr);
  const std::string ran = RunFrames(3, [this](int frame) {
    if (frame == 1) {
      Kernel().PauseTask(tasks["p"].get());  // not running: nothing
      Kernel().ResumeTask(tasks["p"].get());
      Kernel().ResumeTask(tasks["p"].get());  // not parked: nothing
    }
  });
  EXPECT_EQ(ran, "p.resume p.update p.update ");
}

TEST_F(CKernelTest, TasksMayChangeTheRunListWhileItIsWalked) {
  struct CCase {
    const char* what;
    std::function<void()> change;  // by b
    const char* first;
    const char* second;
  };
  const auto pause = [this](const char* name) { Kernel().PauseTask(tasks[name].get()); };
  const auto resume = [this](const char* name) { Kernel().ResumeTask(tasks[name].get()); };
  const auto kill = [this](const char* name) { Kernel().KillTask(tasks[name].get()); };
  const std::vector<CCase> cases = {
      {"starts one behind", [&] { Start("x", 25); }, "a b x.start x c d", "a b x c d"},
      {"starts one before", [&] { Start("x", 15); }, "a b x.start c d", "a x b c d"},
      {"starts an equal", [&] { Start("x", 20); }, "a b x.start c d", "a x b c d"},
      {"pauses itself", [&] { pause("b"); }, "a b b.pause c d", "a c d"},
      {"pauses the next", [&] { pause("c"); }, "a b c.pause d", "a b d"},
      {"pauses the one before", [&] { pause("a"); }, "a b a.pause c d", "b c d"},
      {"comes back", [&] { pause("b"), resume("b"); }, "a b b.pause b.resume c d", "a b c d"},
      {"comes back at the end", [&] { pause("b"), tasks["b"]->SetPriority(90), resume("b"); },
       "a b b.pause b.resume c d", "a c d b"},
      {"kills itself", [&] { kill("b"); }, "a b b.exit c d", "a c d"},
      {"kills the next", [&] { kill("c"), kill("c"); }, "a b c.exit d", "a b d"},
      {"deletes itself", [&] { tasks["b"].reset(); }, "a b c d", "a c d"},
      {"deletes the next two", [&] { tasks["c"].reset(), tasks["d"].reset(); }, "a b", "a b"},
  };
  for (const CCase& c : cases) {
    tasks.clear();
    Clean();
    int priority = 0;
    for (const char* name : {"a", "b", "c", "d"}) {
      Start(name, priority += 10);
    }
    tasks["b"]->reactions["update"] = c.change;
    std::string ran = RunFrames(2, [this](int) { record += "| "; });
    for (std::size_t at = 0; (at = ran.find(".update")) != std::string::npos;) {
      ran.erase(at, 7);
    }
    EXPECT_EQ(ran, "| " + std::string(c.first) + " | " + c.second + " ") << c.what;
  }
}

TEST_F(CKernelTest, EveryHookMayDoAnythingToItsTask) {
  using Act = std::function<void(CRecorder*)>;
  const std::vector<std::pair<const char*, Act>> acts = {
      {"pause", [this](CRecorder* t) { Kernel().PauseTask(t); }},
      {"resume", [this](CRecorder* t) { Kernel().ResumeTask(t); }},
      {"kill", [this](CRecorder* t) { Kernel().KillTask(t); }},
      {"delete", [this](CRecorder*) { tasks["t"].reset(); }},
      {"start", [this](CRecorder*) { Start("other", 50); }},
      {"focus", [](CRecorder*) { CEventBridge::GetSingleton().FocusEvent(false); }},
  };
  for (const unsigned interval : {0U, 10U}) {
    for (const char* hook : {"start", "update", "pause", "resume", "exit"}) {
      for (const auto& [name, act] : acts) {
        tasks.clear();
        Clean();
        CRecorder& task = Make("t", 20);
        record.clear();
        task.SetTimedInterval(interval);
        task.pausesOnFocusLost = true;
        task.reactions[hook] = [&, does = act] { does(&task); };
        Kernel().StartTask(&task, nullptr);
        const std::string started = record;
        const std::string ran = started + RunFrames(6, [&](int frame) {
                                  clock.Advance(15);
                                  if (CRecorder* t = tasks["t"].get()) {
                                    frame == 1 ? Kernel().PauseTask(t) : void();
                                    frame == 3 ? Kernel().ResumeTask(t) : void();
                                    frame == 5 ? Kernel().KillTask(t) : void();
                                  }
                                });
        const std::string what = std::string(name) + " in " + hook + ": " + ran;
        if (tasks["t"] != nullptr) {
          EXPECT_EQ(ran.find("t.exit"), ran.rfind("t.exit")) << what;
          EXPECT_NE(ran.find("t.exit"), std::string::npos) << what;
          EXPECT_TRUE(task.IsDead()) << what;
        }
        // Nothing happens to a task behind its Exit.
        const std::string behind = ran.substr(std::min(ran.rfind("t.exit"), ran.size()));
        EXPECT_EQ(behind.find("t.", 1), std::string::npos) << what;
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
  Kernel().PauseTask(tasks["pausedTimed"].get());
  Make("window", 1000).runs = false;
  Kernel().StartTask(tasks["window"].get(), nullptr);
  Start("scripted", 60);
  Kernel().PauseTask(tasks["scripted"].get());
  Start("dead", 70);
  Kernel().KillTask(tasks["dead"].get());
  // An Exit that takes others along, or starts a task, must not be followed into them.
  tasks["first"]->reactions["exit"] = [this] {
    tasks["scripted"].reset();
    Start("late", 5);
  };
  CEventBridge::GetSingleton().FocusEvent(false);
  RunFrames(1);
  EXPECT_EQ(record,
            "first.update gfx.update first.exit game.exit gfx.exit timed.exit pausedTimed.exit "
            "window.exit ");
}

TEST_F(CKernelTest, TheFocusPausesWhoAsksAndWakesOnlyThem) {
  struct CCase {
    const char* what;
    std::function<void(CKernel&, CTask*)> before;
    std::function<void(CKernel&, CTask*)> during;
    const char* hooks;
  };
  const auto nothing = [](CKernel&, CTask*) {};
  const auto pause = [](CKernel& k, CTask* t) { k.PauseTask(t); };
  const auto resume = [](CKernel& k, CTask* t) { k.ResumeTask(t); };
  const auto kill = [](CKernel& k, CTask* t) { k.KillTask(t); };
  const auto again = [](CKernel&, CTask*) { CEventBridge::GetSingleton().FocusEvent(false); };
  const auto both = [=](CKernel& k, CTask* t) { resume(k, t), pause(k, t); };
  for (const CCase& c : std::vector<CCase>{
           {"plain", nothing, nothing, "game.pause game.resume game.update "},
           {"lost twice", nothing, again, "game.pause game.resume game.update "},
           {"paused by the script before", pause, nothing, "game.pause "},
           {"paused by the script meanwhile", nothing, pause, "game.pause "},
           {"resumed meanwhile", nothing, resume, "game.pause game.resume game.update "},
           {"resumed and paused meanwhile", nothing, both, "game.pause game.resume game.pause "},
           {"killed meanwhile", nothing, kill, "game.pause game.exit "},
           {"killed before", kill, nothing, "game.exit "},
       }) {
    tasks.clear();
    Clean();
    CTask& game = Start("game", 50);
    tasks["game"]->pausesOnFocusLost = true;
    Start("other", 60);
    std::string ran = RunFrames(1, [&](int) {
      c.before(Kernel(), &game);
      CEventBridge::GetSingleton().FocusEvent(false);
      EXPECT_FALSE(Kernel().HasFocus());
      c.during(Kernel(), &game);
      CEventBridge::GetSingleton().FocusEvent(true);
    });
    EXPECT_EQ(ran, c.hooks + std::string("other.update ")) << c.what;
  }
}

TEST_F(CKernelTest, ATaskThatDiesInTheFocusPausedListIsForgotten) {
  for (const char* name : {"a", "b", "c"}) {
    Start(name, 10).pausesOnFocusLost = true;
  }
  tasks["c"]->reactions["pause"] = [this] { tasks["b"].reset(); };
  tasks["c"]->reactions["resume"] = [] { CEventBridge::GetSingleton().FocusEvent(false); };
  const std::string ran = RunFrames(1, [this](int) {
    CEventBridge::GetSingleton().FocusEvent(false);
    record += "| ";
    CEventBridge::GetSingleton().FocusEvent(true);  // c loses it again, so a goes on waiting
  });
  EXPECT_EQ(ran, "c.pause a.pause | c.resume c.update ");
}

TEST_F(CKernelTest, TasksMayOutliveTheKernelAndTheLog) {
  Start("t", 10);
  Start("timed", 10, 5);
  Clean();
  CLog::DeleteSingleton();
  tasks.clear();
  EXPECT_EQ(CKernel::PeekSingletonPtr(), nullptr);
  EXPECT_EQ(CLog::PeekSingletonPtr(), nullptr);
}

TEST_F(CKernelTest, TheFrameSleepIsHeldInItsRange) {
  Kernel().FrameSleep() = -5;
  RunFrames(0);
  EXPECT_EQ(Kernel().FrameSleep(), 0);
}

}  // namespace
}  // namespace vask::test
