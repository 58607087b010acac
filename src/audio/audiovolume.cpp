#include "audio/audiovolume.h"

#include "console/console.h"
#include "kernel/applicationfactory.h"

#include <SDL_mixer.h>

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>
#include <utility>

namespace vask {

namespace {

// A variable that holds the volume in its range.
class CVarRefVolume : public CVarRef<float> {
 public:
  CVarRefVolume(float& volume, std::string name)
      : CVarRef(&volume, std::move(name)), myVolume(volume) {}

  void SetString(const std::string& text) override {
    CVarRef::SetString(text);
    myVolume = std::clamp(myVolume, 0.0F, 1.0F);
  }

 private:
  float& myVolume;
};

void Register(const char* name, float& volume) {
  CConsole& console = *CApplicationFactory::GetSingletonPtr()->GetConsole();
  const CVarRefBase* const before = console.FindVariable(name);
  if (dynamic_cast<const CVarRefVolume*>(before) != nullptr) {
    return;
  }
  const std::string value = console.GetVariable(name);
  console.AddVariable(name, std::make_unique<CVarRefVolume>(volume, name));
  console.SetVariable(name, value);
}

}  // namespace

SAudioVolumes& AudioVolumes() {
  static SAudioVolumes volumes;
  return volumes;
}

void RegisterAudioVolumes() {
  Register("audio_music_volume", AudioVolumes().music);
  Register("audio_effect_volume", AudioVolumes().effects);
}

int ToMixerVolume(float volume) {
  return static_cast<int>(std::lround(volume * static_cast<float>(MIX_MAX_VOLUME)));
}

}  // namespace vask
