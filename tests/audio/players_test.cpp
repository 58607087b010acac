#include "audio/audiovolume.h"
#include "audio/sdlmixereffectplayer.h"
#include "audio/sdlmixermusicplayer.h"
#include "console/console.h"
#include "kernel/applicationfactory.h"
#include "support/logcapture.h"
#include "support/waves.h"

#include <SDL.h>
#include <SDL_mixer.h>
#include <gtest/gtest.h>

#include <chrono>

namespace vask::test {
namespace {

class Players : public testing::Test {
 protected:
  Players() {
    EXPECT_EQ(Mix_OpenAudio(22050, AUDIO_S16LSB, 2, kChunk), 0);
    Mix_AllocateChannels(3);
    WriteLongWave("one.wav");
    WriteLongWave("two.wav");
  }
  ~Players() override {
    AudioVolumes() = {};
    Mix_CloseAudio();
    SDL_Quit();
  }
  void ExpectLoadsAndFrees(std::size_t loads, std::size_t frees) {
    EXPECT_EQ(myLog.Count("new CSDLMixer"), loads);
    EXPECT_EQ(myLog.Count("freed CSDLMixer"), frees);
  }

  static constexpr int kChunk = 8192;                 // samples: 371 milliseconds
  static constexpr int kAskedChunkMilliseconds = 24;  // the device took a longer one
  CLogCapture myLog;
};

TEST_F(Players, AnEffectIsLoadedOnceAndFreedWhenAllIsSilent) {
  CSDLMixerEffectPlayer player;
  player.Preload("two.wav");
  for (int i = 0; i < 4; ++i) {
    player.Play("one.wav");
  }
  EXPECT_EQ(myLog.Count("Could not play the effect: one.wav"), 1U) << "of four on three channels";
  EXPECT_TRUE(myLog.Has("SDL_Mixer says: No free channels available"));
  Mix_HaltChannel(0);
  player.Update();
  ExpectLoadsAndFrees(2, 0);
  Mix_HaltChannel(-1);
  player.Update();
  ExpectLoadsAndFrees(2, 1);
  player.Play("two.wav");
  ExpectLoadsAndFrees(2, 1);
}

TEST_F(Players, AMissingEffectIsReportedOnceUntilItIsForgotten) {
  CSDLMixerEffectPlayer player;
  player.Play("missing.wav");
  player.Play("missing.wav");
  EXPECT_EQ(myLog.Count("Could not load effect-file  missing.wav"), 1U);
  EXPECT_EQ(myLog.Count("SDL_Mixer says: The file could not be opened"), 1U);
  player.Preload("missing.wav");
  ExpectLoadsAndFrees(1, 1);
}

TEST_F(Players, EffectsOfTwoPlayersAreTheirOwn) {
  CSDLMixerEffectPlayer player;
  player.Play("one.wav");
  {
    CSDLMixerEffectPlayer other;
    other.Play("one.wav");
    other.Play("two.wav");
    other.Pause();
    EXPECT_EQ(Mix_Paused(-1), 2);
    other.Resume();
    EXPECT_EQ(Mix_Paused(-1), 0);
    EXPECT_EQ(Mix_Playing(-1), 3);
  }
  EXPECT_EQ(Mix_Playing(-1), 1);
  ExpectLoadsAndFrees(2, 1);
}

TEST_F(Players, FollowTheVolumes) {
  AudioVolumes() = {.music = 0.5F, .effects = 0.25F};
  CSDLMixerEffectPlayer effects;
  CSDLMixerMusicPlayer music(kAskedChunkMilliseconds);
  EXPECT_EQ(Mix_Volume(-1, -1), 32);
  EXPECT_EQ(Mix_VolumeMusic(-1), 64);
  AudioVolumes() = {.music = 0.996F, .effects = 1.0F};
  effects.Update();
  music.Update();
  EXPECT_EQ(Mix_Volume(-1, -1), 128);
  EXPECT_EQ(Mix_VolumeMusic(-1), 127) << "rounded";
}

TEST_F(Players, VolumesAreVariablesThatStayInRange) {
  CConsole& console = *CApplicationFactory::GetSingletonPtr()->GetConsole();
  console.Execute("audio_effect_volume = 0.25", false);  // a script that is early
  RegisterAudioVolumes();
  EXPECT_EQ(AudioVolumes().effects, 0.25F);
  const std::pair<const char*, float> values[] = {
      {"0.5", 0.5F}, {"7", 1.0F}, {"-1", 0.0F}, {"loud", 0.0F}, {"0.25", 0.25F}};
  for (const auto& [text, volume] : values) {
    console.Execute(std::string("audio_music_volume = ") + text, false);
    EXPECT_EQ(AudioVolumes().music, volume) << text;
  }
  RegisterAudioVolumes();
  EXPECT_EQ(AudioVolumes().music, 0.25F) << "the second time changes nothing";
}

TEST_F(Players, FadesFollowTheLastRequest) {
  const auto before = std::chrono::steady_clock::now();
  {
    CSDLMixerMusicPlayer player(100);
    const auto expect = [](const char* what, Mix_Fading fading, bool isPlaying) {
      EXPECT_EQ(Mix_FadingMusic(), fading) << what;
      EXPECT_EQ(Mix_PlayingMusic() != 0, isPlaying) << what;
    };
    player.Play("one.wav");
    expect("the first track fades in", MIX_FADING_IN, true);
    player.Play("two.wav");
    expect("a second does not", MIX_NO_FADING, true);
    player.StopFadeOut(20000);
    expect("a long fade-out", MIX_FADING_OUT, true);
    player.Play("one.wav");
    expect("the track after it fades in", MIX_FADING_IN, true);
    for (const int tooShort : {99, 0, -7}) {
      player.PlayFadeIn("one.wav", tooShort);
      expect("too short a fade-in", MIX_NO_FADING, true);
      player.StopFadeOut(tooShort);
      expect("too short a fade-out", MIX_NO_FADING, false);
    }
    player.PlayFadeIn("one.wav", 100);
    expect("the shortest fade-in", MIX_FADING_IN, true);
    player.Play("one.wav");
    player.StopFadeOut(20000);
  }
  EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds(15))
      << "waited for a fade";
}

// Shorter fades have no step there, by which the mixer would divide.
TEST_F(Players, AStopDuringAShortFadeInHalts) {
  CSDLMixerMusicPlayer player(kAskedChunkMilliseconds);
  CSDLMixerMusicPlayer withLongChunks(500);
  SDL_LockAudio();  // no fade gets on
  const auto playsOn = [](CSDLMixerMusicPlayer& by, int fadeIn) {
    by.PlayFadeIn("one.wav", fadeIn);
    by.StopFadeOut(5000);
    return Mix_PlayingMusic() != 0;
  };
  EXPECT_FALSE(playsOn(player, 999));
  EXPECT_TRUE(playsOn(player, 1000));
  EXPECT_FALSE(playsOn(withLongChunks, 1000));
  EXPECT_TRUE(playsOn(withLongChunks, 1001));
  SDL_UnlockAudio();
}

TEST_F(Players, ATrackThatEndsStartsAgainUnlessItIsStoppedOrPaused) {
  CSDLMixerMusicPlayer player(kAskedChunkMilliseconds);
  player.Play("one.wav");
  const auto playsAfterItsEnd = [&player] {
    Mix_HaltMusic();
    player.Update();
    return Mix_PlayingMusic() != 0;
  };
  EXPECT_TRUE(playsAfterItsEnd());
  ExpectLoadsAndFrees(1, 0);
  player.Pause();
  EXPECT_EQ(Mix_PausedMusic(), 1);
  EXPECT_FALSE(playsAfterItsEnd());
  player.Resume();
  EXPECT_EQ(Mix_PausedMusic(), 0);
  EXPECT_TRUE(playsAfterItsEnd());
  player.Play("two.wav");
  ExpectLoadsAndFrees(2, 1);
  player.Play("missing.wav");
  EXPECT_NE(Mix_PlayingMusic(), 0) << "a file that is no music changes nothing";
  player.Stop();
  EXPECT_FALSE(playsAfterItsEnd());
  player.Resume();
  EXPECT_FALSE(playsAfterItsEnd());
}

TEST_F(Players, ATrackWaitsForTheOneThatWasStartedLast) {
  CSDLMixerMusicPlayer player(kAskedChunkMilliseconds);
  player.Play("one.wav");
  {
    CSDLMixerMusicPlayer other(kAskedChunkMilliseconds);
    other.Play("two.wav");
    player.Pause();
    EXPECT_EQ(Mix_PausedMusic(), 0) << "the other's track";
    player.Resume();
    player.Stop();
    EXPECT_NE(Mix_PlayingMusic(), 0) << "the other's track";
    player.Play("one.wav");
    other.Play("two.wav");
    Mix_HaltMusic();
    player.Update();
    EXPECT_EQ(Mix_PlayingMusic(), 0);
  }
  player.Update();
  EXPECT_NE(Mix_PlayingMusic(), 0) << "the other has gone";
}

}  // namespace
}  // namespace vask::test
