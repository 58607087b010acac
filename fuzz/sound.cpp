// A file that passes the check of sound files can be loaded and played, as an effect and as music.
// It is of a kind that is shipped: the library leaks what it can't read of others.

#include "audio/audiodevice.h"
#include "audio/sdlmixereffectdata.h"
#include "audio/sdlmixermusicdata.h"
#include "fuzz.h"

#include <SDL_audio.h>

#include <atomic>

namespace {

std::atomic<int> ourMixes = 0;  // counted by the mixer's thread

void OnMixed(void* /*unused*/, Uint8* /*stream*/, int /*bytes*/) {
  ++ourMixes;
  ourMixes.notify_one();
}

// Until the mixer has made a piece from its begin to its end.
void AwaitMix() {
  for (int i = 0; i < 2; ++i) {
    ourMixes.wait(ourMixes.load());
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto device = vask::CAudioDevice::Open({44100, AUDIO_S16SYS, 2, 256, 8}, "fuzz");
  vask::fuzz::Require(device != nullptr);
  Mix_SetPostMix(OnMixed, nullptr);
  const std::string sound = vask::fuzz::ToText(data, size);
  const bool isOgg = sound.starts_with("OggS");
  if (!isOgg && !sound.starts_with("RIFF")) {
    return 0;
  }
  const std::string file = isOgg ? "input.ogg" : "input.wav";
  vask::fuzz::WriteFile(file, sound);
  if (Mix_Chunk* effect = vask::CSDLMixerEffectData::Load(file)) {
    Mix_PlayChannel(0, effect, 0);
    AwaitMix();
    Mix_HaltChannel(0);
    vask::CSDLMixerEffectData::Free(effect);
  }
  if (Mix_Music* music = vask::CSDLMixerMusicData::Load(file)) {
    Mix_PlayMusic(music, 0);
    AwaitMix();
    Mix_HaltMusic();
    vask::CSDLMixerMusicData::Free(music);
  }
  return 0;
}
