#include "utils/timer/timer.h"

#include "events/eventbridge.h"
#include "support/fakeclock.h"
#include "utils/timer/globalapptimer.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

namespace vask {
namespace {

TEST(Timer, CountsPausesAndJumps) {
  for (const unsigned start : {0U, 0x80000000U, 0xFFFFFF00U}) {
    SCOPED_TRACE("clock from " + std::to_string(start));
    test::CFakeClock clock(start);
    CTimer timer;
    const auto timeAfter = [&](unsigned milliseconds) {
      clock.Advance(milliseconds);
      return timer.GetTime();
    };
    EXPECT_EQ(timeAfter(250), 250U);
    timer.Pause();
    EXPECT_EQ(timeAfter(1000), 250U);
    timer.Pause();
    timer.Resume();
    timer.Resume();
    EXPECT_EQ(timeAfter(50), 300U);
    timer -= 320;
    EXPECT_EQ(timeAfter(10), 0U) << "its start lies ahead";
    EXPECT_EQ(timeAfter(40), 30U);
    timer.Pause();
    timer.SetTime(60);
    EXPECT_EQ(timeAfter(30), 60U);
    timer -= 70;
    EXPECT_EQ(timeAfter(0), 0U);
    timer.Resume();
    timer -= (1U << 30U) - 10;
    EXPECT_EQ(timeAfter(0), 0U) << "12 days ahead";
    timer.Reset();
    EXPECT_EQ(timeAfter(3'196'800'000U), 3'196'800'000U) << "37 days";
    timer.Pause();
    timer.SetTime(7);
    timer.Reset();
    EXPECT_EQ(timeAfter(5), 0U) << "still paused";
  }
}

TEST(Timer, MarksAndFollowsItsSource) {
  test::CFakeClock clock;
  CTimer source;
  CTimer timer(&source);
  clock.Advance(1500);
  EXPECT_FLOAT_EQ(timer.GetSeconds(), 1.5F);
  EXPECT_EQ(timer.Mark(), 1500U);
  clock.Advance(250);
  EXPECT_FLOAT_EQ(timer.GetSecondsSinceMark(), 0.25F);
  timer.Reset();
  EXPECT_EQ(timer.GetTimeSinceMark(), 0U);
  EXPECT_EQ((source - 100).GetTime(), 1650U);
  source.Pause();
  timer = source;
  EXPECT_EQ(timer.GetTime(), 1750U) << "is paused as well";
}

TEST(Timer, ReadsBackWhatItWrote) {
  test::CFakeClock clock;
  CTimer timer, read;
  clock.Advance(100);
  SaveXml(timer, "running.xml");
  timer.Pause();
  SaveXml(timer, "paused.xml");
  LoadXml(read, "paused.xml");
  clock.Advance(50);
  EXPECT_EQ(read.GetTime(), 100U);
  read.Resume();
  LoadXml(read, "running.xml");
  clock.Advance(50);
  EXPECT_EQ(read.GetTime(), 150U);
}

TEST(AppTimer, StopsWithoutTheFocus) {
  test::CFakeClock clock;
  CTimer timer;                                     // on the global clock, starts at 0 and runs
  CTimer game(CGlobalAppTimer::GetSingletonPtr());  // stops without the window's focus
  CEventBridge::GetSingleton().FocusEvent(false);
  clock.Advance(1000);
  CEventBridge::GetSingleton().FocusEvent(true);
  clock.Advance(5);
  EXPECT_EQ(timer.GetTime(), 1005U);
  EXPECT_EQ(game.GetTime(), 5U);
  CGlobalAppTimer::DeleteSingleton();
  CEventBridge::GetSingleton().FocusEvent(false);  // its listener has left
}

}  // namespace
}  // namespace vask
