#pragma once

#include "kernel/task.h"

#include <cstdint>
#include <memory>
#include <string>

namespace vask {

class CAudioDevice;
class CSDLMixerEffectPlayer;
class CSDLMixerMusicPlayer;

// Plays sound effects and music. Task type "audio" of the task library "sdl_mixer". Other code
// plays sounds by console lines to the task, which is therefore started under the name "Audio":
//
//     taskload( sdl_mixer )
//     starttask( audio, Audio, 50, 22050, s16lsb, 2, 1024, 8 )
//     Audio::PlayEffect( "data/sfx/kitten_01.wav" )
//
// The variables "audio_music_volume" and "audio_effect_volume" set the volumes. Without an audio
// device the game goes on in silence. Several audio tasks share the device and the mixing
// channels; each has its own effects and its own music, of which the one that was started last is
// heard.
class CTaskAudioSDLMixer : public CTask {
 public:
  class CAudioConsoleImpl;

  CTaskAudioSDLMixer();
  ~CTaskAudioSDLMixer() override;

  // The frequency, the name of the sample format, the number of output channels, the chunk size and
  // the number of mixing channels; the last ones may be left out. A number out of its range is
  // clamped, one of the wrong kind ignored, each with a line in the log.
  bool Start(CConsoleParams* params) override;
  // Returns whether the mixer is running.
  bool Start() override;
  void Update() override;
  void Exit() override;
  void Pause() override;
  void Resume() override;
  bool ExecuteCommand(const std::string& line) override;

 private:
  void ReadFormat(const CConsoleParams& params);

  std::unique_ptr<CAudioDevice> myDevice;  // outlives all that plays on it
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
