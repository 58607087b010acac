#include "audio/audiovolume.h"
#include "kernel/applicationfactory.h"
#include "kernel/tasklibraries.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "support/paths.h"
#include "support/tasks.h"
#include "tasks/taskaudiosdlmixer.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <chrono>
#include <fstream>
#include <string>
#include <utility>

namespace vask::test {
namespace {

std::string Bytes(std::size_t value, std::size_t count) {
  return std::string(reinterpret_cast<const char*>(&value), count);
}

std::string Chunk(const std::string& mark, const std::string& content) {
  return mark + Bytes(content.size(), 4) + content;
}

std::string Riff(const std::string& chunks) { return Chunk("RIFF", "WAVE" + chunks); }

struct SSound {
  unsigned frequency = 11025;
  unsigned channels = 1;
  unsigned bits = 8;
  unsigned encoding = 1;
};

std::string Format(const SSound& sound = {}, unsigned blockSize = 1) {
  return Chunk("fmt ", Bytes(sound.encoding, 2) + Bytes(sound.channels, 2) +
                           Bytes(sound.frequency, 4) + Bytes(sound.frequency, 4) +
                           Bytes(blockSize, 2) + Bytes(sound.bits, 2));
}

std::string Data(std::size_t size = 1000) { return Chunk("data", std::string(size, '\x70')); }

std::string Wave(const SSound& sound) { return Riff(Format(sound) + Data()); }

// Half a minute of sound, so that nothing ends by itself while a test looks at it.
std::string LongWave() { return Riff(Format() + Data(400000)); }

class AudioTest : public testing::Test {
 protected:
  AudioTest() {
    std::ofstream("one.wav") << LongWave();
    std::ofstream("two.wav") << LongWave();
  }
  ~AudioTest() override { myTask.Exit(); }
  void Run(const std::string& line) { EXPECT_TRUE(myTask.ExecuteCommand(line)); }

  // Whether the command that plays such a file finds nothing wrong with it.
  bool Plays(const std::string& command, const std::string& content) {
    std::ofstream("file.wav") << content;
    const std::size_t refusals = myLog.Count("Could not load ");
    Run(command + "( file.wav )");
    const bool plays = myLog.Count("Could not load ") == refusals;
    Run("StopMusic");
    Mix_HaltChannel(-1);
    myTask.Update();              // frees the effect
    Run("PlayMusic( one.wav )");  // frees the track
    return plays;
  }

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
  EXPECT_FALSE(myLog.Has(" is held to "));
  myTask.Exit();
  StartWith(myTask, "1, u8, 0, 500, 257");
  EXPECT_TRUE(myLog.Has("1st start-up parameter (frequency) is held to 8000 instead of 1"));
  EXPECT_TRUE(myLog.Has("(num_of_channels) is held to 1 instead of 0"));
  EXPECT_TRUE(myLog.Has("(chunk_size) is held to 512 instead of 500"));
  EXPECT_TRUE(myLog.Has("(number_of_audio_channels) is held to 256 instead of 257"));
  EXPECT_TRUE(myLog.Has("frequency: 8000Hz, format: U8, channels: 1, chunksize: 512"));
  StartWith(myTask, "22050, u16msb, 2, 1024, 8");
  EXPECT_TRUE(myLog.Has("(format) is held to S16MSB instead of U16MSB")) << "the mixer would crash";
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
  const std::string file = test::SourcePath("runtime/data/keys/music.txt");
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

// The device has a longer chunk than the task asks for, 371 ms: shorter fades have no step there.
TEST_F(AudioTest, AStopDuringAShortFadeInHalts) {
  ASSERT_EQ(Mix_OpenAudio(22050, AUDIO_S16LSB, 2, 8192), 0);
  StartWith(myTask, "22050, s16lsb, 2, 512");
  SDL_LockAudio();  // no fade gets on
  for (const auto& [milliseconds, plays] : {std::pair{300, 0}, {999, 0}, {1000, 1}}) {
    Run("PlayMusicFadeIn( one.wav, " + std::to_string(milliseconds) + " )");
    Run("StopMusicFadeOut( 5000 )");
    EXPECT_EQ(Mix_PlayingMusic(), plays) << milliseconds;
  }
  SDL_UnlockAudio();
  myTask.Exit();
  Mix_CloseAudio();
}

class TwoAudioTasks : public AudioTest {
 protected:
  TwoAudioTasks() {
    myTask.SetName("Audio");
    myOther.SetName("Other");
    StartWith(myTask, "22050, s16lsb, 2, 1024, 8");
  }
  ~TwoAudioTasks() override { myOther.Exit(); }

