#pragma once

namespace vask {

// The volumes of the music and the effects of all audio tasks, 0 to 1. The players read them in
// every frame.
struct SAudioVolumes {
  float music = 1.0F;
  float effects = 1.0F;
};

SAudioVolumes& AudioVolumes();

// Makes them the variables "audio_music_volume" and "audio_effect_volume" of the application
// console. Values that a script has set under these names before are taken over. A second call does
// nothing.
void RegisterAudioVolumes();

// The volume on the mixer's scale.
int ToMixerVolume(float volume);

}  // namespace vask
