#pragma once

#include "kernel/task.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vask {

class CAudioDevice;
class CSDLMixerEffectPlayer;
class CSDLMixerMusicPlayer;

// Plays sound effects and music. Task type "audio" of the task library "sdl_mixer"; other code
// plays sounds by console lines to the task, which is therefore started under the name "Audio":
//
//   taskload( sdl_mixer )
//   starttask( audio, Audio, 50, 22050, s16lsb, 2, 1024, 8 )
//   Audio::PlayEffect( "data/sfx/hit.wav" )
//
// The variables "audio_music_volume" and "audio_effect_volume" say how loud. Without an audio
// device the game plays on in silence. Several audio tasks share the device and the mixing
// channels; each has its own effects and its own music, of which the one that was started last is
// heard.
class CTaskAudioSDLMixer : public CTask {
 public:
  class CAudioConsoleImpl;

  CTaskAudioSDLMixer();
  ~CTaskAudioSDLMixer() override;

  // The frequency, the name of the sample format, the number of output channels, the chunk size and
  // the number of mixing channels; each may be left out from the end. A number out of its range is
  // held to it, and one of the wrong kind passed over, each with a line in the log.
  bool Start(CConsoleParams* params) override;
  // True when the mixer is running.
  bool Start() override;
  void Update() override;
  void Exit() override;
  void Pause() override;
  void Resume() override;
  bool ExecuteCommand(const std::string& line) override;

 private:
  void ReadFormat(const CConsoleParams& params);

  std::unique_ptr<CAudioDevice> myDevice;  // goes after all that plays on it
  std::unique_ptr<CSDLMixerMusicPlayer> myMusicPlayer;
  std::unique_ptr<CSDLMixerEffectPlayer> myEffectPlayer;
  std::unique_ptr<CAudioConsoleImpl> myAudioConsole;
  int myFrequency = 22050;  // Hz
  std::uint16_t myFormat;   // SDL's number of the sample format
  int myChannels = 2;       // 1 mono, 2 stereo
  int myChunkSize = 1024;   // samples that are mixed at a time
  int myMixChannels = 8;    // effects that play at the same time
};

}  // namespace vask
