#include "audio/sdlmixereffectdata.h"

#include "audio/soundfilecheck.h"

namespace vask {

Mix_Chunk* CSDLMixerEffectData::Load(const std::string& fileName) {
  return CheckEffectFile(fileName) ? Mix_LoadWAV_RW(SDL_RWFromFile(fileName.c_str(), "rb"), 1)
                                   : nullptr;
}

}  // namespace vask
