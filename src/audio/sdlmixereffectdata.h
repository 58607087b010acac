#pragma once

#include "audio/sdlmixerdata.h"

#include <string>
#include <utility>

namespace vask {

// A sound effect in memory.
class CSDLMixerEffectData : public CSDLMixerData<CSDLMixerEffectData, Mix_Chunk> {
 public:
  static constexpr char kClassName[] = "CSDLMixerEffectData";
  static constexpr char kFileKind[] = "effect-file";

  explicit CSDLMixerEffectData(std::string fileName) : CSDLMixerData(std::move(fileName)) {}

  static Mix_Chunk* Load(const std::string& fileName);
  static void Free(Mix_Chunk* chunk) { Mix_FreeChunk(chunk); }

  // Whether the effect stays in memory when all is silent.
  bool IsKept() const { return myKeep; }
  void Keep() { myKeep = true; }

 private:
  bool myKeep = false;
};

}  // namespace vask
