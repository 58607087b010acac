#include "utils/timer/timer.h"

#include <gtest/gtest.h>

#include <functional>

#include "events/eventbridge.h"
#include "support/fakeclock.h"
#include "utils/timer/derivedglobaltimer.h"
#include "utils/timer/globalapptimer.h"
#include "utils/xml/xmlcontext.h"

namespace vask {
namespace {

using test::CFakeClock;

TEST(Timer, CountsPausesAndJumps) {
  // clang-format off
  const struct {
    const char* what;
    std::function<void(CTimer&)> act;
    unsigned wait;
    unsigned time;
  } steps[] = {
      {"runs from 0", [](CTimer&) {}, 250, 250},
      {"stands still", [](CTimer& t) { t.Pause(); }, 1000, 250},
      {"pauses once", [](CTimer& t) { t.Pause(); }, 10, 250},
      {"goes on", [](CTimer& t) { t.Resume(); }, 50, 300},
      {"resumes once", [](CTimer& t) { t.Resume(); }, 50, 350},
      {"goes back", [](CTimer& t) { t -= 100; }, 0, 250},
      {"below 0", [](CTimer& t) { t -= 300; }, 20, 0},
      {"until the source catches up", [](CTimer&) {}, 40, 10},
      {"resets", [](CTimer& t) { t.Reset(); }, 5, 5},
      {"is set", [](CTimer& t) { t.SetTime(7000); }, 5, 7005},
      {"goes back paused", [](CTimer& t) { t.Pause(), t -= 7010; }, 100, 0},
      {"and owes the rest", [](CTimer& t) { t.Resume(); }, 25, 20},
      {"resets paused", [](CTimer& t) { t.Pause(), t.Reset(); }, 30, 0},
      {"set paused", [](CTimer& t) { t.SetTime(60); }, 30, 60},
      {"takes another's time", [](CTimer& t) { t.Resume(), t -= CTimer(&t); }, 1, 61},
      {"counts 37 days", [](CTimer& t) { t.Reset(); }, 37 * 86'400'000U, 37 * 86'400'000U},
  };
  // clang-format on
  for (const unsigned start : {0U, 1000U, 0x80000000U, 0xFFFFFFFFU, 0xFFFFFF00U}) {
    CFakeClock clock(start);
    CTimer timer;
    for (const auto& step : steps) {
      step.act(timer);
      clock.Advance(step.wait);
      EXPECT_EQ(timer.GetTime(), step.time) << step.what << ", clock from " << start;
    }
  }
}

TEST(Timer, AChainFollowsItsSource) {
  CFakeClock clock;
  CTimer source;
  CTimer timer(&source);
  CTimer other;
  clock.Advance(100);
  source.Pause();
  timer.Mark();
  CDerivedGlobalTimer::Instance()->Pause();  // which nothing stops
  clock.Advance(100);
  EXPECT_FLOAT_EQ(timer.GetSeconds() + timer.GetSecondsSinceMark(), 0.1F);
  timer = other;  // takes the state, 1000 being the clock's start, but keeps its own source
  EXPECT_EQ(timer.GetTime(), 0U);
  const CTimer less = other - 50;
  EXPECT_EQ(less.GetTime(), 150U);
  EXPECT_EQ((other - less).GetTime(), 50U);
  const CFakeClock replay(1510);
  EXPECT_EQ(other.GetTime(), 510U);
  SetGlobalTimerImpl({});
  EXPECT_EQ(GetGlobalTime(), 0U);
}

TEST(Timer, SavesAndLoads) {
  const struct {
    const char* time;
    const char* pause;
    unsigned now;
    unsigned later;
  } cases[] = {
      {"700", nullptr, 700, 700}, {"700", "1", 700, 700}, {"700", "0", 700, 705},
      {nullptr, "1", 30, 30},     {nullptr, "0", 30, 35}, {nullptr, nullptr, 30, 30},
  };
  for (const auto& c : cases) {  // into a timer that is paused at 30, then 5 ms go by
    CFakeClock clock(100000);
    CTimer timer;
    timer.SetTime(30);
    timer.Pause();
    clock.Advance(400);
    CXmlElement root("Root");
    for (const auto& [name, content] : {std::pair("time", c.time), std::pair("pause", c.pause)}) {
      if (content != nullptr) {
        root.AddChild(std::make_unique<CXmlElement>(name))->SetContent(content);
      }
    }
    CXmlContext reading(&root, CXmlContext::kReading);
    timer.Serialize(reading);
    EXPECT_EQ(timer.GetTime(), c.now);
    clock.Advance(5);
    EXPECT_EQ(timer.GetTime(), c.later);
    CXmlElement written("Root");
    CXmlContext writing(&written, CXmlContext::kWriting);
    timer.Serialize(writing);
    EXPECT_EQ(written.GetChildCount(), timer.IsPaused() ? 2 : 1);
  }
}

TEST(AppTimer, StandsStillWithoutTheFocus) {
  CFakeClock clock;
  const CTimer game(CGlobalAppTimer::GetSingletonPtr());
  clock.Advance(10);
  CEventBridge::GetSingleton().FocusEvent(false);
  clock.Advance(1000);
  EXPECT_EQ(game.GetTime(), 10U);
  CEventBridge::GetSingleton().FocusEvent(true);
  clock.Advance(5);
  EXPECT_EQ(game.GetTime(), 15U);
  CGlobalAppTimer::DeleteSingleton();
  CEventBridge::GetSingleton().FocusEvent(false);  // its listener has left
}

}  // namespace
}  // namespace vask
