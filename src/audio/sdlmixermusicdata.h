#pragma once

#include "utils/containers/autolist.h"
#include "utils/smartptr/smartptr.h"

#include <SDL_mixer.h>

#include <string>

namespace vask {

// A music file that is open for playing. Its players share it and own it together.
class CSDLMixerMusicData : public CAutoList<CSDLMixerMusicData> {
 public:
  // Opens the file; a file that is no music is logged and leaves nothing to play.
  explicit CSDLMixerMusicData(std::string fileName);
  // Stops the music when it is still playing. The mixer must be open.
  ~CSDLMixerMusicData();
  CSDLMixerMusicData(const CSDLMixerMusicData&) = delete;
  CSDLMixerMusicData& operator=(const CSDLMixerMusicData&) = delete;

  // The music of that file, opened when it is not open yet.
  static CSmartPtr<CSDLMixerMusicData> Get(const std::string& fileName);

  const std::string& GetFileName() const { return myFileName; }
  // Null when loading failed.
  Mix_Music* GetMusic() const { return myMusic; }

 private:
  std::string myFileName;
  Mix_Music* myMusic;
};

}  // namespace vask
