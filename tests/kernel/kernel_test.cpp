#include "kernel/kernel.h"

#include "events/eventbridge.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"

#include <gtest/gtest.h>

#include <deque>
#include <functional>

namespace vask::test {
namespace {

std::string record;

// Writes its hooks down as "name.hook " and does in them what the test wants. An update is written
// as the name alone.
struct CRecorder : CTask {
  using CTask::Start;
  bool Start() override {
    const bool result = runs;  // the reaction may delete the task
    Note("start", ".start");
    return result;
  }
  void Update() override { Note("update", ""); }
  void Exit() override { Note("exit", ".exit"); }
  void Pause() override { Note("pause", ".pause"); }
  void Resume() override { Note("resume", ".resume"); }
  bool PauseOnFocusLost() const override { return pausesOnFocusLost; }

  void Note(const std::string& hook, const std::string& written) {
    record += GetName() + written + " ";
    auto reaction = reactions.extract(hook);
    reaction ? reaction.mapped()() : void();
  }

  bool runs = true;
  bool pausesOnFocusLost = false;
  // Done once, in the hook of that name. May delete the task.
  std::map<std::string, std::function<void()>> reactions;
};

// A world of its own: a fresh kernel on a clock that stands, and tasks that record.
class CKernelTest : public testing::Test {
 protected:
  CKernelTest() { Clean(); }
  ~CKernelTest() override { Clean(); }

  void Clean() {
    tasks.clear();
    record.clear();
    CTaskFactory::DeleteSingleton();
    CKernel::DeleteSingleton();
    CApplicationFactory::DeleteSingleton();
  }

  static CKernel& Kernel() { return CKernel::GetSingleton(); }
  static void Focus(bool gained) { CEventBridge::GetSingleton().FocusEvent(gained); }
  void Pause(const std::string& name) { Kernel().PauseTask(tasks[name].get()); }
  void Resume(const std::string& name) { Kernel().ResumeTask(tasks[name].get()); }
  void Kill(const std::string& name) { Kernel().KillTask(tasks[name].get()); }

  CRecorder& Make(const std::string& name, int priority, unsigned interval = 0) {
    CRecorder& task = *(tasks[name] = std::make_unique<CRecorder>());
    task.SetName(name), task.SetPriority(priority), task.SetTimedInterval(interval);
    return task;
  }

  CRecorder& Start(const std::string& name, int priority, unsigned interval = 0, bool runs = true) {
    CRecorder& task = Make(name, priority, interval);
    task.runs = runs;
    Kernel().StartTask(&task, nullptr);
    return task;
  }

  // Runs so many frames, calling `onFrame` at the front of each, then quits. Answers what the
  // frames recorded; `record` then holds the frame of the quitting.
  static std::string RunFrames(int frames, const std::function<void(int)>& onFrame) {
    struct CDriver : CTask {
      void Update() override { onFrame(); }
      std::function<void()> onFrame;
    } driver;
    driver.SetPriority(-1000);
    std::string recorded;
    driver.onFrame = [&, frame = 0]() mutable {
      if (frame < frames) {
        return onFrame(frame++);
      }
      recorded = std::exchange(record, {});
      Kernel().Quit();
    };
    record.clear();
    Kernel().StartTask(&driver, nullptr);
    EXPECT_EQ(Kernel().Run(), 0);
    return recorded;
  }

