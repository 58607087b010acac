#pragma once

#include "utils/timer/timer.h"

#include <string>

namespace brumble {

enum class ETune { kTitle, kPlay, kLastKitten };

// The game's music: one tune for the screens, one for play, one for the last kitten. The script
// names their files in the variables "game_music_title", "game_music_play" and "game_music_last"; a
// variable that is empty, or missing, means silence. Who stops the music by hand, or plays some,
// has it so for the rest of the run.
class CTunes {
 public:
  CTunes();

  // To be called every frame. A change of the tune is a fade-out and then a fade-in.
  void Play(ETune tune);

 private:
  void ChangeTo(const std::string& file);
  void Order(const std::string& command);

  vask::CTimer myClock;   // application time, since the fade-out began
  std::string myPlaying;  // the file; empty for silence
  std::string myHeard;    // what the audio task tells that it plays, after the last order
  bool myIsFadingOut = false;
};

}  // namespace brumble
