#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <random>
#include <string>
#include <vector>

#include "console/consoleparams.h"
#include "kernel/taskfactory.h"
#include "kernel/tasklibraries.h"
#include "support/fakeclock.h"
#include "support/logcapture.h"
#include "tasks/taskaudiosdlmixer.h"

namespace vask {
namespace {

constexpr char kSound[] = "audio_test.wav";
constexpr char kOther[] = "audio_test_other.wav";

std::string Bytes(unsigned value, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) {
    bytes += static_cast<char>(value >> (8 * i));
  }
  return bytes;
}

// A long wave, so that nothing ends by itself while a test looks at it.
std::string Wave(unsigned frequency = 11025, unsigned channels = 1, unsigned bits = 8) {
  const std::string data(400000, '\x70');
  return "RIFF" + Bytes(static_cast<unsigned>(36 + data.size()), 4) + "WAVEfmt " + Bytes(16, 4) +
         Bytes(1, 2) + Bytes(channels, 2) + Bytes(frequency, 4) + Bytes(frequency, 4) +
         Bytes(1, 2) + Bytes(bits, 2) + "data" + Bytes(static_cast<unsigned>(data.size()), 4) +
         data;
}

void WriteFile(const std::string& name, const std::string& content) {
  std::ofstream(name, std::ios::binary) << content;
}

class AudioTest : public ::testing::Test {
 protected:
  AudioTest() {
    UseDriver("dummy");
    WriteFile(kSound, Wave());
    WriteFile(kOther, Wave());
  }
  ~AudioTest() override { myTask.Exit(); }

  static void UseDriver(const std::string& name) {
    static std::string setting;  // SDL keeps the text itself
    setting = "SDL_AUDIODRIVER=" + name;
    SDL_putenv(setting.data());
  }
  void Run(const std::string& line) { EXPECT_TRUE(myTask.ExecuteCommand(line)); }
  static std::string Call(const std::string& command, const std::string& file) {
    return command + "( \"" + file + "\" );";
  }
  std::size_t Loads() const { return myLog.Count("new CSDLMixerEffectData( "); }
  std::size_t Frees() const { return myLog.Count("freed CSDLMixerEffectData"); }

