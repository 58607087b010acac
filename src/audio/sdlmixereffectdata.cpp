#include "audio/sdlmixereffectdata.h"

#include "audio/soundfilecheck.h"
#include "utils/log/log.h"

#include <SDL_mixer.h>

#include <algorithm>
#include <utility>

namespace vask {

CSDLMixerEffectData::CSDLMixerEffectData(std::string fileName)
    : myFileName(std::move(fileName)), myChunk(nullptr) {
  CLog& log = *CLog::GetSingletonPtr();
  log << "new CSDLMixerEffectData( " << myFileName << " ) \n";
  if (CheckEffectFile(myFileName)) {
    myChunk = Mix_LoadWAV_RW(SDL_RWFromFile(myFileName.c_str(), "rb"), 1);
  }
  if (myChunk == nullptr) {
    log.Error() << "Could not load effect-file  " << myFileName << "\n";
    log.Error() << "SDL_Mixer says: " << SDL_GetError() << "\n";
  }
}

CSDLMixerEffectData::~CSDLMixerEffectData() {
  if (myChunk != nullptr) {
    Mix_FreeChunk(myChunk);
  }
  if (CLog* log = CLog::PeekSingletonPtr()) {
    *log << "freed CSDLMixerEffectData\n";
  }
}

CSmartPtr<CSDLMixerEffectData> CSDLMixerEffectData::Get(const std::string& fileName) {
  if (const List* cache = PeekList()) {
    const auto found = std::find_if(cache->Items().begin(), cache->Items().end(),
                                    [&](const auto* data) { return data->myFileName == fileName; });
    if (found != cache->Items().end()) {
      return CSmartPtr<CSDLMixerEffectData>(*found);
    }
  }
  return CSmartPtr<CSDLMixerEffectData>(new CSDLMixerEffectData(fileName));
}

}  // namespace vask