  CFakeClock clock;
  std::map<std::string, std::unique_ptr<CRecorder>> tasks;
};

// clang-format off
TEST_F(CKernelTest, TasksMayChangeTheListsWhileTheyAreWalked) {
  // b makes the change; what two frames then run of plain tasks, and of timed ones if that differs.
  const struct { const char* what; std::function<void()> change; std::string plain, timed; } cases[] = {
      {"nothing", [] {}, "| a b c d | a b c d ", ""},
      {"starts one behind", [this] { Start("x", 25); }, "| a b x.start x c d | a b x c d ", "-"},
      {"starts an equal", [this] { Start("x", 20); }, "| a b x.start c d | a x b c d ", "-"},
      {"starts a parked one", [this] { Start("x", 25, 0, false); }, "| a b x.start c d | a b c d ", "-"},
      {"pauses itself", [this] { Pause("b"), Pause("b"); }, "| a b b.pause c d | a c d ", ""},
      {"pauses the next", [this] { Pause("c"); }, "| a b c.pause d | a b d ", ""},
      {"pauses the one before", [this] { Pause("a"); }, "| a b a.pause c d | b c d ", ""},
      {"comes back", [this] { Pause("b"), Resume("b"), Resume("b"); },
       "| a b b.pause b.resume c d | a b c d ", "| a b b.pause b.resume c d | a c b d "},
      {"comes back at the end", [this] { Pause("b"), tasks["b"]->SetPriority(90), Resume("b"); },
       "| a b b.pause b.resume c d | a c d b ", "-"},
      {"kills itself", [this] { Kill("b"); }, "| a b b.exit c d | a c d ", ""},
      {"kills the next", [this] { Kill("c"), Kill("c"); }, "| a b c.exit d | a b d ", ""},
      {"deletes itself", [this] { tasks["b"].reset(); }, "| a b c d | a c d ", ""},
      {"deletes the next two", [this] { tasks["c"].reset(), tasks["d"].reset(); }, "| a b | a b ", ""},
      {"gives its interval up", [this] { tasks["b"]->SetTimedInterval(0); }, "-", "| a b c d | a c d "},
      {"wants the longest", [this] { tasks["b"]->SetTimedInterval(~0U); }, "-", "| a b c d | a c d "},
  };
  for (const auto& c : cases) {
    for (const bool timed : {false, true}) {
      Clean();
      for (const auto& [name, priority] : {std::pair("d", 40), {"b", 20}, {"c", 30}, {"a", 10}}) {
        Start(name, priority, timed ? 100U + static_cast<unsigned>(priority) : 0);
      }
      tasks["b"]->reactions["update"] = c.change;
      const std::string ran = RunFrames(2, [this](int) { record += "| ", clock.Advance(150); });
      const std::string& expected = timed && !c.timed.empty() ? c.timed : c.plain;
      EXPECT_TRUE(expected == "-" || ran == expected) << c.what << ": " << ran;
    }
  }
}

TEST_F(CKernelTest, EveryHookMayDoAnythingToItsTask) {
  const std::pair<const char*, std::function<void()>> acts[] = {
      {"pause", [this] { Pause("t"); }},         {"resume", [this] { Resume("t"); }},
      {"kill", [this] { Kill("t"); }},           {"delete", [this] { tasks["t"].reset(); }},
      {"start", [this] { Start("other", 50); }}, {"focus", [] { Focus(false); }},
  };
  const auto drive = [this](int frame) {
    clock.Advance(15);
    if (tasks["t"] != nullptr) {
      frame == 1 ? Pause("t") : frame == 3 ? Resume("t") : frame == 5 ? Kill("t") : void();
    }
  };
  for (const unsigned interval : {0U, 10U}) {
    for (const char* hook : {"start", "update", "pause", "resume", "exit"}) {
      for (const auto& [name, act] : acts) {
        Clean();
        Make("t", 20, interval).pausesOnFocusLost = true;
        tasks["t"]->reactions[hook] = act;
        Kernel().StartTask(tasks["t"].get(), nullptr);
        const std::string started = record;
        const std::string ran = started + RunFrames(6, drive);
        const std::size_t exit = ran.find("t.exit");
        EXPECT_TRUE(tasks["t"] == nullptr || exit != std::string::npos) << name << " in " << hook;
        const bool goesOn = exit != std::string::npos && ran.find("t.", exit + 1) != std::string::npos;
        EXPECT_FALSE(goesOn) << name << " in " << hook << ": " << ran;
      }
    }
  }
}
// clang-format on

TEST_F(CKernelTest, QuitEndsTheFrameThenKillsAllByPriority) {
  Start("first", 1), Start("gfx", 80), Start("timed", 7, 20), Start("window", 1000, 0, false);
  Start("game", 50).pausesOnFocusLost = true;
  Start("scripted", 60), Pause("scripted");
  Start("dead", 70), Kill("dead");
  // An Exit that takes others along, or starts a task, must not be followed into them.
  tasks["first"]->reactions["exit"] = [this] { tasks["scripted"].reset(), Start("late", 5); };
  Focus(false);
  RunFrames(0, nullptr);
  EXPECT_EQ(record, "first gfx first.exit game.exit gfx.exit timed.exit window.exit ");
}

// Whoever looks through all tasks for each that starts or ends asks each as often.
TEST_F(CKernelTest, VeryManyTasksAreAskedFewTimesEach) {
  static int asked = 0;
  struct CAsked : CTask {
    void Update() override {}
    bool IsDead() const override {
      ++asked;
      return CTask::IsDead();
    }
    bool IsLessThan(const CTask* other) const override {
      ++asked;
      return CTask::IsLessThan(other);
    }
  };
  std::deque<CAsked> many(3000);
  for (std::size_t i = 0; i < many.size(); ++i) {
    many[i].SetPriority(static_cast<int>(i));
    many[i].SetTimedInterval(i % 2 == 0 ? 10 : 0);
    Kernel().StartTask(&many[i], nullptr);
  }
  RunFrames(1, [this](int) { clock.Advance(15); });
  EXPECT_LT(asked, 3000 * 40);
}

TEST_F(CKernelTest, ParkedTasksDoNotKeepTheProgramAlive) {
  Start("timed", 10, 10, false), Start("parked", 10, 0, false);
  EXPECT_EQ(Kernel().Run(), 0);
  EXPECT_EQ(record, "timed.start parked.start parked.exit timed.exit ");
}

TEST_F(CKernelTest, TheFocusPausesWhoAsksAndWakesOnlyThem) {
  const auto nothing = [] {};
  // clang-format off
  const struct { const char* what; std::function<void()> before, during; const char* hooks; } cases[] = {
      {"lost twice", nothing, [] { Focus(false); }, "game.pause game.resume game other "},
      {"paused before", [this] { Pause("game"); }, nothing, "game.pause other "},
      {"paused meanwhile", nothing, [this] { Pause("game"); }, "game.pause other "},
      {"resumed meanwhile", nothing, [this] { Resume("game"); }, "game.pause game.resume game other "},
      {"resumed and paused meanwhile", nothing, [this] { Resume("game"), Pause("game"); },
       "game.pause game.resume game.pause other "},
      {"killed meanwhile", nothing, [this] { Kill("game"); }, "game.pause game.exit other "},
      {"deleted meanwhile", nothing, [this] { tasks["game"].reset(); }, "game.pause other "},
      {"killed before", [this] { Kill("game"); }, nothing, "game.exit other "},
  };
  // clang-format on
  for (const auto& c : cases) {
    Clean();
    Start("game", 50).pausesOnFocusLost = true;
    Start("other", 60);
    const std::string ran =
        RunFrames(1, [&](int) { c.before(), Focus(false), c.during(), Focus(true); });
    EXPECT_EQ(ran, c.hooks) << c.what;
  }
}

TEST_F(CKernelTest, TimedTasksCatchUpInTheOrderOfTheirDueTimes) {
  CFakeClock late(0xFFFFFFFFU - 120);  // wraps on the way
  Start("slow", 10, 100), Start("fast", 99, 50);
  const unsigned waits[] = {0, 100, 1, 250, 50};
  const std::string ran =
      RunFrames(5, [&](int frame) { record += "| ", late.Advance(waits[frame]); });
  // A task is due only past its time. Of two that are due at once, the one that ran comes first.
  EXPECT_EQ(ran, "| | fast | fast slow | fast fast slow fast fast slow fast | fast slow ");
}

TEST_F(CKernelTest, ATimedTaskCountsFromItsResume) {
  Start("t", 10, 100);
  const std::string ran = RunFrames(4, [this](int frame) {
    frame == 1 ? Pause("t") : Resume("t");  // which does nothing if it is not paused
    clock.Advance(90);
    record += "| ";
  });
  // Started at 0 and paused at 90, resumed at 180: due past 280 and not before.
  EXPECT_EQ(ran, "| t.pause | t.resume | | t ");
}

}  // namespace
}  // namespace vask::test
