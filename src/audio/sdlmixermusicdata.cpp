#include "audio/sdlmixermusicdata.h"

#include "audio/soundfilecheck.h"
#include "utils/log/log.h"

#include <SDL_mixer.h>

#include <algorithm>
#include <utility>

namespace vask {

CSDLMixerMusicData::CSDLMixerMusicData(std::string fileName)
    : myFileName(std::move(fileName)), myMusic(nullptr) {
  CLog& log = *CLog::GetSingletonPtr();
  log << "new CSDLMixerMusicData( " << myFileName << " ) \n";
  if (CheckMusicFile(myFileName)) {
    myMusic = Mix_LoadMUS(myFileName.c_str());
  }
  if (myMusic == nullptr) {
    log.Error() << "Could not load music-file  " << myFileName << "\n";
    log.Error() << "SDL_Mixer says: " << SDL_GetError() << "\n";
  }
}

CSDLMixerMusicData::~CSDLMixerMusicData() {
  if (myMusic != nullptr) {
    Mix_FreeMusic(myMusic);
  }
  if (CLog* log = CLog::PeekSingletonPtr()) {
    *log << "freed CSDLMixerMusicData\n";
  }
}

CSmartPtr<CSDLMixerMusicData> CSDLMixerMusicData::Get(const std::string& fileName) {
  if (const List* open = PeekList()) {
    const auto found = std::find_if(open->Items().begin(), open->Items().end(),
                                    [&](const auto* data) { return data->myFileName == fileName; });
    if (found != open->Items().end()) {
      return CSmartPtr<CSDLMixerMusicData>(*found);
    }
  }
  return CSmartPtr<CSDLMixerMusicData>(new CSDLMixerMusicData(fileName));
}

}  // namespace vask
