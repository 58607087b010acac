#include "audio/audiovolume.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "support/waves.h"
#include "tasks/taskaudiosdlmixer.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

namespace vask::test {
namespace {

class AudioTask : public testing::Test {
 protected:
  AudioTask() {
    WriteLongWave("one.wav");
    WriteLongWave("two.wav");
  }
  ~AudioTask() override { myTask.Exit(); }

  CLogCapture myLog;
  CTaskAudioSDLMixer myTask;
};

TEST_F(AudioTask, StartsAsTheScriptSays) {
  EXPECT_TRUE(StartWith(myTask, "fast, foo, x, x, x"));
  for (const char* complaint :
       {"1st start-up parameter (frequency) is of wrong type, should be a number",
        "2nd start-up parameter (format) is of wrong type, should be a string",
        "3rd start-up parameter (num_of_channels) is of wrong type, should be a number (1 = mono, "
        "2 = stereo)",
        "4th start-up parameter (chunk_size) is of wrong type, should be a number",
        "5th start-up parameter (number_of_audio_channels) is of wrong type, should be a number"}) {
    EXPECT_TRUE(myLog.Has(myTask.GetName() + " " + complaint));
  }
  EXPECT_TRUE(myLog.Has("frequency: 22050Hz, format: S16LSB, channels: 2, chunksize: 1024"));
  EXPECT_EQ(Mix_AllocateChannels(-1), 8);
  myTask.Exit();
  EXPECT_EQ(Mix_QuerySpec(nullptr, nullptr, nullptr), 0) << "still open";
  StartWith(myTask, "44100.9, s8, 1, 512, 3");
  EXPECT_TRUE(myLog.Has("frequency: 44100Hz, format: S8, channels: 1, chunksize: 512"));
  EXPECT_EQ(Mix_AllocateChannels(-1), 3);
  EXPECT_FALSE(myLog.Has(" is held to "));
}

TEST_F(AudioTask, HoldsItsParametersToWhatTheMixerSurvives) {
  StartWith(myTask, "7999, u16lsb, 0, 255, 0");
  EXPECT_TRUE(myLog.Has("frequency: 8000Hz, format: S16LSB, channels: 1, chunksize: 256"));
  EXPECT_EQ(Mix_AllocateChannels(-1), 1);
  StartWith(myTask, "192001, u16msb, 7, 8193, 257");
  for (const char* held : {"1st start-up parameter (frequency) is held to 192000 instead of 192001",
                           "(format) is held to S16MSB instead of U16MSB",
                           "(num_of_channels) is held to 6 instead of 7",
                           "(chunk_size) is held to 8192 instead of 8193",
                           "(number_of_audio_channels) is held to 256 instead of 257"}) {
    EXPECT_TRUE(myLog.Has(held)) << held;
  }
  StartWith(myTask, "22050, u8, 2, 500");
  EXPECT_TRUE(myLog.Has("(chunk_size) is held to 512 instead of 500")) << "a power of two";
}

TEST_F(AudioTask, CommandsComplainOfWrongParameters) {
  ASSERT_TRUE(myTask.Start());
  const std::string needed = " -command requires atleast one parameter";
  const std::string wrong = " -command the 1st parameter is of wrong type, should be ";
  const std::pair<const char*, std::string> cases[] = {
      {"PlayEffect", "PlayEffect" + needed},
      {"PlayEffect()", "PlayEffect" + needed},
      {"PlayEffect( 1 )", "PlayEffect" + wrong + "string"},
      {"PreloadEffect", "PreloadEffect" + needed},
      {"PlayMusic", "PlayMusic" + needed},
      {"PlayMusicFadeIn", "PlayMusicFadeIn" + needed},
      {"PlayMusicFadeIn( one.wav, soon )",
       "PlayMusicFadeIn -command the 2nd parameter is of wrong type, should be a number"},
      {"StopMusic( now )", "StopMusic -command, no parameters needed"},
      {"StopMusicFadeOut", "StopMusicFadeOut" + needed},
      {"StopMusicFadeOut( soon )", "StopMusicFadeOut" + wrong + "number"},
  };
  for (const auto& [line, complaint] : cases) {
    const std::size_t before = myLog.Count(complaint);
    myTask.ExecuteCommand(line);
    EXPECT_EQ(myLog.Count(complaint), before + 1) << line;
  }
}

TEST_F(AudioTask, CommandsReachThePlayers) {
  EXPECT_TRUE(myTask.ExecuteCommand("PlayEffect( one.wav )")) << "not started: nothing";
  ASSERT_TRUE(myTask.Start());
  SDL_LockAudio();  // no fade gets on
  myTask.ExecuteCommand("PlayMusicFadeIn( one.wav )");
  EXPECT_EQ(Mix_FadingMusic(), MIX_FADING_IN);
  myTask.ExecuteCommand("StopMusicFadeOut( 20000 )");
  EXPECT_EQ(Mix_FadingMusic(), MIX_FADING_OUT) << "a fade-in of a second is long enough for that";
  myTask.ExecuteCommand("PlayMusicFadeIn( one.wav, 0 )");
  EXPECT_EQ(Mix_FadingMusic(), MIX_NO_FADING);
  SDL_UnlockAudio();
  myTask.ExecuteCommand("PlayMusic( two.wav )");
  EXPECT_NE(Mix_PlayingMusic(), 0);
  myTask.ExecuteCommand("StopMusic");
  EXPECT_EQ(Mix_PlayingMusic(), 0);
  myTask.ExecuteCommand("PreloadEffect( two.wav )");
  EXPECT_EQ(Mix_Playing(-1), 0);
  myTask.ExecuteCommand("PlayEffect( one.wav )");
  EXPECT_EQ(Mix_Playing(-1), 1);
}

TEST_F(AudioTask, UpdatesPausesAndEndsBothPlayers) {
  const auto expectPaused = [](int music, int effects) {
    EXPECT_EQ(Mix_PausedMusic(), music);
    EXPECT_EQ(Mix_Paused(-1), effects);
  };
  myTask.Update();  // none of them does anything before the start
  myTask.Pause();
  myTask.Resume();
  ASSERT_TRUE(myTask.Start());
  myTask.ExecuteCommand("PlayMusic( one.wav )");
  myTask.ExecuteCommand("PlayEffect( two.wav )");
  myTask.Pause();
  expectPaused(1, 1);
  myTask.Resume();
  expectPaused(0, 0);
  Mix_HaltMusic();
  Mix_HaltChannel(-1);
  myTask.Update();
  EXPECT_NE(Mix_PlayingMusic(), 0) << "started again";
  EXPECT_EQ(myLog.Count("freed CSDLMixerEffectData"), 1U);
  myTask.Exit();
  EXPECT_EQ(SDL_WasInit(SDL_INIT_AUDIO), 0U);
  EXPECT_EQ(myLog.Count("new CSDLMixer"), myLog.Count("freed CSDLMixer"));
}

TEST_F(AudioTask, ItsLibraryBringsTheTypeAndTheVolumes) {
  const CDataFolder data;
  RunScript(R"(
      taskload( sdl_mixer )
      starttask( audio, Audio, 50, 22050, s16lsb, 2, 1024, 8 )
      Audio::PlayEffect( "data/sfx/kitten_01.wav" )
  )");
  EXPECT_EQ(Mix_Playing(-1), 1) << myLog.Text();
  RunScript("load( data/keys/music.txt )");
  EXPECT_EQ(AudioVolumes().music, 0.0F);
  RunScript("load( data/keys/music.txt )");
  EXPECT_EQ(AudioVolumes().music, 1.0F);
  RunScript("stoptask( Audio )");
}

}  // namespace
}  // namespace vask::test
