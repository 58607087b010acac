#include "tasks/sdlmixereffectplayer.h"

#include <SDL_mixer.h>

#include "tasks/audiovolume.h"
#include "tasks/sdlmixereffectdata.h"
#include "utils/log/log.h"

namespace vask {

namespace {

constexpr int kAllChannels = -1;
constexpr int kFirstFreeChannel = -1;
constexpr int kNoTimeLimit = -1;

}  // namespace

CSDLMixerEffectPlayer::CSDLMixerEffectPlayer() { ApplyVolume(); }

CSDLMixerEffectPlayer::~CSDLMixerEffectPlayer() {
  Mix_HaltChannel(kAllChannels);
  CSDLMixerEffectData::FreeAll();
}

void CSDLMixerEffectPlayer::Play(const std::string& fileName) {
  const CSDLMixerEffectData* effect = CSDLMixerEffectData::Get(fileName);
  if (effect->GetChunk() != nullptr &&
      Mix_PlayChannelTimed(kFirstFreeChannel, effect->GetChunk(), 0, kNoTimeLimit) == -1) {
    CLog& log = *CLog::GetSingletonPtr();
    log.Warning() << "Could not play the effect: " << fileName << "\n";
    log.Warning() << "SDL_Mixer says: " << SDL_GetError() << "\n";
  }
  myHasPlayed = true;
}

void CSDLMixerEffectPlayer::Preload(const std::string& fileName) {
  CSDLMixerEffectData* effect = CSDLMixerEffectData::Get(fileName);
  if (effect->GetChunk() == nullptr) {
    delete effect;
  } else {
    effect->Keep();
  }
}

void CSDLMixerEffectPlayer::Pause() { Mix_Pause(kAllChannels); }

void CSDLMixerEffectPlayer::Resume() { Mix_Resume(kAllChannels); }

void CSDLMixerEffectPlayer::Update() {
  ApplyVolume();
  if (myHasPlayed && Mix_Playing(kAllChannels) == 0) {
    Sweep();
    myHasPlayed = false;
  }
}

void CSDLMixerEffectPlayer::ApplyVolume() {
  mySettings[0] = AudioVolumes().effects;
  const int volume = ToMixerVolume(mySettings[0]);
  if (Mix_Volume(0, -1) != volume) {
    Mix_Volume(kAllChannels, volume);
  }
}

// Walks a copy: the cache changes with every step.
void CSDLMixerEffectPlayer::Sweep() {
  const auto effects = CSDLMixerEffectData::GetList().Items();
  for (CSDLMixerEffectData* effect : effects) {
    if (!effect->IsKept()) {
      delete effect;
      continue;
    }
    CSDLMixerEffectData::List& cache = CSDLMixerEffectData::GetList();
    cache.Remove(effect);
    cache.Append(effect);
  }
}

}  // namespace vask
