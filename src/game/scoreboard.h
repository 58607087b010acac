#pragma once

#include "game/physics/screentransform.h"
#include "gfx/sprite/sprite.h"
#include "kernel/fakethread.h"

#include <string>

namespace vask {
class CTextSprite;
}

namespace brumble {

// A number on the screen that runs towards its value instead of jumping: far off it counts in
// thousands, at the end in ones. It is a cooperative thread and must be neither paused nor killed:
// it leaves the threads with its destructor.
//
//   CScoreBoard score;
//   score.SetPosition(270, 560);
//   score.Add(500);
class CScoreBoard : public vask::CFakeThread {
 public:
  CScoreBoard();

  // Shows the value at once.
  void Set(int value);
  // Lets the shown value run on by `delta`, which it answers.
  int Add(int delta);
  // The top-left corner, in pixels.
  void SetPosition(int x, int y);
  // One step of the shown value towards the target.
  void Run();
  void Update() override { Run(); }

  int GetShown() const { return myShown; }
  int GetTarget() const { return myTarget; }
  const vask::CTextSprite& GetSprite() const { return *myTextSprite; }

  // A text that rises and fades where points were made; `position` is its centre. Nothing is shown
  // without the digits font, or above the screen.
  static void ShowFloatingText(SScreenPoint position, const std::string& text);

 private:
  void ShowNumber();

  vask::CSpritePtr mySprite;
  vask::CTextSprite* myTextSprite;  // the same, under its own type
  int myShown = 0;
  int myTarget = 0;
};

}  // namespace brumble
