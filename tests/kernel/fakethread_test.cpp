#include "kernel/fakethread.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "support/fakeclock.h"

namespace vask {
namespace {

struct CThread : CFakeThread {
  CThread(char itsName, int interval, std::string& itsRecord) : name(itsName), record(itsRecord) {
    SetInterval(interval);
    Start();
  }
  ~CThread() override { record += std::string("~") + name; }
  void Update() override {
    record += name;
    if (const auto once = std::exchange(react, nullptr)) {
      once();
    }
  }
  char name;
  std::string& record;
  std::function<void()> react;
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
  std::string Run(const std::vector<unsigned>& waits = {0}) {
    std::string all;
    for (const unsigned wait : waits) {
      clock.Advance(wait);
      CFakeThread::RunThreads(0);
      all += std::exchange(record, {}) + "|";
    }
    return all;
  }

  test::CFakeClock clock{0xFFFFFFF0U};
  std::string record;
};

TEST_F(FakeThreadTest, RunsEveryIntervalOfItsTimeAndHoldsBackTheYounger) {
  EXPECT_EQ(Run(), "|");
  CThread& a = Start('a', 20);
  EXPECT_EQ(Run({0, 19, 1, 100, 19}), "a||a|a||");
  a.Pause();
  EXPECT_EQ(Run({500}), "|");
  a.Resume();
  EXPECT_EQ(a.GetTime(), 139U);
  EXPECT_EQ(Run({0, 1}), "|a|");
  CThread& b = Start('b');
  Start('c');
  EXPECT_EQ(Run({0, 19, 1}), "||abc|");
  b.Pause();
  EXPECT_EQ(Run({30}), "a|");
  b.Kill();
  a.Pause();
  EXPECT_EQ(Run({30}), "|");  // the dead one waits for its turn, too
  a.Start();                  // from 0, and due at once
  EXPECT_EQ(Run(), "a~bc|");
}

TEST_F(FakeThreadTest, ThreadsComeAndGoInAnUpdate) {
  CThread* a = nullptr;
  CThread* b = nullptr;
  const std::pair<std::function<void()>, const char*> cases[] = {
      // by a, before b and c
      {[&] { a->Kill(); }, "a~abc|"},
      {[&] { delete a; }, "a~abc|"},
      {[&] { delete b; }, "a~bc|"},
      {[&] { b->Kill(); }, "a~bc|"},
      {[&] { delete a, delete b; }, "a~a~bc|"},
      {[&] { a->Pause(); }, "abc|"},
      {[&] { Start('d'); }, "abcd|"},
      {[&] { Clean(); }, "|"},
  };
  for (const auto& [act, ran] : cases) {
    Clean();
    a = &Start('a');
    b = &Start('b');
    Start('c');
    a->react = act;
    EXPECT_EQ(Run(), ran);
  }
}

}  // namespace
}  // namespace vask
