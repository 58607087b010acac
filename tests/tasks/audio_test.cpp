#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>

#include "kernel/applicationfactory.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "tasks/taskaudiosdlmixer.h"

namespace vask::test {

namespace {

std::string Bytes(std::size_t value, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) {
    bytes += static_cast<char>(value >> (8 * i));
  }
  return bytes;
}

// Half a minute of sound, so that nothing ends by itself while a test looks at it.
std::string Wave(unsigned frequency = 11025, unsigned channels = 1, unsigned bits = 8) {
  const std::string data(400000, '\x70');
  return "RIFF" + Bytes(36 + data.size(), 4) + "WAVEfmt " + Bytes(16, 4) + Bytes(1, 2) +
         Bytes(channels, 2) + Bytes(frequency, 4) + Bytes(frequency, 4) + Bytes(1, 2) +
         Bytes(bits, 2) + "data" + Bytes(data.size(), 4) + data;
}

void WriteFile(const std::string& name, const std::string& content) {
  std::ofstream(name, std::ios::binary) << content;
}

class AudioTest : public testing::Test {
 protected:
  AudioTest() {
    WriteFile("one.wav", Wave());
    WriteFile("two.wav", Wave());
  }
  ~AudioTest() override {
    myTask.Exit();
    setenv("SDL_AUDIODRIVER", "dummy", 1);
  }
  void Run(const std::string& line) { EXPECT_TRUE(myTask.ExecuteCommand(line)); }

  CLogCapture myLog;
  CFakeClock myClock;
  CTaskAudioSDLMixer myTask;
};

}  // namespace

TEST_F(AudioTest, StartsAsTheScriptSays) {
  CConsole* console = CApplicationFactory::GetSingletonPtr()->GetConsole();
  console->Execute("taskload(sdl_mixer); starttask(audio, Audio, 9, 44100.9, s8, 1, 512, 3)",
                   false);
  EXPECT_TRUE(
      myLog.Has("Audio device opened 1 times  with parameters frequency: 44100Hz, format: "
                "S8, channels: 1"));
  EXPECT_EQ(Mix_AllocateChannels(-1), 3);
  CTaskFactory::GetSingletonPtr()->StopTask("Audio");
  EXPECT_EQ(Mix_QuerySpec(nullptr, nullptr, nullptr), 0) << "still open";

  EXPECT_TRUE(StartWith(myTask, "fast, foo, x, x, x"));
  EXPECT_EQ(myLog.Count(" start-up parameter ("), 5U);
  EXPECT_TRUE(myLog.Has("frequency: 22050Hz, format: S16LSB, channels: 2, chunksize: 1024"));
  for (const std::string n : {"-1000000000000", "-1", "0", "1", "70000", "1000000000000"}) {
    StartWith(myTask, n + ", u8, " + n + ", " + n + ", " + n);  // as the device likes
    Run("PlayMusicFadeIn( one.wav )");
    Run("StopMusicFadeOut( 200 )");
    myTask.Exit();
  }
}

TEST_F(AudioTest, WrongCallsAreReportedAndDoNothing) {
  ASSERT_TRUE(myTask.Start());
  for (const char* line :
       {"StopMusic()", "StopMusic( 1 )", "StopMusicFadeOut", "StopMusicFadeOut( now )",
        "PlayEffect", "PlayEffect()", "PlayEffect( 5 )", "PreloadEffect()", "PreloadEffect( 5 )",
        "PlayMusic", "PlayMusic( 5 )", "PlayMusicFadeIn()", "PlayMusicFadeIn( 5, 5 )"}) {
    myLog.Clear();
    Run(line);
    const std::string name(line, std::strcspn(line, "("));
    ASSERT_EQ(myLog.Lines().size(), 1U) << line;
    EXPECT_EQ(myLog.Lines()[0].text.find(name + " -command"), 0U) << line;
    EXPECT_EQ(myLog.Lines()[0].level, kLogWarning);
  }
}

TEST_F(AudioTest, AnEffectIsLoadedOnceAndFreedWhenAllIsSilent) {
  ASSERT_TRUE(myTask.Start());
  const auto expectLoads = [this](std::size_t loads, std::size_t frees) {
    myTask.Update();
    EXPECT_EQ(myLog.Count("new CSDLMixerEffectData( "), loads);
    EXPECT_EQ(myLog.Count("freed CSDLMixerEffectData"), frees);
  };
  Run("PreloadEffect( two.wav )");
  for (int i = 0; i < 9; ++i) {
    Run("PlayEffect( one.wav )");
  }
  EXPECT_EQ(myLog.Count("Could not play the effect: one.wav"), 1U) << "of 9, with 8 channels";
  expectLoads(2, 0);
  Mix_HaltChannel(-1);
  expectLoads(2, 1);
  Run("PlayEffect( two.wav )");
  expectLoads(2, 1);
  Run("PlayEffect( one.wav )");
  expectLoads(3, 1);
  myTask.Exit();
  expectLoads(3, 3);
}

