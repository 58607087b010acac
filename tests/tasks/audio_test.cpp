#include "support/logcapture.h"
#include "support/tasks.h"
#include "support/waves.h"
#include "tasks/taskaudiosdlmixer.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

namespace vask::test {
namespace {

struct AudioTask : testing::Test {
  AudioTask() { WriteLongWave("one.wav"); }
  void Run(const std::string& line) { EXPECT_TRUE(myTask.ExecuteCommand(line)) << line; }
  void ExpectLogged(const std::vector<std::string>& lines) {
    for (const std::string& line : lines) {
      EXPECT_TRUE(myLog.Has(line)) << line;
    }
  }

  CLogCapture myLog;
  CTaskAudioSDLMixer myTask;
};

TEST_F(AudioTask, StartsAsTheScriptSays) {
  EXPECT_TRUE(StartWith(myTask, "fast, foo, x, x, x"));
  ExpectLogged({"1st start-up parameter (frequency) is of wrong type, should be a number",
                "5th start-up parameter (number_of_audio_channels) is of wrong type",
                "frequency: 22050Hz, format: S16LSB, channels: 2, chunksize: 1024"});
  EXPECT_EQ(Mix_AllocateChannels(-1), 8);
  StartWith(myTask, "44100.9, s8, 1, 512, 3");
  ExpectLogged({"frequency: 44100Hz, format: S8, channels: 1, chunksize: 512"});
  EXPECT_EQ(Mix_AllocateChannels(-1), 3);
  EXPECT_FALSE(myLog.Has(" is held to "));
}

TEST_F(AudioTask, HoldsItsParametersToWhatTheMixerSurvives) {
  StartWith(myTask, "7999, u16lsb, 0, 255, 0");
  StartWith(myTask, "192001, u16msb, 7, 8193, 257");
  StartWith(myTask, "22050, u8, 2, 500");
  ExpectLogged({"frequency: 8000Hz, format: S16LSB, channels: 1, chunksize: 256",
                "1st start-up parameter (frequency) is held to 192000 instead of 192001",
                "(num_of_channels) is held to 6 instead of 7",
                "(number_of_audio_channels) is held to 256 instead of 257",
                "(number_of_audio_channels) is held to 1 instead of 0",
                "(chunk_size) is held to 512 instead of 500"});
}

TEST_F(AudioTask, CommandsComplainOfWrongParameters) {
  ASSERT_TRUE(myTask.Start());
  for (const std::string name : {"PlayEffect", "PreloadEffect", "PlayMusic", "PlayMusicFadeIn"}) {
    Run(name);
    Run(name + "( 1 )");
    ExpectLogged({name + " -command requires atleast one parameter",
                  name + " -command the 1st parameter is of wrong type, should be string"});
  }
  Run("StopMusic( now )");
  Run("StopMusicFadeOut( soon )");
  ExpectLogged({"StopMusic -command, no parameters needed",
                "StopMusicFadeOut -command the 1st parameter is of wrong type, should be number"});
}

TEST_F(AudioTask, UpdatesPausesAndEndsBothPlayers) {
  ASSERT_TRUE(myTask.Start());
  Run("PlayMusic( one.wav )");
  Run("PlayEffect( one.wav )");
  myTask.Pause();
  EXPECT_EQ(Mix_PausedMusic() + Mix_Paused(-1), 2);
  myTask.Resume();
  EXPECT_EQ(Mix_PausedMusic() + Mix_Paused(-1), 0);
  Mix_HaltMusic();
  Mix_HaltChannel(-1);
  myTask.Update();
  EXPECT_NE(Mix_PlayingMusic(), 0) << "started again";
  EXPECT_EQ(myLog.Count("freed CSDLMixerEffectData"), 1U);
  myTask.Exit();
  EXPECT_EQ(SDL_WasInit(SDL_INIT_AUDIO), 0U);
  EXPECT_EQ(myLog.Count("freed CSDLMixerMusicData"), 1U);
  myTask.Pause();  // nothing now
}

TEST_F(AudioTask, ItsLibraryBringsTheTypeAndTheVolumes) {
  RunScript(R"(
      taskload( sdl_mixer )
      starttask( audio, Audio, 50, 22050, s16lsb, 2, 1024, 8 )
      Audio::PlayEffect( "data/sfx/kitten_01.wav" )
  )");
  EXPECT_EQ(myLog.Count("CSDLMixerEffectData"), 1U) << "loaded, and not freed";
  EXPECT_NE(Execute("audio_effect_volume"), "audio_effect_volume") << "no variable";
  RunScript("stoptask( Audio )");
}

}  // namespace
}  // namespace vask::test
