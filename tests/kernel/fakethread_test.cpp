#include "kernel/fakethread.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "support/fakeclock.h"

namespace vask {
namespace {

class CThread : public CFakeThread {
 public:
  CThread(char name, int interval, std::string& record) : myName(name), myRecord(record) {
    SetInterval(interval);
  }
  ~CThread() override { myRecord += std::string("~") + myName; }
  void Update() override {
    myRecord += myName;
    if (react) {
      std::exchange(react, nullptr)();
    }
  }
  std::function<void()> react;

 private:
  char myName;
  std::string& myRecord;
};

class FakeThreadTest : public testing::Test {
 protected:
  ~FakeThreadTest() override {
    while (CFakeThread::PeekList() != nullptr) {
      delete CFakeThread::GetList().Front();
    }
  }
  CThread& Make(char name, int interval = 10) { return *new CThread(name, interval, record); }
  CThread& Start(char name, int interval = 10) {
    CThread& thread = Make(name, interval);
    thread.Start();
    return thread;
  }
  std::string Run(unsigned wait = 0, unsigned slice = 0) {
    clock.Advance(wait);
    CFakeThread::RunThreads(slice);
    return std::exchange(record, {});
  }

  // One call after each wait, their records divided by "|".
  std::string RunAfter(const std::vector<unsigned>& waits) {
    std::string all;
    for (const unsigned wait : waits) {
      all += (all.empty() ? "" : "|") + Run(wait);
    }
    return all;
  }

  test::CFakeClock clock{0xFFFFFFF0U};
  std::string record;
};

TEST_F(FakeThreadTest, RunsAtOnceThenEveryInterval) {
  EXPECT_EQ(Run(), "");
  CThread& a = Make('a', 20);
  EXPECT_EQ(Run(100), "");
  a.Start();
  EXPECT_EQ(RunAfter({0, 19, 1, 100, 19}), "a||a|a|");
  a.Pause();
  EXPECT_EQ(Run(500), "");
  a.Resume();
  EXPECT_EQ(a.GetTime(), 139U);
  EXPECT_EQ(Run(), "");
  EXPECT_EQ(Run(1), "a");
  a.Pause();
  a.Start();  // from 0, and due at once
  EXPECT_EQ(Run(), "a");
}

TEST_F(FakeThreadTest, APausedOrWaitingThreadHoldsBackTheYounger) {
  CThread& a = Start('a', 30);
  CThread& b = Start('b');
  Start('c');
  EXPECT_EQ(RunAfter({0, 20, 10}), "abc||abc");
  b.Pause();
  EXPECT_EQ(Run(30), "a");
  b.Kill();
  a.Pause();
  EXPECT_EQ(Run(30), "");  // the dead one waits for its turn, too
  a.Resume();
  EXPECT_EQ(Run(30), "a~bc");
}

TEST_F(FakeThreadTest, ThreadsComeAndGoInAnUpdate) {
  CThread* b = nullptr;
  struct CCase {
    const char* what;
    std::function<void(CThread*)> act;  // by a, before b and c
    const char* ran;
  };
  for (const CCase& c : std::vector<CCase>{
           {"kills itself", [](CThread* a) { a->Kill(); }, "a~abc"},
           {"deletes itself", [](CThread* a) { delete a; }, "a~abc"},
           {"deletes the next", [&](CThread*) { delete b; }, "a~bc"},
           {"kills the next", [&](CThread*) { b->Kill(); }, "a~bc"},
           {"deletes both", [&](CThread* a) { delete a, delete b; }, "a~a~bc"},
           {"pauses itself", [](CThread* a) { a->Pause(); }, "abc"},
           {"starts another", [this](CThread*) { Start('d'); }, "abcd"},
       }) {
    CThread& a = Start('a');
    b = &Start('b');
    Start('c');
    a.react = [&] { c.act(&a); };
    EXPECT_EQ(Run(), c.ran) << c.what;
    while (CFakeThread::PeekList() != nullptr) {
      delete CFakeThread::GetList().Front();
    }
    record.clear();
  }
  Start('x').react = [] { delete CFakeThread::GetList().Front(); };  // the last of all
  EXPECT_EQ(Run(), "x~x");
}

TEST_F(FakeThreadTest, ASliceRepeatsPassesFromTheFront) {
  CThread& a = Start('a', 0);
  a.react = [&] {
    clock.Advance(10);
    a.react = [&] {
      clock.Advance(15);
      Start('b');
    };
  };
  EXPECT_EQ(Run(0, 20), "aab");
}

}  // namespace
}  // namespace vask