TEST_F(AudioTest, FadesFollowTheLastRequest) {
  ASSERT_TRUE(myTask.Start());
  Run("PlayMusic( one.wav )");
  EXPECT_EQ(Mix_FadingMusic(), MIX_FADING_IN) << "the first track";
  Run("PlayMusic( two.wav )");
  EXPECT_EQ(Mix_FadingMusic(), MIX_NO_FADING);
  EXPECT_EQ(myLog.Count("freed CSDLMixerMusicData"), 1U);
  Run("StopMusicFadeOut( 20000 )");
  EXPECT_EQ(Mix_FadingMusic(), MIX_FADING_OUT);
  const unsigned before = SDL_GetTicks();
  Run("PlayMusic( one.wav )");
  EXPECT_EQ(Mix_FadingMusic(), MIX_FADING_IN);
  Run("StopMusicFadeOut( 20000 )");
  myTask.Exit();
  EXPECT_LT(SDL_GetTicks() - before, 15000U) << "waited for the fade";
  ASSERT_TRUE(myTask.Start());
  for (const std::string milliseconds : {"1", "99", "0", "-7"}) {
    Run("PlayMusicFadeIn( one.wav, " + milliseconds + " )");
    EXPECT_EQ(Mix_FadingMusic(), MIX_NO_FADING) << milliseconds;
    EXPECT_NE(Mix_PlayingMusic(), 0);
    Run("StopMusicFadeOut( " + milliseconds + " )");
    EXPECT_EQ(Mix_PlayingMusic(), 0) << milliseconds;
  }
}

TEST_F(AudioTest, ATrackThatEndsStartsAgainUnlessItWasStoppedAndAPauseHoldsAll) {
  ASSERT_TRUE(myTask.Start());
  Run("PlayMusic( missing.ogg )");
  myTask.Update();  // there is no track to play again
  EXPECT_EQ(myLog.Count("Could not load music-file  missing.ogg"), 1U);
  Run("PlayMusic( one.wav )");
  Mix_HaltMusic();
  myTask.Update();
  EXPECT_NE(Mix_PlayingMusic(), 0);
  EXPECT_EQ(myLog.Count("new CSDLMixerMusicData( one.wav ) "), 1U) << "loaded again";
  Run("PlayEffect( one.wav )");
  for (const int isPaused : {1, 0}) {
    isPaused != 0 ? myTask.Pause() : myTask.Resume();
    EXPECT_EQ(Mix_PausedMusic(), isPaused);
    EXPECT_EQ(Mix_Paused(-1), isPaused);
  }
  Run("StopMusic");
  myTask.Update();
  EXPECT_EQ(Mix_PlayingMusic(), 0);
}

TEST_F(AudioTest, WhatIsNoSoundIsOnlyReported) {
  ASSERT_TRUE(myTask.Start());
  std::vector<std::string> contents = {Wave(0), Wave(1), Wave(0x7FFFFFFF), Wave(11025, 0),
                                       Wave(11025, 1, 0)};
  for (std::size_t length = 30; length < 44; ++length) {
    contents.push_back(Wave().substr(0, length));
  }
  for (const std::string& content : contents) {
    myLog.Clear();
    WriteFile("bad.wav", content);
    Run("PlayEffect( bad.wav )");
    Run("PlayMusic( bad.wav )");
    EXPECT_EQ(myLog.Count("Could not load effect-file  bad.wav"), 1U) << content.size();
    EXPECT_EQ(myLog.Count("Could not load music-file  bad.wav"), 1U) << content.size();
    EXPECT_EQ(myLog.Count("SDL_Mixer says: "), 2U);
    myTask.Update();
  }
}

TEST_F(AudioTest, WithoutADeviceEveryHookIsSafeAndTheLogSaysWhy) {
  setenv("SDL_AUDIODRIVER", "missing", 1);
  EXPECT_FALSE(myTask.Start());
  EXPECT_TRUE(myLog.Has("\t[failed]"));
  EXPECT_TRUE(myLog.Has("Mix_OpenAudio failed with parameters frequency: 22050Hz, format: S16LSB"));
  EXPECT_TRUE(myLog.Has("Error description: No available audio device"));
  int depth = 0;
  for (const auto& line : myLog.Lines()) {
    depth += line.level == kLogBlockBegin ? 1 : line.level == kLogBlockEnd ? -1 : 0;
  }
  EXPECT_EQ(depth, 0) << "a block was left open";
  myLog.Clear();
  myTask.Update();
  myTask.Pause();
  myTask.Resume();
  Run("PlayEffect( one.wav )");
  myTask.Exit();
  myTask.Exit();
  EXPECT_TRUE(myLog.Lines().empty());
}

}  // namespace vask::test
