#include "audio/sdlmixereffectplayer.h"

#include "audio/audiovolume.h"
#include "utils/log/log.h"

#include <SDL_mixer.h>

#include <algorithm>
#include <cstddef>

namespace vask {

namespace {

constexpr int kAllChannels = -1;
constexpr int kFirstFreeChannel = -1;
constexpr int kNoTimeLimit = -1;

}  // namespace

CSDLMixerEffectPlayer::CSDLMixerEffectPlayer() {
  ourUsers.resize(std::max(ourUsers.size(), static_cast<std::size_t>(Mix_AllocateChannels(-1))));
  ApplyVolume();
}

CSDLMixerEffectPlayer::~CSDLMixerEffectPlayer() {
  ForEachChannel([](int channel) {
    Mix_HaltChannel(channel);
    ourUsers[static_cast<std::size_t>(channel)] = nullptr;
  });
}

void CSDLMixerEffectPlayer::Play(const std::string& fileName) {
  const CEffectPtr effect = CSDLMixerEffectData::Get(fileName);
  Hold(effect);
  myHasPlayed = true;
  if (effect->GetSound() == nullptr) {
    return;
  }
  const int channel = Mix_PlayChannelTimed(kFirstFreeChannel, effect->GetSound(), 0, kNoTimeLimit);
  if (channel != -1) {
    ourUsers[static_cast<std::size_t>(channel)] = this;
    return;
  }
  CLog& log = *CLog::GetSingletonPtr();
  log.Warning() << "Could not play the effect: " << fileName << "\n";
  log.Warning() << "SDL_Mixer says: " << SDL_GetError() << "\n";
}

void CSDLMixerEffectPlayer::Preload(const std::string& fileName) {
  const CEffectPtr effect = CSDLMixerEffectData::Get(fileName);
  if (effect->GetSound() == nullptr) {
    std::erase(myEffects, effect);
  } else {
    Hold(effect);
    effect->Keep();
  }
}

void CSDLMixerEffectPlayer::Pause() { ForEachChannel(&Mix_Pause); }

void CSDLMixerEffectPlayer::Resume() { ForEachChannel(&Mix_Resume); }

void CSDLMixerEffectPlayer::Update() {
  if (AudioVolumes().effects != mySettings[0]) {
    ApplyVolume();
  }
  if (myHasPlayed && Mix_Playing(kAllChannels) == 0) {
    std::erase_if(myEffects, [](const CEffectPtr& effect) { return !effect->IsKept(); });
    myHasPlayed = false;
  }
}

void CSDLMixerEffectPlayer::Hold(const CEffectPtr& effect) {
  if (std::find(myEffects.begin(), myEffects.end(), effect) == myEffects.end()) {
    myEffects.push_back(effect);
  }
}

template <typename Visit>
void CSDLMixerEffectPlayer::ForEachChannel(Visit visit) const {
  for (std::size_t channel = 0; channel < ourUsers.size(); ++channel) {
    if (ourUsers[channel] == this) {
      visit(static_cast<int>(channel));
    }
  }
}

void CSDLMixerEffectPlayer::ApplyVolume() {
  mySettings[0] = AudioVolumes().effects;
  Mix_Volume(kAllChannels, ToMixerVolume(mySettings[0]));
}

}  // namespace vask
