#include "audio/sdlmixermusicdata.h"

#include "audio/soundfilecheck.h"

namespace vask {

Mix_Music* CSDLMixerMusicData::Load(const std::string& fileName) {
  return CheckMusicFile(fileName) ? Mix_LoadMUS(fileName.c_str()) : nullptr;
}

}  // namespace vask
