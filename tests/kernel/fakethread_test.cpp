#include "kernel/fakethread.h"

#include <gtest/gtest.h>

#include <functional>
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
    Start();
  }
  ~CThread() override { myRecord += std::string("~") + myName; }
  void Update() override {
    myRecord += myName;
    if (const auto once = std::exchange(react, nullptr)) {
      once();
    }
  }
  std::function<void()> react;

 private:
  char myName;
  std::string& myRecord;
};

class FakeThreadTest : public testing::Test {
 protected:
  ~FakeThreadTest() override { Clean(); }
  void Clean() {
    while (CFakeThread::PeekList() != nullptr) {
      delete CFakeThread::GetList().Front();
    }
    record.clear();
  }
  CThread& Start(char name, int interval = 10) { return *new CThread(name, interval, record); }

  // One call after each wait, their records divided by "|".
  std::string Run(const std::vector<unsigned>& waits = {0}, unsigned slice = 0) {
    std::string all;
    for (const unsigned wait : waits) {
      clock.Advance(wait);
      CFakeThread::RunThreads(slice);
      all += std::exchange(record, {}) + "|";
    }
    return all;
  }

  test::CFakeClock clock{0xFFFFFFF0U};
  std::string record;
};

TEST_F(FakeThreadTest, RunsAtOnceThenEveryIntervalOfItsOwnTime) {
  EXPECT_EQ(Run(), "|");
  CThread& a = Start('a', 20);
  EXPECT_EQ(Run({0, 19, 1, 100, 19}), "a||a|a||");
  a.Pause();
  EXPECT_EQ(Run({500}), "|");
  a.Resume();
  EXPECT_EQ(a.GetTime(), 139U);
  EXPECT_EQ(Run({0, 1}), "|a|");
  a.Pause();
  a.Start();  // from 0, and due at once
  EXPECT_EQ(Run(), "a|");
}

TEST_F(FakeThreadTest, APausedOrWaitingThreadHoldsBackTheYounger) {
  CThread& a = Start('a', 30);
  CThread& b = Start('b');
  Start('c');
  EXPECT_EQ(Run({0, 20, 10}), "abc||abc|");
  b.Pause();
  EXPECT_EQ(Run({30}), "a|");
  b.Kill();
  a.Pause();
  EXPECT_EQ(Run({30}), "|");  // the dead one waits for its turn, too
  a.Resume();
  EXPECT_EQ(Run({30}), "a~bc|");
}

TEST_F(FakeThreadTest, ThreadsComeAndGoInAnUpdate) {
  CThread* a = nullptr;
  CThread* b = nullptr;
  const struct {
    const char* what;
    std::function<void()> act;  // by a, before b and c
    const char* ran;
  } cases[] = {
      {"kills itself", [&] { a->Kill(); }, "a~abc|"},
      {"deletes itself", [&] { delete a; }, "a~abc|"},
      {"deletes the next", [&] { delete b; }, "a~bc|"},
      {"kills the next", [&] { b->Kill(); }, "a~bc|"},
      {"deletes both", [&] { delete a, delete b; }, "a~a~bc|"},
      {"pauses itself", [&] { a->Pause(); }, "abc|"},
      {"starts another", [&] { Start('d'); }, "abcd|"},
      {"deletes all", [&] { Clean(); }, "|"},
  };
  for (const auto& c : cases) {
    Clean();
    a = &Start('a');
    b = &Start('b');
    Start('c');
    a->react = c.act;
    EXPECT_EQ(Run(), c.ran) << c.what;
  }
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
  EXPECT_EQ(Run({0}, 20), "aab|");
}

}  // namespace
}  // namespace vask
