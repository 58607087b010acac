#include "input/buttons.h"
#include "input/playbackmouse.h"
#include "input/recordmouse.h"
#include "platform/wallclock.h"
#include "support/eventrecorder.h"
#include "support/fakeclock.h"
#include "support/files.h"
#include "support/logcapture.h"
#include "utils/randomstate.h"
#include "utils/timer/timer.h"

#include <gtest/gtest.h>

namespace vask::test {
namespace {

std::string WithoutSeed(const std::string& file) { return file.substr(file.find('\n') + 1); }

// Plays the file in frames of twelve days; returns what a recorder hears of it.
std::string PlayBack(const std::string& file) {
  WriteFile("played.rec", file);
  CFakeClock real(0);
  const CRecordMouse hearer("heard.rec");
  CPlaybackMouse playback("played.rec", GetGlobalTimerImpl());
  for (int i = 0; i < 9; ++i) {
    real.Advance(1U << 30U);
    playback.Update();
    EXPECT_TRUE(HasReached(real.Now(), GetGlobalTime())) << "ahead of the real clock";
  }
  EXPECT_EQ(GetGlobalTime(), real.Now()) << "after the last event";
  return WithoutSeed(FileText("heard.rec"));
}

TEST(Recording, PlaysBackWhatItRecorded) {
  platform::SetWallClock([] { return std::int64_t{4000000000}; });  // beyond 31 bits
  const CRecordMouse recorder("game.rec");
  platform::SetWallClock(nullptr);
  const auto number = CRandomState::GetSingleton().Next();
  CFakeClock clock(1000);
  CEventBridge::GetSingleton().MouseMove(20, -1, 1, 2);
  clock.Advance(7);
  CEventBridge::GetSingleton().MouseButtonDown(kRightButton);
  CEventBridge::GetSingleton().MouseButtonUp(kRightButton);
  const std::string file = FileText("game.rec");
  EXPECT_EQ(file, "4000000000\n1000 mm 20 -1\n1007 md 4\n1007 mu 4\n");
  const CLogCapture log;
  EXPECT_EQ(PlayBack(file), WithoutSeed(file));
  EXPECT_EQ(log.Count("HelperPlayback doesn't work properly with delta"), 1U);
  EXPECT_EQ(CRandomState::GetSingleton().Next(), number);

  auto device = std::make_unique<CPlaybackMouse>("game.rec");
  device->Update();
  device.reset();
  EXPECT_EQ(CRandomState::GetSingleton().Next(), number) << "its seed again";
}

TEST(Recording, AListenerMayEndThePlayback) {
  WriteFile("played.rec", "7\n0 mm 20 30\n0 md 1\n");
  auto playback = std::make_unique<CPlaybackMouse>("played.rec");
  std::string heard;
  CEventRecorder listener("", heard);
  listener.react = [&playback] { playback.reset(); };
  playback->Update();
  EXPECT_EQ(heard, "move 20 30\nby 0 0\n");
}

TEST(Recording, IsPlayedLineByLineAtItsTimes) {
  const std::string example = DocExample("Input records");
  EXPECT_EQ(PlayBack(example), WithoutSeed(example));
  EXPECT_EQ(PlayBack("7\n1500 mm 20\n"), "1500 mm 0 0\n") << "no place";
  EXPECT_EQ(PlayBack("\xFF\n\nmm\n5\n5 mx 1 2\n5 md\n5 MD 1\n \t9 \t mu  8 7\r\n"), "9 mu 8\n");
  EXPECT_EQ(PlayBack("x\nx mm y z\nx md \xFF"), "0 mm 0 0\n0 md 0\n") << "no numbers";
  EXPECT_EQ(PlayBack("7\n1 mm 99999999999999999999 -2147483648\n"), "1 mm 1000000 -1000000\n");
  EXPECT_EQ(PlayBack("7\n50 md 1\n20 md 2\n60 mu 1\n"), "50 md 1\n50 md 2\n60 mu 1\n");
  const std::string days = "2000000000 md 1\n4000000000 md 2\n5 md 4\n";
  EXPECT_EQ(PlayBack("7\n" + days), days);
}

}  // namespace
}  // namespace vask::test