  test::CLogCapture myLog;
  test::CFakeClock myClock;
  CTaskAudioSDLMixer myTask;
};

TEST_F(AudioTest, TheStartReportsWhatItOpens) {
  CTaskLibraries::GetSingletonPtr()->Load("sdl_mixer");
  CTaskFactory* tasks = CTaskFactory::GetSingletonPtr();
  CConsoleParams params;
  params.AddNumber(44100.9);
  params.AddString("s8");
  params.AddNumber(1);
  params.AddNumber(512);
  params.AddNumber(3);
  ASSERT_TRUE(tasks->StartTask("audio", "Audio", 10, &params));
  const std::string opening = "Hz, format: S8, channels: 1, chunksize: 512\t[OK]";
  EXPECT_TRUE(myLog.Has("Opening audio device with frequency: 44100" + opening)) << myLog.Text();
  EXPECT_TRUE(myLog.Has("Initializing audio [OK]"));
  EXPECT_TRUE(myLog.Has("Number of audio channels allocated 3"));
  EXPECT_EQ(Mix_AllocateChannels(-1), 3);
  tasks->StopTask("Audio");
  EXPECT_EQ(Mix_QuerySpec(nullptr, nullptr, nullptr), 0) << "still open";
}

TEST_F(AudioTest, AWrongStartParameterIsReportedAndLeftOut) {
  CConsoleParams params;
  params.AddString("fast");
  params.AddString("foo");
  for (int i = 0; i < 3; ++i) {
    params.AddString("x");
  }
  myTask.SetName("Sound");
  EXPECT_TRUE(myTask.Start(&params));
  for (const char* message :
       {"Sound 1st start-up parameter (frequency) is of wrong type, should be a number",
        "Sound 2nd start-up parameter (format) is of wrong type, should be a string",
        "Sound 3rd start-up parameter (num_of_channels) is of wrong type, should be a number (1 = "
        "mono, 2 = stereo)",
        "Sound 4th start-up parameter (chunk_size) is of wrong type, should be a number",
        "Sound 5th start-up parameter (number_of_audio_channels) is of wrong type, should be a "
        "number"}) {
    EXPECT_EQ(myLog.Count(message), 1U) << message;
  }
  EXPECT_TRUE(myLog.Has("frequency: 22050Hz, format: S16LSB, channels: 2, chunksize: 1024"));
}

TEST_F(AudioTest, StartParametersOutOfRangeDoNotBreakTheMixer) {
  for (const double number : {-1e300, -1.0, 0.0, 1.0, 70000.0, 1e300}) {
    CConsoleParams params;
    for (int i = 0; i < 5; ++i) {
      i == 1 ? params.AddString("u8") : params.AddNumber(number);
    }
    myTask.Start(&params);  // whether it starts is the device's affair
    Run(Call("PlayEffect", kSound));
    Run(Call("PlayMusicFadeIn", kSound));
    Run("StopMusicFadeOut( 200 )");
    myTask.Exit();
  }
}

TEST_F(AudioTest, WrongCallsAreReportedAndDoNothing) {
  ASSERT_TRUE(myTask.Start());
  std::vector<std::pair<std::string, std::string>> cases = {
      {"StopMusic( 1 )", "StopMusic -command, no parameters needed"},
      {"StopMusicFadeOut", "StopMusicFadeOut -command requires atleast one parameter"},
      {"StopMusicFadeOut( now )",
       "StopMusicFadeOut -command the 1st parameter is of wrong type, should be number"},
      {"PlayMusicFadeIn( missing.ogg, slowly )",
       "PlayMusicFadeIn -command the 2nd parameter is of wrong type, should be a number"},
  };
  for (const std::string name : {"PlayEffect", "PreloadEffect", "PlayMusic", "PlayMusicFadeIn"}) {
    cases.push_back({name, name + " -command requires atleast one parameter"});
    cases.push_back({name + "()", name + " -command requires atleast one parameter"});
    cases.push_back(
        {name + "( 5 )", name + " -command the 1st parameter is of wrong type, should be string"});
  }
  for (const auto& [line, message] : cases) {
    myLog.Clear();
    Run(line);
    ASSERT_FALSE(myLog.Lines().empty()) << line;
    EXPECT_EQ(myLog.Lines().front(), (test::CLogCapture::SLine{message, kLogWarning}));
  }
  EXPECT_EQ(Loads(), 0U);
}

TEST_F(AudioTest, AnEffectIsLoadedOnceAndFreedWhenAllIsSilent) {
  ASSERT_TRUE(myTask.Start());
  Run(Call("PreloadEffect", kOther));
  Run(Call("PlayEffect", kSound));
  Run(Call("PlayEffect", kSound));
  EXPECT_EQ(Mix_Playing(-1), 2);
  myTask.Update();
  EXPECT_EQ(Loads(), 2U);
  EXPECT_EQ(Frees(), 0U) << "freed while it plays";
  for (int i = 0; i < 7; ++i) {
    Run(Call("PlayEffect", kSound));
  }
  EXPECT_EQ(myLog.Count("Could not play the effect: audio_test.wav"), 1U)
      << "of 9, with 8 channels";
  Mix_HaltChannel(-1);
  myTask.Update();
  EXPECT_EQ(Frees(), 1U);
  Run(Call("PlayEffect", kOther));
  EXPECT_EQ(Loads(), 2U) << "the preloaded effect was freed";
  Run(Call("PlayEffect", kSound));
  EXPECT_EQ(Loads(), 3U);
  myTask.Exit();
  EXPECT_EQ(Frees(), 3U);
}

TEST_F(AudioTest, FadesFollowTheLastRequest) {
  ASSERT_TRUE(myTask.Start());
  Run(Call("PlayMusic", kSound));
  EXPECT_EQ(Mix_FadingMusic(), MIX_FADING_IN) << "the first track";
  Run(Call("PlayMusic", kOther));
  EXPECT_EQ(Mix_FadingMusic(), MIX_NO_FADING);
  EXPECT_EQ(myLog.Count("freed CSDLMixerMusicData"), 1U);
  Run("StopMusicFadeOut( 500 )");
  EXPECT_EQ(Mix_FadingMusic(), MIX_FADING_OUT);
  const unsigned before = SDL_GetTicks();
  Run(Call("PlayMusic", kSound));
  EXPECT_LT(SDL_GetTicks() - before, 300U) << "waited for the fade";
  EXPECT_EQ(Mix_FadingMusic(), MIX_FADING_IN);
  Run("StopMusic");
  EXPECT_EQ(Mix_PlayingMusic(), 0);
  for (const char* milliseconds : {"1", "99", "0", "-7"}) {
    Run("PlayMusicFadeIn( audio_test.wav, " + std::string(milliseconds) + " )");
    EXPECT_EQ(Mix_FadingMusic(), MIX_NO_FADING) << milliseconds;
    EXPECT_NE(Mix_PlayingMusic(), 0);
    Run(std::string("StopMusicFadeOut( ") + milliseconds + " )");
    EXPECT_EQ(Mix_PlayingMusic(), 0) << milliseconds;
  }
}

TEST_F(AudioTest, ATrackThatEndsStartsAgainUnlessItWasStopped) {
  ASSERT_TRUE(myTask.Start());
  myTask.Resume();  // of nothing: there is no track to play again
  myTask.Update();
  Run(Call("PlayMusic", "missing.ogg"));
  myTask.Update();
  EXPECT_EQ(myLog.Count("Could not load music-file  missing.ogg"), 1U);
  Run(Call("PlayMusic", kSound));
  Mix_HaltMusic();
  myTask.Update();
  EXPECT_NE(Mix_PlayingMusic(), 0);
  EXPECT_EQ(myLog.Count("new CSDLMixerMusicData( audio_test.wav ) "), 1U) << "loaded again";
  Run("StopMusic");
  myTask.Update();
  EXPECT_EQ(Mix_PlayingMusic(), 0);
}

TEST_F(AudioTest, APauseHoldsMusicAndEffects) {
  ASSERT_TRUE(myTask.Start());
  Run(Call("PlayMusic", kSound));
  Run(Call("PlayEffect", kSound));
  myTask.Pause();
  EXPECT_EQ(Mix_PausedMusic(), 1);
  EXPECT_EQ(Mix_Paused(-1), 1);
  myTask.Resume();
  EXPECT_EQ(Mix_PausedMusic(), 0);
  EXPECT_EQ(Mix_Paused(-1), 0);
}

TEST_F(AudioTest, WhatIsNoSoundIsOnlyReported) {
  ASSERT_TRUE(myTask.Start());
  std::mt19937 random(3);
  std::string noise(3000, '\0');
  std::generate(noise.begin(), noise.end(), [&] { return static_cast<char>(random()); });
  for (const std::string& content :
       {std::string(), noise, Wave().substr(0, 20), Wave(0), Wave(1), Wave(0x7FFFFFFF),
        Wave(11025, 0), Wave(11025, 1, 0), "RIFF" + noise, "WAVE" + noise}) {
    myLog.Clear();
    WriteFile("audio_test_bad.wav", content);
    Run(Call("PlayEffect", "audio_test_bad.wav"));
    EXPECT_EQ(myLog.Count("Could not load effect-file  audio_test_bad.wav"), 1U);
    Run(Call("PlayMusic", "audio_test_bad.wav"));
    EXPECT_EQ(myLog.Count("Could not load music-file  audio_test_bad.wav"), 1U);
    EXPECT_EQ(myLog.Count("SDL_Mixer says: "), 2U);
    myTask.Update();
    Run(Call("PreloadEffect", "audio_test_bad.wav"));
  }
  for (std::size_t length = 36; length < 60; ++length) {
    WriteFile("audio_test_bad.wav", Wave().substr(0, length));
    Run(Call("PlayEffect", "audio_test_bad.wav"));
    Run(Call("PlayMusic", "audio_test_bad.wav"));
    myTask.Update();
  }
}

TEST_F(AudioTest, WithoutADeviceTheTaskIsSilentAndSaysWhy) {
  UseDriver("missing");
  EXPECT_FALSE(myTask.Start());
  EXPECT_TRUE(myLog.Has("\t[failed]"));
  EXPECT_TRUE(myLog.Has("Mix_OpenAudio failed with parameters frequency: 22050Hz, format: S16LSB"));
  EXPECT_TRUE(myLog.Has("Error description: No available audio device"));
  int depth = 0;
  for (const auto& line : myLog.Lines()) {
    depth += line.level == kLogBlockBegin ? 1 : line.level == kLogBlockEnd ? -1 : 0;
  }
  EXPECT_EQ(depth, 0) << "a block was left open";
  Run(Call("PlayEffect", kSound));
  EXPECT_EQ(Loads(), 0U);
}

TEST_F(AudioTest, EveryHookIsSafeWithoutAMixer) {
  const auto callAll = [this] {
    myTask.Update();
    myTask.Pause();
    myTask.Resume();
    Run(Call("PlayEffect", kSound));
    Run("StopMusicFadeOut( 500 )");
    myTask.Exit();
  };
  callAll();
  EXPECT_TRUE(myTask.Start());
  Run(Call("PlayMusic", kSound));
  Run("StopMusicFadeOut( 5000 )");
  const unsigned before = SDL_GetTicks();
  myTask.Exit();
  EXPECT_LT(SDL_GetTicks() - before, 1000U) << "waited for the fade";
  callAll();
  EXPECT_EQ(Loads(), 0U);
}

}  // namespace
}  // namespace vask
