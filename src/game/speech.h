#pragma once

#include "game/kittenview.h"
#include "gfx/sprite/sprite.h"

#include <vector>

namespace brumble {

// What kittens say when they lose their hair: a bubble that follows the kitten for a moment.
class CSpeech {
 public:
  // A new game: nobody has said anything.
  void Begin();
  // `now` is in milliseconds and must not run while the game stands.
  void Update(const std::vector<SKittenView>& kittens, unsigned now);
  // Takes all bubbles off the screen.
  void End() { mySpeakers.clear(); }

 private:
  struct SSpeaker {
    const IPhysicsGfxBridge* kitten;
    int hair;  // at the last look
    vask::CSpritePtr bubble = {};
    unsigned start = 0;
  };

  SSpeaker& SpeakerOf(const SKittenView& kitten);
  void Speak(SSpeaker& speaker, unsigned now);
  void ForgetOthersThan(const std::vector<SKittenView>& kittens);

  std::vector<SSpeaker> mySpeakers;  // one for each kitten
  int mySayings = 0;                 // in this game
};

}  // namespace brumble
