#pragma once

#include "game/physics/screentransform.h"
#include "gfx/sprite/sprite.h"
#include "kernel/fakethread.h"

#include <string>

namespace vask {
class CTextSprite;
}

namespace brumble {

// A number on the screen that counts towards its value instead of jumping, in thousands at first
// and in ones at the end. It is a cooperative thread that must be neither paused nor killed; the
// destructor removes it.
//
//     CScoreBoard board;
//     board.SetPosition(270, 560);
//     board.Add(500);
class CScoreBoard : public vask::CFakeThread {
 public:
  CScoreBoard();

  // Shows the value at once.
  void Set(int value);
  // Lets the shown value count on by `delta`; returns `delta`.
  int Add(int delta);
  // The top-left corner, in pixels.
  void SetPosition(int x, int y);
  // Moves the shown value a step towards the target.
  void Run();
  void Update() override { Run(); }

  int GetShown() const { return myShown; }
  int GetTarget() const { return myTarget; }
  const vask::CTextSprite& GetSprite() const { return *myTextSprite; }

  // Shows a text that rises and fades; `position` is its centre. Does nothing without the digits
  // font, above the screen, and while no effects are shown.
  static void ShowFloatingText(SScreenPoint position, const std::string& text);

 private:
  void ShowNumber();

  vask::CSpritePtr mySprite;
  vask::CTextSprite* myTextSprite;  // the same, under its own type
  int myShown = 0;
  int myTarget = 0;
};

}  // namespace brumble
