#pragma once

#include "utils/containers/autolist.h"
#include "utils/smartptr/smartptr.h"

#include <string>

struct Mix_Chunk;

namespace vask {

// A sound effect in memory. All of them together are the cache of effects, by file name; the
// players share an effect and own it together.
class CSDLMixerEffectData : public CAutoList<CSDLMixerEffectData> {
 public:
  // Loads the file; a file that is no sound is logged and leaves the effect without a chunk.
  explicit CSDLMixerEffectData(std::string fileName);
  // Stops the effect wherever it is still playing. The mixer must be open.
  ~CSDLMixerEffectData();
  CSDLMixerEffectData(const CSDLMixerEffectData&) = delete;
  CSDLMixerEffectData& operator=(const CSDLMixerEffectData&) = delete;

  // The effect of that file, loaded when it is not in the cache.
  static CSmartPtr<CSDLMixerEffectData> Get(const std::string& fileName);

  const std::string& GetFileName() const { return myFileName; }
  // Null when loading failed.
  Mix_Chunk* GetChunk() const { return myChunk; }
  // Whether the effect stays in memory when all is silent.
  bool IsKept() const { return myKeep; }
  void Keep() { myKeep = true; }

 private:
  std::string myFileName;
  Mix_Chunk* myChunk;
  bool myKeep = false;
};

}  // namespace vask
