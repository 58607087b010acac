#pragma once

#include "utils/containers/autolist.h"
#include "utils/log/log.h"
#include "utils/smartptr/smartptr.h"

#include <SDL_mixer.h>

#include <algorithm>
#include <string>
#include <utility>

namespace vask {

// A sound file in memory, of the kind T: an effect or a piece of music. All that is loaded of a
// kind is its cache, by file name; players share a sound and own it together.
//
// T derives from this and tells how: T::kClassName and T::kFileKind for the log, T::Load, which
// returns null when the file is no such sound, and T::Free.
template <typename T, typename Sound>
class CSDLMixerData : public CAutoList<T> {
 public:
  CSDLMixerData(const CSDLMixerData&) = delete;
  CSDLMixerData& operator=(const CSDLMixerData&) = delete;

  // The sound of that file, loaded when it is not in the cache.
  static CSmartPtr<T> Get(const std::string& fileName) {
    if (const auto* cache = CAutoList<T>::PeekList()) {
      const auto& items = cache->Items();
      const auto found = std::find_if(items.begin(), items.end(), [&](const T* data) {
        return data->GetFileName() == fileName;
      });
      if (found != items.end()) {
        return CSmartPtr<T>(*found);
      }
    }
    return CSmartPtr<T>(new T(fileName));
  }

  const std::string& GetFileName() const { return myFileName; }
  // Null when loading failed.
  Sound* GetSound() const { return mySound; }

 protected:
  // A file that cannot be loaded is logged, with the mixer's reason.
  explicit CSDLMixerData(std::string fileName) : myFileName(std::move(fileName)) {
    CLog& log = *CLog::GetSingletonPtr();
    log << "new " << T::kClassName << "( " << myFileName << " ) \n";
    mySound = T::Load(myFileName);
    if (mySound == nullptr) {
      log.Error() << "Could not load " << T::kFileKind << "  " << myFileName << "\n";
      log.Error() << "SDL_Mixer says: " << SDL_GetError() << "\n";
    }
  }
  // Stops the sound wherever it is still playing. The mixer must be open.
  ~CSDLMixerData() {
    if (mySound != nullptr) {
      T::Free(mySound);
    }
    if (CLog* log = CLog::PeekSingletonPtr()) {
      *log << "freed " << T::kClassName << "\n";
    }
  }

 private:
  std::string myFileName;
  Sound* mySound = nullptr;
};

}  // namespace vask
