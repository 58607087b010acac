// A file that passes the check of sound files can be loaded and played, as an effect and as music.

#include "audio/audiodevice.h"
#include "audio/sdlmixereffectdata.h"
#include "audio/sdlmixermusicdata.h"
#include "fuzz.h"

#include <SDL_audio.h>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const auto device = vask::CAudioDevice::Open({44100, AUDIO_S16SYS, 2, 1024, 8}, "fuzz");
  vask::fuzz::Require(device != nullptr);
  vask::fuzz::WriteFile("input.wav", vask::fuzz::ToText(data, size));
  if (Mix_Chunk* effect = vask::CSDLMixerEffectData::Load("input.wav")) {
    Mix_PlayChannel(0, effect, 0);
    Mix_HaltChannel(0);
    vask::CSDLMixerEffectData::Free(effect);
  }
  if (Mix_Music* music = vask::CSDLMixerMusicData::Load("input.wav")) {
    Mix_PlayMusic(music, 0);
    Mix_HaltMusic();
    vask::CSDLMixerMusicData::Free(music);
  }
  return 0;
}
