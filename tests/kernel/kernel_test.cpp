#include "kernel/kernel.h"

#include "events/eventbridge.h"
#include "kernel/applicationfactory.h"
#include "kernel/fakethread.h"
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
struct CRecorder : CTask {
  using CTask::Start;
  bool Start() override {
    Note("start", ".start");
    return myRuns;
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

  void Note(const std::string& hook, const std::string& written) {
    ourRecord += GetName() + written + " ";
    if (auto reaction = myReactions.extract(hook)) {
      reaction.mapped()();
    }
  }
};

// Writes its name down when it runs, and "~" and its name when it is deleted.
struct CThread : CFakeThread {
  CThread(const char* name, int interval) : myName(name) {
    SetInterval(interval);
    Start();
  }
  ~CThread() override { ourRecord += "~" + myName + " "; }
  void Update() override {
    ourRecord += myName + " ";
    if (const auto reaction = std::exchange(myReaction, nullptr)) {
      reaction();
    }
  }

  std::function<void()> myReaction;  // called once; may delete the thread
  std::string myName;
};

// A fresh kernel, a clock that only the test moves, and tasks that record.
struct CKernelTest : testing::Test {
  ~CKernelTest() override { Clean(); }

  void Clean() {
    myTasks.clear();
    ourRecord.clear();
    CTaskFactory::DeleteSingleton();
    CKernel::DeleteSingleton();
    CApplicationFactory::DeleteSingleton();
  }

  static CKernel& Kernel() { return CKernel::GetSingleton(); }

  CRecorder& Start(const std::string& name, int priority, unsigned interval = 0, bool runs = true) {
    CRecorder& task = *(myTasks[name] = std::make_unique<CRecorder>());
    task.SetName(name);
    task.SetPriority(priority);
    task.SetTimedInterval(interval);
    task.myRuns = runs;
    Kernel().StartTask(&task, nullptr);
    return task;
  }

  // Does what the words say: each time a verb and a task, with "@" and a number where one belongs.
  void Do(const std::string& acts) {
    std::istringstream words(acts);
    for (std::string verb, name; words >> verb >> name;) {
      const std::size_t at = name.find('@');
      const int number = at == std::string::npos ? 0 : std::stoi(name.substr(at + 1));
      myVerbs.at(verb)(name.substr(0, at), number);
    }
  }

  // Lets the task do something, once, in its hook of that name.
  void React(const std::string& name, const std::string& hook, const std::string& acts) {
    myTasks[name]->myReactions[hook] = [=, this] { Do(acts); };
  }

