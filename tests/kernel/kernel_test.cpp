#include "kernel/kernel.h"

#include "events/eventbridge.h"
#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <sstream>

namespace vask::test {
namespace {

std::string ourRecord;

// Writes its hooks down as "name.hook ", an update as the name alone.
class CRecorder : public CTask {
 public:
  using CTask::Start;
  bool Start() override {
    const bool runs = myRuns;  // the reaction may delete the task
    Note("start", ".start");
    return runs;
  }
  void Update() override { Note("update", ""); }
  void Exit() override { Note("exit", ".exit"); }
  void Pause() override { Note("pause", ".pause"); }
  void Resume() override { Note("resume", ".resume"); }
  bool PauseOnFocusLost() const override { return myPausesOnFocusLost; }

  bool myRuns = true;
  bool myPausesOnFocusLost = false;
  // Called once, in the hook of that name; may delete the task.
  std::map<std::string, std::function<void()>> myReactions;

 private:
  void Note(const std::string& hook, const std::string& written) {
    ourRecord += GetName() + written + " ";
    if (auto reaction = myReactions.extract(hook)) {
      reaction.mapped()();
    }
  }
};

// A fresh kernel, a clock that only the test moves, and tasks that record.
class CKernelTest : public testing::Test {
 protected:
  CKernelTest() { Clean(); }
  ~CKernelTest() override { Clean(); }

  void Clean() {
    myTasks.clear();
    ourRecord.clear();
    CTaskFactory::DeleteSingleton();
    CKernel::DeleteSingleton();
    CApplicationFactory::DeleteSingleton();
  }

  static CKernel& Kernel() { return CKernel::GetSingleton(); }

  CRecorder& Make(const std::string& name, int priority, unsigned interval = 0) {
    CRecorder& task = *(myTasks[name] = std::make_unique<CRecorder>());
    task.SetName(name);
    task.SetPriority(priority);
    task.SetTimedInterval(interval);
    return task;
  }

  CRecorder& Start(const std::string& name, int priority, unsigned interval = 0, bool runs = true) {
    CRecorder& task = Make(name, priority, interval);
    task.myRuns = runs;
    Kernel().StartTask(&task, nullptr);
    return task;
  }

  // Does what the words say: each time a verb and a task, with "@" and a number where one belongs.
  // Nothing happens to a task that was deleted.
  void Do(const std::string& acts) {
    std::istringstream words(acts);
    for (std::string verb, name; words >> verb >> name;) {
      const std::size_t at = name.find('@');
      const int number = at == std::string::npos ? 0 : std::stoi(name.substr(at + 1));
      myVerbs.at(verb)(name.substr(0, at), number);
    }
  }

  void To(const std::string& name, void (CKernel::*act)(CTask*)) {
    if (myTasks[name] != nullptr) {
      (Kernel().*act)(myTasks[name].get());
    }
  }

  // Lets the task do something, once, in its hook of that name.
  void React(const std::string& name, const std::string& hook, const std::string& acts) {
    myTasks[name]->myReactions[hook] = [=, this] { Do(acts); };
  }

  // Runs a frame for each of the acts, which are done at its start, then quits. Returns what the
  // frames recorded, each after a "| "; ourRecord then holds the frame in which the kernel quits.
  std::string RunFrames(const std::vector<std::string>& acts) {
    std::string ran;
    class CDriver : public CTask {
     public:
      void Update() override { myAct(); }
      std::function<void()> myAct;
    } driver;
    driver.SetPriority(-1000);
    driver.myAct = [&, frame = acts.begin()]() mutable {
      if (frame != acts.end()) {
        ourRecord += "| ";
        Do(*frame++);
      } else {
        ran = std::exchange(ourRecord, {});
        Kernel().Quit();
      }
    };
    ourRecord.clear();
    Kernel().StartTask(&driver, nullptr);
    EXPECT_EQ(Kernel().Run(), 0);
    return ran;
  }

