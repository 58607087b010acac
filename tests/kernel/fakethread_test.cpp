#include "kernel/fakethread.h"

#include "support/fakeclock.h"

#include <gtest/gtest.h>

#include <functional>

namespace vask {
namespace {

std::string record;

struct CThread : CFakeThread {
  CThread(char itsName, int interval) : name(itsName) { SetInterval(interval), Start(); }
  ~CThread() override { record += std::string("~") + name; }
  void Update() override {
    record += name;
    const auto once = std::exchange(react, nullptr);
    once ? once() : void();
  }
  char name;
  std::function<void()> react;
};

TEST(FakeThread, RunsEveryIntervalOfItsTimeAndHoldsBackTheYounger) {
  test::CFakeClock clock(0xFFFFFFF0U);
  auto* a = new CThread('a', 20);
  auto* b = new CThread('b', 10);
  // clang-format off
  const struct { std::function<void()> act; unsigned wait; const char* ran; } steps[] = {
      {[] {}, 0, "ab"}, {[] {}, 19, ""}, {[] {}, 1, "ab"}, {[] {}, 100, "ab"}, {[] {}, 19, ""},
      {[&] { a->Pause(); }, 500, ""}, {[&] { a->Resume(); }, 0, ""}, {[] {}, 1, "ab"},
      {[&] { b->Pause(); }, 30, "a"}, {[&] { b->Kill(), a->Pause(); }, 30, ""},
      {[&] { a->Start(); }, 0, "a~b"},  // from 0, and due at once
      {[&] { a->react = [&] { b = new CThread('b', 10); }; }, 20, "ab"},
      {[&] { a->react = [&] { delete b, new CThread('c', 10); }; }, 20, "a~bc"},
      {[&] { a->react = [&] { a->Kill(); }; }, 20, "a~ac"},
      {[] { new CThread('d', 10); }, 20, "cd"},
      {[] { static_cast<CThread*>(CFakeThread::GetList().Front())->react = [] {
          while (CFakeThread::PeekList()) { delete CFakeThread::GetList().Front(); } }; }, 20, "c~c~d"},
  };
  // clang-format on
  for (const auto& step : steps) {
    step.act();
    clock.Advance(step.wait);
    CFakeThread::RunThreads(0);
    EXPECT_EQ(std::exchange(record, {}), step.ran) << "step " << &step - steps;
  }
}

}  // namespace
}  // namespace vask
