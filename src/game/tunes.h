#pragma once

#include "utils/timer/timer.h"

#include <string>

namespace brumble {

enum class ETune { kTitle, kPlay, kLastKitten };

// The game's music: one tune for the screens, one for play, one for the last kitten. The script
// names their files in the variables "game_music_title", "game_music_play" and "game_music_last"; a
// variable that is empty, or missing, means silence.
class CTunes {
 public:
  CTunes();

  // To be called every frame. A change of the tune is a fade-out and then a fade-in.
  void Play(ETune tune);

 private:
  void ChangeTo(const std::string& file);

  vask::CTimer myClock;   // application time, since the fade-out began
  std::string myPlaying;  // the file; empty for silence
  bool myIsFadingOut = false;
};

}  // namespace brumble
