#include "utils/timer/timer.h"

#include "events/eventbridge.h"
#include "support/fakeclock.h"
#include "utils/timer/globalapptimer.h"

#include <gtest/gtest.h>

#include <functional>

namespace vask {
namespace {

// clang-format off
TEST(Timer, CountsPausesAndJumps) {
  const struct { const char* what; std::function<void(CTimer&)> act; unsigned wait, time; } steps[] = {
      {"runs from 0", [](CTimer&) {}, 250, 250},
      {"stands still", [](CTimer& t) { t.Pause(), t.Pause(); }, 1000, 250},
      {"goes on", [](CTimer& t) { t.Resume(); }, 50, 300},
      {"resumes once", [](CTimer& t) { t.Resume(); }, 50, 350},
      {"goes back", [](CTimer& t) { t -= 100; }, 0, 250},
      {"below 0", [](CTimer& t) { t -= 300; }, 20, 0},
      {"until the source catches up", [](CTimer&) {}, 40, 10},
      {"is set", [](CTimer& t) { t.SetTime(7000); }, 5, 7005},
      {"goes back paused", [](CTimer& t) { t.Pause(), t -= 7010; }, 100, 0},
      {"and owes the rest", [](CTimer& t) { t.Resume(); }, 25, 20},
      {"resets paused", [](CTimer& t) { t.Pause(), t.Reset(); }, 30, 0},
      {"set paused", [](CTimer& t) { t.SetTime(60); }, 30, 60},
      {"takes another's time", [](CTimer& t) { t.Resume(), t -= CTimer(&t); }, 1, 61},
      {"counts 37 days", [](CTimer& t) { t.Reset(); }, 37 * 86'400'000U, 37 * 86'400'000U},
  };
  for (const unsigned start : {0U, 1000U, 0x80000000U, 0xFFFFFFFFU, 0xFFFFFF00U}) {
    test::CFakeClock clock(start);
    CTimer timer;
    for (const auto& step : steps) {
      step.act(timer);
      clock.Advance(step.wait);
      EXPECT_EQ(timer.GetTime(), step.time) << step.what << ", clock from " << start;
    }
  }
}
// clang-format on

TEST(AppTimer, StandsStillWithoutTheFocus) {
  test::CFakeClock clock;
  const CTimer game(CGlobalAppTimer::GetSingletonPtr());
  CEventBridge::GetSingleton().FocusEvent(false);
  clock.Advance(1000);
  CEventBridge::GetSingleton().FocusEvent(true);
  clock.Advance(5);
  EXPECT_EQ(game.GetTime(), 5U);
  CGlobalAppTimer::DeleteSingleton();
  CEventBridge::GetSingleton().FocusEvent(false);  // its listener has left
}

}  // namespace
}  // namespace vask
