#include "audio/audiodevice.h"
#include "audio/audiovolume.h"
#include "audio/sdlmixereffectplayer.h"
#include "audio/sdlmixermusicplayer.h"
#include "support/logcapture.h"
#include "support/tasks.h"
#include "support/waves.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

namespace vask::test {
namespace {

TEST(AudioDevice, LaterHoldsTakeItAsItIsAndTheLastOneClosesIt) {
  const CLogCapture log;
  const SAudioSettings settings{44100, AUDIO_S8, 1, 512, 3};
  std::unique_ptr<CAudioDevice> other;
  {
    const std::unique_ptr<CAudioDevice> device = CAudioDevice::Open(settings, "Audio");
    EXPECT_EQ(device->ChunkMilliseconds(), 12) << "512 samples, rounded up";
    other = CAudioDevice::Open({44100, AUDIO_S8, 1, 1024, 2}, "Other");
    EXPECT_TRUE(log.Has("Other shares the audio device as it is, with frequency: 44100Hz"));
    EXPECT_EQ(Mix_AllocateChannels(-1), 3) << "no channels are cut off";
  }
  EXPECT_EQ(Mix_QuerySpec(nullptr, nullptr, nullptr), 1);
  other.reset();
  EXPECT_EQ(SDL_WasInit(SDL_INIT_AUDIO), 0U);
}

TEST(AudioDevice, IsNullOnceSdlHasEnded) {
  const SAudioSettings settings{32000, AUDIO_S16LSB, 2, 1024, 8};
  const auto first = CAudioDevice::Open(settings, "Audio");
  EXPECT_EQ(first->ChunkMilliseconds(), 32);
  SDL_Quit();
  EXPECT_EQ(CAudioDevice::Open(settings, "Other"), nullptr);
}

struct Players : testing::Test {
  Players() {
    WriteLongWave("one.wav");
    WriteLongWave("two.wav");
  }
  ~Players() override { AudioVolumes() = {}; }
  std::size_t CountFrees() const { return myLog.Count("freed CSDLMixer"); }
  // What is to be heard of the music.
  static std::string Music() {
    const std::string fading[] = {"plays", "fades out", "fades in"};
    return Mix_PlayingMusic() == 0 ? "silence" : fading[Mix_FadingMusic()];
  }

  CLogCapture myLog;
  const std::unique_ptr<CAudioDevice> device =
      CAudioDevice::Open({22050, AUDIO_S16LSB, 2, 1024, 3}, "Audio");
};

TEST_F(Players, AnEffectIsLoadedOnceAndFreedWhenAllIsSilent) {
  CSDLMixerEffectPlayer player;
  player.Preload("two.wav");
  for (int i = 0; i < 4; ++i) {
    player.Play("one.wav");
  }
  EXPECT_EQ(myLog.Count("Could not play the effect: one.wav"), 1U) << "of four on three channels";
  Mix_HaltChannel(-1);
  player.Update();
  EXPECT_EQ(CountFrees(), 1U);
  player.Play("two.wav");
  player.Preload("missing.wav");
  EXPECT_TRUE(myLog.Has("Could not load effect-file  missing.wav"));
  EXPECT_EQ(myLog.Count("new CSDLMixer"), 3U);
  EXPECT_EQ(CountFrees(), 2U) << "a missing one is not kept";
}

TEST_F(Players, EffectsOfTwoPlayersAreTheirOwn) {
  CSDLMixerEffectPlayer player;
  player.Play("one.wav");
  {
    CSDLMixerEffectPlayer other;
    other.Play("one.wav");
    other.Pause();
    EXPECT_EQ(Mix_Paused(-1), 1);
  }
  EXPECT_EQ(Mix_Playing(-1), 1);
  EXPECT_EQ(CountFrees(), 0U);
}

TEST_F(Players, FollowTheVolumesThatAreVariablesBetweenZeroAndOne) {
  Execute("audio_effect_volume = 0.25");  // a script that is early
  RegisterAudioVolumes();
  CSDLMixerEffectPlayer effects;
  CSDLMixerMusicPlayer music(0);
  EXPECT_EQ(Mix_Volume(-1, -1), 32);
  const auto musicAt = [&](const std::string& value) {
    Execute("audio_music_volume = " + value);
    RegisterAudioVolumes();  // the second time it changes nothing
    music.Update();
    return Mix_VolumeMusic(-1);
  };
  EXPECT_EQ(musicAt("0.996"), 127) << "rounded";
  EXPECT_EQ(musicAt("7"), 128);
  EXPECT_EQ(musicAt("-1"), 0);
  AudioVolumes().effects = 1.0F;
  effects.Update();
  EXPECT_EQ(Mix_Volume(-1, -1), 128);
}

TEST_F(Players, FadesFollowTheLastRequest) {
  CSDLMixerMusicPlayer player(device->ChunkMilliseconds());
  player.PlayFadeIn("one.wav", 2000);
  EXPECT_EQ(Music(), "fades in");
  player.Play("two.wav");
  EXPECT_EQ(Music(), "plays");
  player.StopFadeOut(20000);
  EXPECT_EQ(Music(), "fades out");
  player.Play("one.wav");  // does not wait for the end of the fade
  EXPECT_EQ(Music(), "fades in") << "after a fade-out";
  player.PlayFadeIn("one.wav", 99);
  EXPECT_EQ(Music(), "plays") << "too short";
  player.StopFadeOut(-7);
  EXPECT_EQ(Music(), "silence");
}

TEST_F(Players, AFadeOutThatHasNoStepToGoOnFromIsAHalt) {
  const auto afterFades = [](int chunk, int fadeIn) {
    CSDLMixerMusicPlayer player(chunk);
    player.PlayFadeIn("one.wav", fadeIn);
    player.StopFadeOut(5000);
    return Music();
  };
  SDL_LockAudio();  // no fade gets on
  EXPECT_EQ(afterFades(24, 999), "silence");
  EXPECT_EQ(afterFades(24, 1000), "fades out");
  EXPECT_EQ(afterFades(500, 1000), "silence") << "two chunks";
  EXPECT_EQ(afterFades(500, 1001), "fades out");
  SDL_UnlockAudio();
}

TEST_F(Players, ATrackThatEndsStartsAgainUnlessItIsStoppedOrPaused) {
  CSDLMixerMusicPlayer player(0);
  const auto afterItsEnd = [&player] {
    Mix_HaltMusic();
    player.Update();
    return Music();
  };
  player.Play("one.wav");
  EXPECT_EQ(Music(), "fades in") << "the first one";
  EXPECT_EQ(afterItsEnd(), "plays");
  player.Pause();
  EXPECT_EQ(Mix_PausedMusic(), 1);
  EXPECT_EQ(afterItsEnd(), "silence");
  player.Play("two.wav");
  EXPECT_EQ(Mix_PausedMusic(), 0);
  EXPECT_EQ(CountFrees(), 1U) << "the first track";
  player.Play("missing.wav");
  EXPECT_EQ(afterItsEnd(), "plays") << "a file that is no music changes nothing";
  EXPECT_FALSE(myLog.Has("Could not play music"));
  player.Stop();
  player.Resume();
  EXPECT_EQ(afterItsEnd(), "silence");
}

}  // namespace
}  // namespace vask::test
