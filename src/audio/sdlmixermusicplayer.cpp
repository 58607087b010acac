#include "audio/sdlmixermusicplayer.h"

#include "audio/audiovolume.h"
#include "audio/sdlmixermusicdata.h"
#include "console/console.h"
#include "kernel/applicationfactory.h"
#include "utils/log/log.h"
#include "utils/timer/globaltimerimpl.h"
#include "utils/timer/timer.h"

#include <SDL_mixer.h>

#include <algorithm>

namespace vask {

namespace {

// The mixer fades in steps of one chunk, so a fade needs at least one.
constexpr int kShortestFade = 100;
// A fade-out divides by the steps of the fade-in that it cuts short. There may be none: the device
// may use a chunk twice as long as the wanted one, and does not tell.
constexpr int kShortestFadeInToTurn = 1000;
// A track that does not play is tried again after a while, not in every frame.
constexpr unsigned kRetryDelay = 1000;

}  // namespace

CSDLMixerMusicPlayer::CSDLMixerMusicPlayer(int chunkMilliseconds)
    : myShortestFade(std::max(kShortestFade, chunkMilliseconds)),
      myShortestFadeInToTurn(std::max(kShortestFadeInToTurn, 2 * chunkMilliseconds + 1)) {
  ApplyVolume();
}

CSDLMixerMusicPlayer::~CSDLMixerMusicPlayer() {
  if (HasMixer()) {
    Mix_HaltMusic();
    ourLast = nullptr;
  }
}

void CSDLMixerMusicPlayer::Play(const std::string& fileName) {
  Resume();
  const CSmartPtr<CSDLMixerMusicData> music = CSDLMixerMusicData::Get(fileName);
  if (music->GetSound() == nullptr) {
    return;
  }
  myHasFailed = !StartMusic(*music);
  myFailedTime = GetGlobalTime();
  myState = kPlaying;
  myMusic = music;
  Tell(fileName);
}

bool CSDLMixerMusicPlayer::StartMusic(const CSDLMixerMusicData& music) {
  if (Mix_FadingMusic() == MIX_FADING_OUT) {
    Mix_HaltMusic();  // or the mixer would block this thread until the fade is over
  }
  myFadeInTime = myFades ? FadeTime() : 0;
  const int result = myFades ? Mix_FadeInMusicPos(music.GetSound(), 0, myFadeInTime, 0.0)
                             : Mix_PlayMusic(music.GetSound(), 0);
  // A fade-in without a step would leave it silent; one with steps sets its own volume.
  Mix_VolumeMusic(ToMixerVolume(mySettings[0]));
  myFades = false;
  ourLast = this;
  if (result == -1) {
    CLog& log = *CLog::GetSingletonPtr();
    log.Warning() << "Could not play music: " << music.GetFileName() << "\n";
    log.Warning() << "SDL_Mixer says: " << SDL_GetError() << "\n";
  }
  return result != -1;
}

void CSDLMixerMusicPlayer::PlayFadeIn(const std::string& fileName, int milliseconds) {
  SetFade(milliseconds);
  Play(fileName);
}

void CSDLMixerMusicPlayer::Stop() {
  if (myState == kPlaying && HasMixer()) {
    if (myFades && FadeTime() > 0) {
      FadeOut();
    } else {
      Mix_HaltMusic();
    }
  }
  myState = kStopped;
  Tell("");
}

void CSDLMixerMusicPlayer::Tell(const std::string& fileName) {
  CApplicationFactory::GetSingletonPtr()->GetConsole()->SetVariable("audio_music_file", fileName);
}

void CSDLMixerMusicPlayer::FadeOut() const {
  if (Mix_FadingMusic() == MIX_FADING_IN && myFadeInTime < myShortestFadeInToTurn) {
    Mix_HaltMusic();
  } else {
    Mix_FadeOutMusic(FadeTime());
  }
}

void CSDLMixerMusicPlayer::StopFadeOut(int milliseconds) {
  SetFade(milliseconds);
  Stop();
}

void CSDLMixerMusicPlayer::Pause() {
  if (myState == kPlaying) {
    myState = kPaused;
    if (HasMixer()) {
      Mix_PauseMusic();
    }
  }
}

void CSDLMixerMusicPlayer::Resume() {
  if (myState == kPaused) {
    myState = kPlaying;
    if (HasMixer()) {
      Mix_ResumeMusic();
    }
  }
}

void CSDLMixerMusicPlayer::Update() {
  ApplyVolume();
  if (myState != kPlaying || !myMusic || Mix_PlayingMusic() != 0 || WaitsForAnother()) {
    return;
  }
  if (!myHasFailed || HasReached(GetGlobalTime(), myFailedTime + kRetryDelay)) {
    Play(std::string(myMusic->GetFileName()));
  }
}

bool CSDLMixerMusicPlayer::WaitsForAnother() const {
  return ourLast != nullptr && ourLast != this && ourLast->myState != kStopped;
}

// Only what is new is set: setting it holds up the mixer.
void CSDLMixerMusicPlayer::ApplyVolume() {
  mySettings[0] = AudioVolumes().music;
  const int volume = ToMixerVolume(mySettings[0]);
  if (Mix_VolumeMusic(-1) != volume) {
    Mix_VolumeMusic(volume);
  }
}

void CSDLMixerMusicPlayer::SetFade(int milliseconds) {
  myFades = true;
  myFadeTime = milliseconds;
}

int CSDLMixerMusicPlayer::FadeTime() const { return myFadeTime < myShortestFade ? 0 : myFadeTime; }

}  // namespace vask
