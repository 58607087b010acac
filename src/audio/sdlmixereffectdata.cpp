#include "audio/sdlmixereffectdata.h"

#include "audio/soundfilecheck.h"

namespace vask {

Mix_Chunk* CSDLMixerEffectData::Load(const std::string& fileName) {
  Mix_Chunk* const chunk = CheckEffectFile(fileName)
                               ? Mix_LoadWAV_RW(SDL_RWFromFile(fileName.c_str(), "rb"), 1)
                               : nullptr;
  // SDL 2 goes on with none when it can't read the samples.
  if (chunk != nullptr && chunk->alen == 0) {
    Mix_FreeChunk(chunk);
    SDL_SetError("There is no sound in the file");
    return nullptr;
  }
  return chunk;
}

}  // namespace vask