  // Runs a frame for each of the acts, which are done at its start, then quits. Returns what the
  // frames recorded, each after a "| "; ourRecord then holds the frame in which the kernel quits.
  std::string RunFrames(const std::vector<std::string>& acts) {
    struct CDriver : CTask {
      void Update() override { act(); }
      std::function<void()> act;
    } driver;
    std::string ran;
    driver.SetPriority(-1000);
    driver.act = [&, frame = acts.begin()]() mutable {
      if (frame == acts.end()) {
        ran = std::exchange(ourRecord, {});
        return Kernel().Quit();
      }
      ourRecord += "| ";
      Do(*frame++);
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
      {"lose", [](auto&, int) { CEventBridge::GetSingleton().FocusEvent(false); }},
      {"gain", [](auto&, int) { CEventBridge::GetSingleton().FocusEvent(true); }},
      {"hurry", [](auto&, int time) { Kernel().SleepAtMost(time); }},
      {"start", [this](auto& name, int priority) { Start(name, priority); }},
      {"park", [this](auto& name, int priority) { Start(name, priority, 0, false); }},
      {"pause", [this](auto& name, int) { Kernel().PauseTask(myTasks[name].get()); }},
      {"resume", [this](auto& name, int) { Kernel().ResumeTask(myTasks[name].get()); }},
      {"kill", [this](auto& name, int) { Kernel().KillTask(myTasks[name].get()); }},
      {"delete", [this](auto& name, int) { myTasks[name].reset(); }},
      {"interval", [this](auto& name, int time) { myTasks[name]->SetTimedInterval(time); }}};
};

TEST_F(CKernelTest, RunsTasksThenThreadsUntilOnlyParkedTasksAreLeft) {
  const CThread thread("thread", 1);
  Start("timed", 10, 10, false);
  Do("park parked@10");
  CRecorder task;
  task.SetName("a");
  task.myReactions["update"] = [&task] { Kernel().KillTask(&task); };
  CKernel::GetSingletonPtr()->StartTask(&task, nullptr);
  CKernel::GetSingletonPtr()->Run();  // until no task is left in the run list
  EXPECT_EQ(ourRecord, "timed.start parked.start a.start a a.exit thread parked.exit timed.exit ");
}

const std::vector<bool> kPlain = {false}, kTimed = {true};

// What two frames of the tasks a to d run when b does something in the first one.
TEST_F(CKernelTest, ATaskMayChangeTheListsWhileTheyAreWalkedAndInAHook) {
  const struct {
    std::string act, ran;
    std::vector<bool> kinds = {false, true};
    std::string onPause = "", onResume = "";  // what c does then
  } cases[] = {
      {.act = "start x@25", .ran = "| a b x.start x c d | a b x c d ", .kinds = kPlain},
      {.act = "start x@20", .ran = "| a b x.start c d | a x b c d ", .kinds = kPlain},
      {.act = "park x@25", .ran = "| a b x.start c d | a b c d ", .kinds = kPlain},
      {.act = "pause b pause b", .ran = "| a b b.pause c d | a c d "},
      {.act = "pause c", .ran = "| a b c.pause d | a b d "},
      {.act = "pause c resume c", .ran = "| a b c.pause c.resume c d | a b c d ", .kinds = kPlain},
      {.act = "pause b resume b", .ran = "| a b b.pause b.resume c d | a c b d ", .kinds = kTimed},
      {.act = "kill b", .ran = "| a b b.exit c d | a c d "},
      {.act = "kill c kill c pause c", .ran = "| a b c.exit d | a b d "},
      {.act = "pause c kill c resume c", .ran = "| a b c.pause c.exit d | a b d "},
      {.act = "delete b", .ran = "| a b c d | a c d "},
      {.act = "delete c delete d", .ran = "| a b | a b "},
      {.act = "pause c", .ran = "| a b c.pause c.exit d | a b d ", .onPause = "kill c"},
      {.act = "pause c", .ran = "| a b c.pause d | a b d ", .onPause = "delete c"},
      {.act = "pause c resume c",
       .ran = "| a b c.pause c.resume d | a b d ",
       .onResume = "delete c"},
      {.act = "interval b@0", .ran = "| a b c d | a c d ", .kinds = kTimed},
      {.act = "interval b@-1", .ran = "| a b c d | a c d ", .kinds = kTimed}};  // the longest
  for (const auto& row : cases) {
    for (const bool isTimed : row.kinds) {
      SCOPED_TRACE((isTimed ? "timed, " : "plain, ") + row.act + row.onPause + row.onResume);
      Clean();
      Start("d", 40, isTimed ? 140 : 0);
      Start("b", 20, isTimed ? 120 : 0);
      Start("c", 30, isTimed ? 130 : 0);
      Start("a", 10, isTimed ? 110 : 0);
      React("b", "update", row.act);
      React("c", "pause", row.onPause);
      React("c", "resume", row.onResume);
      EXPECT_EQ(RunFrames({"wait clock@150", "wait clock@150"}), row.ran);
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
  Do("lose focus");
  RunFrames({});
  EXPECT_EQ(ourRecord, "first gfx first.exit game.exit gfx.exit timed.exit window.exit ");
  EXPECT_TRUE(myTasks["late"]->IsDead());
  EXPECT_FALSE(Start("next", 1).IsDead()) << "the kernel has ended, and may begin anew";
}

TEST_F(CKernelTest, TheFocusPausesTheTasksThatWantItAndResumesOnlyThem) {
  const auto ran = [this](const std::string& acts) {
    Clean();
    Start("game", 50).myPausesOnFocusLost = true;
    Start("other", 60);
    return RunFrames({acts});
  };
  EXPECT_EQ(ran("lose focus gain focus"), "| game.pause game.resume game other ");
  EXPECT_EQ(ran("pause game lose focus gain focus"), "| game.pause other ");
  EXPECT_EQ(ran("lose focus pause game gain focus"), "| game.pause other ");
  EXPECT_EQ(ran("lose focus resume game gain focus"), "| game.pause game.resume game other ");
  EXPECT_EQ(ran("lose focus resume game pause game gain focus"),
            "| game.pause game.resume game.pause other ");
  EXPECT_EQ(ran("lose focus kill game gain focus"), "| game.pause game.exit other ");
}

TEST_F(CKernelTest, AResumeThatLosesTheFocusAgainLeavesTheOthersPaused) {
  Start("first", 50).myPausesOnFocusLost = true;
  Start("second", 60).myPausesOnFocusLost = true;
  React("first", "resume", "lose focus");
  EXPECT_EQ(RunFrames({"lose focus gain focus", "gain focus"}),
            "| first.pause second.pause first.resume first | second.resume first second ");
}

TEST_F(CKernelTest, TimedTasksCatchUpInTheOrderOfTheirDueTimes) {
  myClock.Advance(0xFFFFFFFFU - 120 - myClock.Now());  // wraps on the way
  Start("slow", 10, 100);
  Start("fast", 99, 50);
  // A task is due only past its time. Of two that are due at once, the one that ran comes first.
  EXPECT_EQ(RunFrames({"", "wait clock@100", "wait clock@1", "wait clock@250", "wait clock@50"}),
            "| | fast | fast slow | fast fast slow fast fast slow fast | fast slow ");
}

TEST_F(CKernelTest, TimedTasksRunAtThePriority100) {
  Do("start equal@100 start early@99");
  Start("timed", 0, 10);
  EXPECT_EQ(RunFrames({"wait clock@11"}), "| early timed equal ");
}

TEST_F(CKernelTest, ATimedTaskCountsFromItsResume) {
  Start("t", 10, 100);
  const std::string pause = "resume t wait clock@90 pause t";  // what runs cannot be resumed
  EXPECT_EQ(RunFrames({pause, "wait clock@90 resume t wait clock@100", "wait clock@1"}),
            "| t.pause | t.resume | t ");
}

TEST_F(CKernelTest, AFrameRestsForATenthOfASecondAtMost) {
  Kernel().FrameSleep() = -7;
  RunFrames({});
  EXPECT_EQ(Kernel().FrameSleep(), 0);
  Kernel().FrameSleep() = 5000;
  const auto start = std::chrono::steady_clock::now();
  RunFrames({});
  const auto rest = std::chrono::steady_clock::now() - start;
  EXPECT_GE(rest, std::chrono::milliseconds(100));
  EXPECT_LT(rest, std::chrono::milliseconds(5000));
  EXPECT_EQ(Kernel().FrameSleep(), 100);
}

TEST_F(CKernelTest, ATaskMayShortenTheRestOfAFrame) {
  Kernel().FrameSleep() = 100;
  const auto start = std::chrono::steady_clock::now();
  RunFrames(std::vector<std::string>(30, "hurry task@0 hurry task@50"));
  const auto rests = std::chrono::steady_clock::now() - start;
  EXPECT_LT(rests, std::chrono::milliseconds(30 * 100 / 2));
  EXPECT_EQ(Kernel().NextSleep(), 100) << "the limit is for one frame";
}

// What a pass over the threads runs when the clock has gone on by so many milliseconds.
struct CFakeThreadTest : testing::Test {
  ~CFakeThreadTest() override {
    DeleteAll();
    ourRecord.clear();
  }
  static void DeleteAll() {
    while (CFakeThread::PeekList() != nullptr) {
      delete CFakeThread::GetList().Front();
    }
  }
  std::string RunAfter(unsigned milliseconds) {
    myClock.Advance(milliseconds);
    CFakeThread::RunThreads(0);
    return std::exchange(ourRecord, {});
  }

  CFakeClock myClock{0xFFFFFFF0U};  // wraps soon
  CThread* a = new CThread("a", 20);
  CThread* b = new CThread("b", 10);
};

TEST_F(CFakeThreadTest, AThreadThatWaitsOrPausesHoldsBackTheYounger) {
  EXPECT_EQ(RunAfter(0), "a b ");
  EXPECT_EQ(RunAfter(100), "a b ");
  EXPECT_EQ(RunAfter(19), "");
  a->Pause();
  EXPECT_EQ(RunAfter(500), "");
  a->Resume();
  EXPECT_EQ(RunAfter(0), "");
  EXPECT_EQ(RunAfter(1), "a b ");
}

TEST_F(CFakeThreadTest, AStartAfterAPauseBeginsAnew) {
  RunAfter(0);
  myClock.Advance(15);
  a->Start();  // nothing, since it runs
  EXPECT_EQ(a->GetTime(), 15U);
  a->Pause();
  a->Start();
  EXPECT_EQ(a->GetTime(), 0U);
  EXPECT_EQ(RunAfter(0), "a b ");
}

// "Less" comes first.
TEST_F(CFakeThreadTest, SortsTheLaterDueBeforeTheSoonerThenThePausedThenTheDead) {
  RunAfter(0);
  myClock.Advance(6);
  EXPECT_TRUE(a->IsLessThan(b)) << "b is due sooner";
  EXPECT_FALSE(b->IsLessThan(a));
  a->Pause();
  EXPECT_FALSE(a->IsLessThan(b));
  b->Kill();
  EXPECT_FALSE(b->IsLessThan(a));
}

TEST_F(CFakeThreadTest, AnUpdateMayKillDeleteAndMakeThreads) {
  a->myReaction = [this] {
    delete b;
    b = new CThread("c", 10);
  };
  EXPECT_EQ(RunAfter(20), "a ~b c ");
  a->myReaction = [this] { a->Kill(); };
  EXPECT_EQ(RunAfter(20), "a ~a c ");
  b->Kill();
  a = new CThread("d", 10);
  EXPECT_EQ(RunAfter(20), "~c d ");
  a->myReaction = &DeleteAll;
  EXPECT_EQ(RunAfter(20), "d ~d ");
}

}  // namespace
}  // namespace vask::test
