#pragma once

#include <SDL.h>

#include "events/mousehardware.h"
#include "kernel/task.h"

namespace vask {

class CEventBridge;

// Hands SDL's events to the event bridge (task type "event"), and drives the cursor and the input
// grab for it.
class CTaskEventSDL : public CTask, public IMouseHardware {
 public:
  CTaskEventSDL();
  ~CTaskEventSDL() override;

  using CTask::Start;
  bool Start() override;
  // Drains the event queue.
  void Update() override;
  void Exit() override;

  void ShowCursor() override;
  void HideCursor() override;
  // Types without an image, and the current one, leave the cursor as it is.
  void ChangeCursor(int type) override;
  void GrabInput(bool on) override;

 private:
  void Dispatch();
  void OnFocus(bool gained);
  void OnButtonDown(int button);
  void OnButtonUp(int button);
  void Shutdown();
  void FreeCursor();

  int myCursorType = 0;
  SDL_Cursor* myCursor = nullptr;
  SDL_Cursor* myInitialCursor = nullptr;  // SDL's own; known while myCursor is set
  SDL_Event myEvent{};
  CEventBridge* myBridge;
  bool myIsHardware = false;
  int myHeldButtons = 0;     // bits of the buttons that are down
  int myGivenUpButtons = 0;  // those whose release the listeners heard when the focus went
};

}  // namespace vask
