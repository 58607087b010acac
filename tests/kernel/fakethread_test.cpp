#include "kernel/fakethread.h"

#include "support/fakeclock.h"

#include <gtest/gtest.h>

#include <functional>

namespace vask::test {
namespace {

std::string ourRecord;

// Writes its letter down when it runs, and "~" and its letter when it is deleted.
struct CThread : CFakeThread {
  CThread(char name, int interval) : myName(name) {
    SetInterval(interval);
    Start();
  }
  ~CThread() override { ourRecord += std::string("~") + myName; }
  void Update() override {
    ourRecord += myName;
    if (const auto reaction = std::exchange(myReaction, nullptr)) {
      reaction();
    }
  }

  std::function<void()> myReaction;  // called once; may delete the thread

  char myName;
};

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
  CThread* a = new CThread('a', 20);
  CThread* b = new CThread('b', 10);
};

TEST_F(CFakeThreadTest, RunsAtItsIntervalAndHoldsBackTheYounger) {
  EXPECT_EQ(RunAfter(0), "ab");
  EXPECT_EQ(RunAfter(19), "");
  EXPECT_EQ(RunAfter(1), "ab");
  EXPECT_EQ(RunAfter(100), "ab");
  EXPECT_EQ(RunAfter(19), "");
}

TEST_F(CFakeThreadTest, APausedThreadHoldsBackTheYoungerAndItsTimeStops) {
  RunAfter(0);
  myClock.Advance(19);
  a->Pause();
  EXPECT_EQ(RunAfter(500), "");
  a->Resume();
  EXPECT_EQ(RunAfter(0), "");
  EXPECT_EQ(RunAfter(1), "ab");
  a->Pause();
  a->Start();
  EXPECT_EQ(RunAfter(0), "a") << "its time begins anew";
}

TEST_F(CFakeThreadTest, AnUpdateMayKillDeleteAndMakeThreads) {
  a->myReaction = [this] {
    delete b;
    b = new CThread('c', 10);
  };
  EXPECT_EQ(RunAfter(20), "a~bc");
  a->myReaction = [this] { a->Kill(); };
  EXPECT_EQ(RunAfter(20), "a~ac");
  b->Kill();
  a = new CThread('d', 10);
  EXPECT_EQ(RunAfter(20), "~cd");
  a->myReaction = &DeleteAll;
  EXPECT_EQ(RunAfter(20), "d~d");
}

}  // namespace
}  // namespace vask::test
