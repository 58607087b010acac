#pragma once

#include "audio/sdlmixerdata.h"

#include <string>
#include <utility>

namespace vask {

// A music file that is open for playing.
class CSDLMixerMusicData : public CSDLMixerData<CSDLMixerMusicData, Mix_Music> {
 public:
  static constexpr char kClassName[] = "CSDLMixerMusicData";
  static constexpr char kFileKind[] = "music-file";

  explicit CSDLMixerMusicData(std::string fileName) : CSDLMixerData(std::move(fileName)) {}

  static Mix_Music* Load(const std::string& fileName);
  static void Free(Mix_Music* music) { Mix_FreeMusic(music); }
};

}  // namespace vask
