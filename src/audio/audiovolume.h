#pragma once

namespace vask {

// How loud the music and the effects of all audio tasks are: 0 to 1 of what the files hold. The
// players take them over in every frame.
struct SAudioVolumes {
  float music = 1.0F;
  float effects = 1.0F;
};

SAudioVolumes& AudioVolumes();

// Makes them the variables "audio_music_volume" and "audio_effect_volume" of the application
// console. What a script has set under these names before counts. Does nothing the second time.
void RegisterAudioVolumes();

// The volume as the mixer wants it.
int ToMixerVolume(float volume);

}  // namespace vask
