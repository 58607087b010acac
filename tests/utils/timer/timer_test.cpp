#include "utils/timer/timer.h"

#include "events/eventbridge.h"
#include "support/fakeclock.h"
#include "utils/timer/globalapptimer.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <sstream>

namespace vask {
namespace {

// Each word is what happens to the timer, with "@" and a time where one belongs.
void Do(CTimer& timer, const std::string& acts) {
  std::istringstream words(acts);
  for (std::string act; words >> act;) {
    const std::size_t at = act.find('@');
    const auto time =
        static_cast<unsigned>(at == std::string::npos ? 0 : std::stoul(act.substr(at + 1)));
    if (act == "pause") {
      timer.Pause();
    } else if (act == "resume") {
      timer.Resume();
    } else if (act == "reset") {
      timer.Reset();
    } else if (act.starts_with("set")) {
      timer.SetTime(time);
    } else if (act.starts_with("back")) {
      timer -= time;
    }
  }
}

TEST(Timer, CountsPausesAndJumps) {
  const struct {
    const char* what;
    const char* acts;
    unsigned wait, time;  // how far the clock goes on, and what the timer then shows
  } steps[] = {
      {.what = "runs from 0", .acts = "", .wait = 250, .time = 250},
      {.what = "stops", .acts = "pause pause", .wait = 1000, .time = 250},
      {.what = "goes on", .acts = "resume", .wait = 50, .time = 300},
      {.what = "resumes once", .acts = "resume", .wait = 50, .time = 350},
      {.what = "goes back", .acts = "back@100", .wait = 0, .time = 250},
      {.what = "below 0", .acts = "back@300", .wait = 20, .time = 0},
      {.what = "until the source catches up", .acts = "", .wait = 40, .time = 10},
      {.what = "is set", .acts = "set@7000", .wait = 5, .time = 7005},
      {.what = "goes back paused", .acts = "pause back@7010", .wait = 100, .time = 0},
      {.what = "and owes the rest", .acts = "resume", .wait = 25, .time = 20},
      {.what = "resets paused", .acts = "pause reset", .wait = 30, .time = 0},
      {.what = "is set paused", .acts = "set@60", .wait = 30, .time = 60},
      {.what = "resumes from there", .acts = "resume", .wait = 1, .time = 61},
      {.what = "is 12 days ahead", .acts = "set@0 back@1073741824", .wait = 0, .time = 0},
      {.what = "counts 37 days", .acts = "reset", .wait = 3196800000U, .time = 3196800000U}};
  for (const unsigned start : {0U, 1000U, 0x80000000U, 0xFFFFFFFFU, 0xFFFFFF00U}) {
    test::CFakeClock clock(start);
    CTimer timer;
    for (const auto& step : steps) {
      Do(timer, step.acts);
      clock.Advance(step.wait);
      EXPECT_EQ(timer.GetTime(), step.time) << step.what << ", clock from " << start;
    }
  }
}

TEST(Timer, MarksAndTellsSeconds) {
  test::CFakeClock clock;
  CTimer timer;
  clock.Advance(1500);
  EXPECT_FLOAT_EQ(timer.GetSeconds(), 1.5F);
  EXPECT_EQ(timer.Mark(), 1500U);
  clock.Advance(250);
  EXPECT_EQ(timer.GetTimeSinceMark(), 250U);
  EXPECT_FLOAT_EQ(timer.GetSecondsSinceMark(), 0.25F);
  timer.Reset();
  EXPECT_EQ(timer.GetTimeSinceMark(), 0U);
}

TEST(Timer, SubtractsAndTakesOverTheStateButNotTheSource) {
  test::CFakeClock clock;
  CTimer source;
  CTimer timer(&source);
  clock.Advance(100);
  EXPECT_EQ((timer - 30).GetTime(), 70U);
  EXPECT_EQ((timer - (timer - 30)).GetTime(), 30U);
  source.Pause();
  CTimer running;
  running -= 25;
  timer = running;
  clock.Advance(40);
  EXPECT_EQ(running.GetTime(), 15U);
  EXPECT_EQ(timer.GetTime(), 0U) << "its source is paused, and started after";
}

TEST(Timer, ReadsBackWhatItWrote) {
  test::CFakeClock clock;
  CTimer running;
  clock.Advance(100);
  CTimer paused(running);
  paused.Pause();
  ASSERT_TRUE(SaveXml(running, "running.xml"));
  ASSERT_TRUE(SaveXml(paused, "paused.xml"));
  CTimer read;
  LoadXml(read, "paused.xml");
  clock.Advance(50);
  EXPECT_EQ(read.GetTime(), 100U) << "paused";
  read.Resume();
  LoadXml(read, "running.xml");
  clock.Advance(50);
  EXPECT_EQ(read.GetTime(), 150U) << "running";
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
