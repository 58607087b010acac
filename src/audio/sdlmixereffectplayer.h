#pragma once

#include "audio/sdlmixereffectdata.h"
#include "utils/smartptr/smartptr.h"

#include <array>
#include <string>
#include <vector>

namespace vask {

// Plays sound effects over the mixer, which must be open while the player lives. An effect stays in
// memory until no effect plays, a preloaded one until the player dies. Several players share the
// mixer's channels and the effects in memory.
class CSDLMixerEffectPlayer {
 public:
  CSDLMixerEffectPlayer();
  // Stops and frees this player's effects.
  ~CSDLMixerEffectPlayer();
  CSDLMixerEffectPlayer(const CSDLMixerEffectPlayer&) = delete;
  CSDLMixerEffectPlayer& operator=(const CSDLMixerEffectPlayer&) = delete;

  void Play(const std::string& fileName);
  void Preload(const std::string& fileName);
  // All effects of this player together.
  void Pause();
  void Resume();
  // Call it in every frame: follows the volume, and frees effects that are no longer needed.
  void Update();

 private:
  using CEffectPtr = CSmartPtr<CSDLMixerEffectData>;

  void Hold(const CEffectPtr& effect);
  template <typename Visit>
  void ForEachChannel(Visit visit) const;
  void ApplyVolume();

  // Which player has used each of the mixer's channels last.
  static inline std::vector<const CSDLMixerEffectPlayer*> ourUsers;

  std::vector<CEffectPtr> myEffects;
  bool myHasPlayed = false;                     // since the last sweep
  std::array<float, 2> mySettings{1.0F, 1.0F};  // the volume; the second is not used
};

}  // namespace vask