  CFakeClock myClock;
  std::map<std::string, std::unique_ptr<CRecorder>> myTasks;
  const std::map<std::string, std::function<void(const std::string&, int)>> myVerbs = {
      {"wait", [this](auto&, int time) { myClock.Advance(static_cast<unsigned>(time)); }},
      {"focus", [](auto& how, int) { CEventBridge::GetSingleton().FocusEvent(how == "gained"); }},
      {"start", [this](auto& name, int priority) { Start(name, priority); }},
      {"park", [this](auto& name, int priority) { Start(name, priority, 0, false); }},
      {"pause", [this](auto& name, int) { To(name, &CKernel::PauseTask); }},
      {"resume", [this](auto& name, int) { To(name, &CKernel::ResumeTask); }},
      {"kill", [this](auto& name, int) { To(name, &CKernel::KillTask); }},
      {"delete", [this](auto& name, int) { myTasks[name].reset(); }},
      {"priority", [this](auto& name, int priority) { myTasks[name]->SetPriority(priority); }},
      {"interval", [this](auto& name, int time) { myTasks[name]->SetTimedInterval(time); }}};
};

TEST_F(CKernelTest, RunsUntilOnlyParkedTasksAreLeft) {
  Start("timed", 10, 10, false);
  Do("park parked@10");
  CRecorder& task = Make("a", 10);
  React("a", "update", "kill a");
  CKernel::GetSingletonPtr()->StartTask(&task, nullptr);
  CKernel::GetSingletonPtr()->Run();  // until no task is left in the run list
  EXPECT_EQ(ourRecord, "timed.start parked.start a.start a a.exit parked.exit timed.exit ");
}

TEST_F(CKernelTest, ATaskMayChangeTheListsWhileTheyAreWalked) {
  const std::string both = "plain timed";
  // What b does in the first of two frames of the tasks a to d, and what the two frames run.
  const struct {
    std::string kind, act, ran;
  } cases[] = {
      {.kind = both, .act = "", .ran = "| a b c d | a b c d "},
      {.kind = "plain", .act = "start x@25", .ran = "| a b x.start x c d | a b x c d "},
      {.kind = "plain", .act = "start x@20", .ran = "| a b x.start c d | a x b c d "},
      {.kind = "plain", .act = "park x@25", .ran = "| a b x.start c d | a b c d "},
      {.kind = both, .act = "pause b pause b", .ran = "| a b b.pause c d | a c d "},
      {.kind = both, .act = "pause c", .ran = "| a b c.pause d | a b d "},
      {.kind = both, .act = "pause a", .ran = "| a b a.pause c d | b c d "},
      {.kind = "plain",
       .act = "pause b resume b resume b",
       .ran = "| a b b.pause b.resume c d | a b c d "},
      {.kind = "timed", .act = "pause b resume b", .ran = "| a b b.pause b.resume c d | a c b d "},
      {.kind = "plain",
       .act = "pause b priority b@90 resume b",
       .ran = "| a b b.pause b.resume c d | a c d b "},
      {.kind = both, .act = "kill b", .ran = "| a b b.exit c d | a c d "},
      {.kind = both, .act = "kill c kill c", .ran = "| a b c.exit d | a b d "},
      {.kind = both, .act = "delete b", .ran = "| a b c d | a c d "},
      {.kind = both, .act = "delete c delete d", .ran = "| a b | a b "},
      {.kind = "timed", .act = "interval b@0", .ran = "| a b c d | a c d "},
      {.kind = "timed", .act = "interval b@-1", .ran = "| a b c d | a c d "},  // the longest
  };
  for (const auto& row : cases) {
    std::istringstream kinds(row.kind);
    for (std::string kind; kinds >> kind;) {
      SCOPED_TRACE(kind + " tasks, b does: " + row.act);
      Clean();
      Start("d", 40, kind == "timed" ? 140 : 0);
      Start("b", 20, kind == "timed" ? 120 : 0);
      Start("c", 30, kind == "timed" ? 130 : 0);
      Start("a", 10, kind == "timed" ? 110 : 0);
      React("b", "update", row.act);
      EXPECT_EQ(RunFrames({"wait clock@150", "wait clock@150"}), row.ran);
    }
  }
}

TEST_F(CKernelTest, NoHookIsCalledAfterTheExit) {
  for (const unsigned interval : {0U, 10U}) {
    for (const char* hook : {"start", "update", "pause", "resume", "exit"}) {
      for (const char* act :
           {"pause t", "resume t", "kill t", "delete t", "start other@50", "focus lost"}) {
        SCOPED_TRACE(std::string(act) + " in the hook " + hook);
        Clean();
        Make("t", 20, interval).myPausesOnFocusLost = true;
        React("t", hook, act);
        Kernel().StartTask(myTasks["t"].get(), nullptr);
        const std::string started = ourRecord;
        const std::string ran =
            started + RunFrames({"wait clock@15", "wait clock@15 pause t", "wait clock@15",
                                 "wait clock@15 resume t", "wait clock@15", "kill t"});
        const std::size_t exit = ran.find("t.exit");
        if (exit == std::string::npos) {
          EXPECT_EQ(myTasks["t"], nullptr) << ran;
        } else {
          EXPECT_EQ(ran.find("t.", exit + 1), std::string::npos) << ran;
        }
      }
    }
  }
}

TEST_F(CKernelTest, QuitEndsTheFrameThenKillsAllByPriority) {
  Start("timed", 7, 20);
  Do("start first@1 start gfx@80 park window@1000");
  Start("game", 50).myPausesOnFocusLost = true;
  Do("start scripted@60 pause scripted start dead@70 kill dead");
  // An Exit that deletes others, or starts a task, must not lead into them.
  React("first", "exit", "delete scripted start late@5");
  Do("focus lost");
  RunFrames({});
  EXPECT_EQ(ourRecord, "first gfx first.exit game.exit gfx.exit timed.exit window.exit ");
  EXPECT_TRUE(myTasks["late"]->IsDead());
  EXPECT_FALSE(Start("next", 1).IsDead()) << "the kernel has ended, and may begin anew";
}

TEST_F(CKernelTest, TheFocusPausesTheTasksThatWantItAndResumesOnlyThem) {
  const struct {
    std::string before, meanwhile, ran;
  } cases[] = {
      {.before = "", .meanwhile = "focus lost", .ran = "| game.pause game.resume game other "},
      {.before = "pause game", .meanwhile = "", .ran = "| game.pause other "},
      {.before = "", .meanwhile = "pause game", .ran = "| game.pause other "},
      {.before = "", .meanwhile = "resume game", .ran = "| game.pause game.resume game other "},
      {.before = "",
       .meanwhile = "resume game pause game",
       .ran = "| game.pause game.resume game.pause other "},
      {.before = "", .meanwhile = "kill game", .ran = "| game.pause game.exit other "},
      {.before = "", .meanwhile = "delete game", .ran = "| game.pause other "},
      {.before = "kill game", .meanwhile = "", .ran = "| game.exit other "},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE("before: " + row.before + ", meanwhile: " + row.meanwhile);
    Clean();
    Start("game", 50).myPausesOnFocusLost = true;
    Start("other", 60);
    EXPECT_EQ(RunFrames({row.before + " focus lost " + row.meanwhile + " focus gained"}), row.ran);
  }
}

TEST_F(CKernelTest, TimedTasksCatchUpInTheOrderOfTheirDueTimes) {
  myClock.Advance(0xFFFFFFFFU - 120 - myClock.Now());  // wraps on the way
  Start("slow", 10, 100);
  Start("fast", 99, 50);
  // A task is due only past its time. Of two that are due at once, the one that ran comes first.
  EXPECT_EQ(RunFrames({"", "wait clock@100", "wait clock@1", "wait clock@250", "wait clock@50"}),
            "| | fast | fast slow | fast fast slow fast fast slow fast | fast slow ");
}

TEST_F(CKernelTest, ATimedTaskCountsFromItsResume) {
  Start("t", 10, 100);
  // A task that is not paused cannot be resumed. Paused after 90 ms, resumed after 180.
  EXPECT_EQ(RunFrames({"resume t wait clock@90", "pause t wait clock@90", "resume t wait clock@100",
                       "wait clock@1"}),
            "| | t.pause | t.resume | t ");
}

TEST_F(CKernelTest, TasksCompareByTheirIntervalsIfTheyAreTimed) {
  const CRecorder& slow = Make("slow", 5, 300);
  const CRecorder& fast = Make("fast", 9, 200);
  EXPECT_TRUE(fast.IsLessThan(&slow));
  EXPECT_FALSE(slow.IsLessThan(&fast));
  EXPECT_FALSE(fast.IsLessThan(&fast));
}

TEST_F(CKernelTest, AFrameRestsForATenthOfASecondAtMost) {
  Kernel().FrameSleep() = 5000;
  const auto start = std::chrono::steady_clock::now();
  RunFrames({});
  const auto rest = std::chrono::steady_clock::now() - start;
  EXPECT_GE(rest, std::chrono::milliseconds(100));
  EXPECT_LT(rest, std::chrono::milliseconds(5000));
  EXPECT_EQ(Kernel().FrameSleep(), 100);
}

}  // namespace
}  // namespace vask::test
