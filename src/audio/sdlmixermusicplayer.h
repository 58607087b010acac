#pragma once

#include "audio/sdlmixermusicdata.h"
#include "utils/smartptr/smartptr.h"

#include <array>
#include <string>

namespace vask {

// Plays one music track at a time over the mixer, which must be open while the player lives. A
// track that ends starts again. Fades are in milliseconds; the first track fades in over three
// seconds. The mixer has one track for all players: the one that was started last is heard, and the
// others wait until its player has stopped or died. The variable "audio_music_file" of the
// application console tells which track was started last, and is empty after a stop.
//
//     CSDLMixerMusicPlayer player(device->ChunkMilliseconds());
//     player.PlayFadeIn("one.wav", 2000);
class CSDLMixerMusicPlayer {
 public:
  // A fade shorter than the mixer's chunk is left out.
  explicit CSDLMixerMusicPlayer(int chunkMilliseconds);
  // Silences and frees this player's music.
  ~CSDLMixerMusicPlayer();
  CSDLMixerMusicPlayer(const CSDLMixerMusicPlayer&) = delete;
  CSDLMixerMusicPlayer& operator=(const CSDLMixerMusicPlayer&) = delete;

  void Play(const std::string& fileName);
  void PlayFadeIn(const std::string& fileName, int milliseconds);
  void Stop();
  // The next track fades in as this one fades out.
  void StopFadeOut(int milliseconds);
  void Pause();
  void Resume();
  // Call it in every frame: follows the volume, and restarts a track that has ended.
  void Update();

 private:
  enum EState : int { kPaused = 0, kPlaying = 1, kStopped = 2 };

  void SetFade(int milliseconds);
  int FadeTime() const;
  bool StartMusic(const CSDLMixerMusicData& music);
  void FadeOut() const;
  bool HasMixer() const { return ourLast == this; }
  bool WaitsForAnother() const;
  void ApplyVolume();
  static void Tell(const std::string& fileName);

  static inline const CSDLMixerMusicPlayer* ourLast =
      nullptr;  // that has started a track; null for none

  CSmartPtr<CSDLMixerMusicData> myMusic;  // current
  int myState = kPaused;
  int myFadeTime = 3000;
  bool myFades = true;
  std::array<float, 2> mySettings{1.0F, 1.0F};  // the volume; the second is not used
  int myShortestFade;
  int myShortestFadeInToTurn;
  int myFadeInTime = 0;       // of the current track
  bool myHasFailed = false;   // the last attempt to play
  unsigned myFailedTime = 0;  // when, on the global clock
};

}  // namespace vask
