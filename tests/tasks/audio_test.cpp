#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <string>

#include "kernel/applicationfactory.h"
#include "kernel/tasklibraries.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "tasks/taskaudiosdlmixer.h"

namespace vask::test {
namespace {

std::string Bytes(std::size_t value, std::size_t count) {
  return std::string(reinterpret_cast<const char*>(&value), count);
}

// Half a minute of sound, so that nothing ends by itself while a test looks at it.
std::string Wave(unsigned frequency = 11025, unsigned channels = 1, unsigned bits = 8) {
  const std::string data(400000, '\x70');
  return "RIFF" + Bytes(36 + data.size(), 4) + "WAVEfmt " + Bytes(16, 4) + Bytes(1, 2) +
         Bytes(channels, 2) + Bytes(frequency, 4) + Bytes(frequency, 4) + Bytes(1, 2) +
         Bytes(bits, 2) + "data" + Bytes(data.size(), 4) + data;
}

class AudioTest : public testing::Test {
 protected:
  AudioTest() {
    std::ofstream("one.wav") << Wave();
    std::ofstream("two.wav") << Wave();
  }
  ~AudioTest() override { myTask.Exit(); }
  void Run(const std::string& line) { EXPECT_TRUE(myTask.ExecuteCommand(line)); }

  CLogCapture myLog;
  CFakeClock myClock;
  CTaskAudioSDLMixer myTask;
};

TEST_F(AudioTest, StartsAsTheScriptSays) {
  StartWith(myTask, "fast, foo, x, x, x");
  EXPECT_EQ(myLog.Count(" start-up parameter ("), 5U);
  EXPECT_TRUE(myLog.Has("frequency: 22050Hz, format: S16LSB, channels: 2, chunksize: 1024"));
  myTask.Exit();
  EXPECT_EQ(Mix_QuerySpec(nullptr, nullptr, nullptr), 0) << "still open";
  StartWith(myTask, "44100.9, s8, 1, 512, 3");
  EXPECT_TRUE(myLog.Has("with parameters frequency: 44100Hz, format: S8, channels: 1"));
  EXPECT_EQ(Mix_AllocateChannels(-1), 3);
  myTask.Exit();
  for (const std::string n : {"-1000000000000", "-1", "0", "1", "70000", "1000000000000"}) {
    StartWith(myTask, n + ", u8, " + n + ", " + n + ", " + n);  // as the device likes
    Run("PlayMusicFadeIn( one.wav )");
    myTask.Exit();
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
  myTask.Exit();
  expectLoads(2, 2);
}

TEST_F(AudioTest, FadesFollowTheLastRequest) {
  ASSERT_TRUE(myTask.Start());
  const Mix_Fading none = MIX_NO_FADING, in = MIX_FADING_IN, out = MIX_FADING_OUT;
  // clang-format off
  const struct { const char* line; Mix_Fading fading; bool plays; } steps[] = {
      {"PlayMusic( one.wav )", in, true}, {"PlayMusic( two.wav )", none, true},
      {"StopMusicFadeOut( 20000 )", out, true}, {"PlayMusic( one.wav )", in, true},
      {"PlayMusicFadeIn( one.wav, 99 )", none, true}, {"StopMusicFadeOut( 99 )", none, false},
      {"PlayMusicFadeIn( one.wav, -7 )", none, true}, {"StopMusicFadeOut( -7 )", none, false},
      {"PlayMusicFadeIn( one.wav, 0 )", none, true}, {"StopMusicFadeOut( 20000 )", out, true},
  };
  // clang-format on
  const auto before = std::chrono::steady_clock::now();
  for (const auto& step : steps) {
    Run(step.line);
    EXPECT_EQ(Mix_FadingMusic(), step.fading) << step.line;
    EXPECT_EQ(Mix_PlayingMusic() != 0, step.plays) << step.line;
  }
  myTask.Exit();
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(15))
      << "waited for a fade";
}

TEST_F(AudioTest, ATrackThatEndsStartsAgainUnlessItWasStoppedAndAPauseHoldsAll) {
  ASSERT_TRUE(myTask.Start());
  Run("PlayMusic( one.wav )");
  Mix_HaltMusic();
  myTask.Update();
  EXPECT_NE(Mix_PlayingMusic(), 0);
  EXPECT_EQ(myLog.Count("new CSDLMixerMusicData( one.wav ) "), 1U) << "loaded again";
  Run("PlayEffect( one.wav )");
  for (const int isPaused : {1, 0}) {
    isPaused != 0 ? myTask.Pause() : myTask.Resume();
    EXPECT_EQ(Mix_PausedMusic() + Mix_Paused(-1), 2 * isPaused);
  }
  Run("StopMusic");
  myTask.Update();
  EXPECT_EQ(Mix_PlayingMusic(), 0);
}

TEST_F(AudioTest, VolumesFollowTheirVariablesAtOnceAndStayInRange) {
  CConsole& console = *CApplicationFactory::GetSingletonPtr()->GetConsole();
  console.Execute("audio_effect_volume = 0.25", false);  // a script that is early
  CTaskLibraries::GetSingletonPtr()->Load("sdl_mixer");
  ASSERT_TRUE(myTask.Start());
  EXPECT_EQ(Mix_Volume(-1, -1), 32);
  CTaskLibraries::GetSingletonPtr()->Load("sdl_mixer");  // changes nothing
  Run("PlayMusic( one.wav )");
  const std::string file = BRUMBLE_RUNTIME_FOLDER "/data/keys/music.txt";
  // clang-format off
  const std::pair<std::string, int> steps[] = {
      {"audio_music_volume = 0.5", 64}, {"audio_music_volume = 7", 128}, {"audio_music_volume = -1", 0},
      {"audio_music_volume = nan", 0}, {"audio_music_volume = loud", 0}, {"audio_music_volume = 0.25", 32},
      {"audio_effect_volume = 1", 32}, {"load(" + file + ")", 0}, {"load(" + file + ")", 128}};
  // clang-format on
  for (const auto& [line, volume] : steps) {
    console.Execute(line, false);
    myTask.Update();
    EXPECT_EQ(Mix_VolumeMusic(-1), volume) << line;
  }
  EXPECT_EQ(Mix_Volume(-1, -1), 128);
}

TEST_F(AudioTest, WhatIsNoSoundIsOnlyReported) {
  ASSERT_TRUE(myTask.Start());
  for (const std::string& content :
       {Wave(0), Wave(1), Wave(0x7FFFFFFF), Wave(11025, 0), Wave(11025, 1, 0), Wave().substr(0, 30),
        Wave().substr(0, 43)}) {
    std::ofstream("bad.wav") << content;
    Run("PlayEffect( bad.wav )");
    Run("PlayMusic( bad.wav )");
    myTask.Update();  // there is no track to play again
  }
  EXPECT_EQ(myLog.Count("Could not load effect-file  bad.wav"), 7U);
  EXPECT_EQ(myLog.Count("Could not load music-file  bad.wav"), 7U);
}

}  // namespace
}  // namespace vask::test
