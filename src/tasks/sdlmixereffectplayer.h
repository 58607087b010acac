#pragma once

#include <array>
#include <string>

namespace vask {

// Plays sound effects over the mixer, which must be open for as long as the player lives. An effect
// stays in memory until everything has fallen silent, a preloaded one to the end.
class CSDLMixerEffectPlayer {
 public:
  CSDLMixerEffectPlayer();
  // Silences and frees all effects.
  ~CSDLMixerEffectPlayer();
  CSDLMixerEffectPlayer(const CSDLMixerEffectPlayer&) = delete;
  CSDLMixerEffectPlayer& operator=(const CSDLMixerEffectPlayer&) = delete;

  void Play(const std::string& fileName);
  void Preload(const std::string& fileName);
  // All effects together.
  void Pause();
  void Resume();
  // Follows the volume, and frees what is not needed any more.
  void Update();

 private:
  void ApplyVolume();
  static void Sweep();

  bool myHasPlayed = false;                     // since the last sweep
  std::array<float, 2> mySettings{1.0F, 1.0F};  // the volume; the second is not used
};

}  // namespace vask
