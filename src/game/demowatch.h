#pragma once

#include "input/keyboard.h"
#include "input/mouseable.h"
#include "utils/timer/timer.h"

namespace brumble {

// Tells when the title has been left alone for so long that a demo may play, and when somebody ends
// it: any press of a key or a button, and any motion of the mouse.
class CDemoWatch : public vask::CMouseableImpl, public vask::IKeyInterceptor {
 public:
  CDemoWatch();
  ~CDemoWatch() override;
  CDemoWatch(const CDemoWatch&) = delete;
  CDemoWatch& operator=(const CDemoWatch&) = delete;

  // To be asked in each update while the title shows. Never while a console is open, and not before
  // the console's variable "game_demo_after" is above 0: the seconds of application time that
  // nothing has come, which stand without the focus.
  bool IsDue();
  // A demo begins: until it ends, a key that goes down does nothing else than to end it.
  void Begin();
  void End();
  bool IsPlaying() const { return myIsPlaying; }
  // Whether anything has come since the demo began.
  bool WasTouched() const { return myWasTouched; }

  void OnMouseMove(int x, int y) override;
  void OnMouseButtonDown(int button) override;
  bool TakesPress(int key) override;

 private:
  void Touch();

  vask::CTimer myClock;  // since the last touch
  bool myIsPlaying = false;
  bool myWasTouched = false;
};

}  // namespace brumble