  CTaskAudioSDLMixer myOther;
};

TEST_F(TwoAudioTasks, ShareTheDeviceOfTheFirst) {
  const std::string has = "frequency: 22050Hz, format: S16LSB, channels: 2, chunksize: 1024";
  AudioVolumes().effects = 0.25F;
  myTask.Update();
  std::size_t lines = 0;
  for (const std::string other : {"44100, s16lsb, 2, 1024, 3", "22050, u8, 2, 1024, 3",
                                  "22050, s16lsb, 1, 1024, 3", "22050, s16lsb, 2, 512, 3"}) {
    EXPECT_TRUE(StartWith(myOther, other)) << other;
    EXPECT_EQ(myLog.Count("Other shares the audio device as it is, with " + has), ++lines) << other;
    EXPECT_EQ(Mix_AllocateChannels(-1), 8) << "channels of the first are cut off";
    Run("PlayEffect( one.wav )");
    EXPECT_EQ(Mix_Playing(-1), static_cast<int>(lines)) << "the first one's device was closed";
  }
  StartWith(myOther, "22050, s16lsb, 2, 1024, 12");
  EXPECT_EQ(myLog.Count("Other shares"), lines) << "it has what it asked for";
  EXPECT_EQ(Mix_AllocateChannels(-1), 12);
  EXPECT_EQ(Mix_Volume(11, -1), 32) << "new channels are louder";
  AudioVolumes().effects = 1.0F;
}

TEST_F(TwoAudioTasks, TheEndOfOneLeavesWhatIsTheOthersAlone) {
  CTaskAudioSDLMixer* last = nullptr;
  for (CTaskAudioSDLMixer* ends : {&myTask, &myOther}) {
    last = ends == &myTask ? &myOther : &myTask;
    for (CTaskAudioSDLMixer* task : {ends, last}) {
      StartWith(*task, "22050, u8, 1, 1024, 3");
      task->ExecuteCommand("PreloadEffect( two.wav )");
      task->ExecuteCommand("PlayEffect( one.wav )");
      task->ExecuteCommand("PlayMusic( two.wav )");
    }
    ends->Exit();
    EXPECT_EQ(Mix_Playing(-1), 1) << "the other's effect";
    EXPECT_NE(Mix_PlayingMusic(), 0) << "the other's track";
    EXPECT_EQ(myLog.Count("new CSDLMixer"), myLog.Count("freed CSDLMixer") + 3);
    EXPECT_NE(SDL_WasInit(SDL_INIT_AUDIO), 0U);
  }
  last->Exit();
  EXPECT_EQ(Mix_QuerySpec(nullptr, nullptr, nullptr), 0) << "the device is left open";
  EXPECT_EQ(SDL_WasInit(SDL_INIT_AUDIO), 0U);
  EXPECT_EQ(myLog.Count("new CSDLMixer"), myLog.Count("freed CSDLMixer"));
}

TEST_F(TwoAudioTasks, ATrackWaitsForTheOneThatWasStartedLast) {
  StartWith(myOther, "");
  Run("PlayMusic( one.wav )");
  myOther.ExecuteCommand("PlayMusic( two.wav )");
  Mix_HaltMusic();
  myTask.Update();
  EXPECT_EQ(Mix_PlayingMusic(), 0) << "a track that has ended is for its own task to start again";
  myOther.ExecuteCommand("StopMusic");
  myTask.Update();
  EXPECT_NE(Mix_PlayingMusic(), 0);
}

TEST_F(AudioTest, OnlyAFileThatSdlWouldBreakOnIsRefused) {
  ASSERT_TRUE(myTask.Start());
  enum EFate { kRefused, kPlays, kEither };
  // What SDL 1.2 writes behind its tables for, or divides by zero, may play over SDL 2.
  const EFate overrun = SDL_Linked_Version()->patch < 50 ? kRefused : kEither;
  const std::string format = Format(), data = Data(), junk = Chunk("JUNK", "12345678");
  // clang-format off
  const struct { const char* what; std::string content; EFate effect; EFate music; } files[] = {
      {"a list first", Riff(Chunk("LIST", "12345678") + format + data), kPlays, kPlays},
      {"a fact first", Riff(Chunk("fact", "1234") + format + data), kPlays, kPlays},
      {"something else first", Riff(junk + format + data), kEither, kRefused},
      {"a low frequency", Wave({.frequency = 300}), kPlays, kPlays},
      {"too low a frequency", Wave({.frequency = 170}), overrun, overrun},
      {"too high a frequency", Wave({.frequency = 3000000}), overrun, overrun},
      {"a frequency that overflows", Wave({.frequency = 0x80000000}), overrun, overrun},
      {"no frequency", Wave({.frequency = 0}), overrun, overrun},
      {"no channels in the byte that counts", Wave({.channels = 256}), overrun, overrun},
      {"ADPCM in empty blocks", Riff(Format({.encoding = 17}, 0) + data), kRefused, kRefused},
      {"a short description", Riff(Chunk("fmt ", format.substr(8, 14)) + data), kRefused, kRefused},
      {"no data", Riff(format), kRefused, kRefused},
      {"data behind padding", Riff(format + Chunk("JUNK", "1") + '\0' + data), kEither, kRefused},
      {"a negative size", Riff(format + "data" + Bytes(0xFFFFFFFF, 4)), kEither, kRefused}};
  // clang-format on
  for (const auto& file : files) {
    const int effect = Plays("PlayEffect", file.content);
    const int music = Plays("PlayMusic", file.content);
    EXPECT_EQ(effect, file.effect == kEither ? effect : file.effect) << file.what;
    EXPECT_EQ(music, file.music == kEither ? music : file.music) << file.what;
  }
}

TEST_F(AudioTest, WhatIsRefusedIsReportedWithTheReason) {
  ASSERT_TRUE(myTask.Start());
  Run("PlayEffect( missing.wav )");
  Run("PlayMusic( missing.wav )");
  EXPECT_EQ(myLog.Count("SDL_Mixer says: The file could not be opened"), 2U);
  Plays("PlayEffect", Wave({.bits = 12}));
  EXPECT_TRUE(myLog.Has("12-bit PCM")) << "SDL's own reason";
  Plays("PlayMusic", Wave({.bits = 12}));
  EXPECT_TRUE(myLog.Has("SDL_Mixer says: Unknown PCM data format")) << "the mixer's own reason";
}

}  // namespace
}  // namespace vask::test
