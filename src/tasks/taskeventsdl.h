#pragma once

#include "events/mousehardware.h"
#include "input/heldinput.h"
#include "kernel/task.h"

#include <SDL.h>

namespace vask {

class CEventBridge;

// Passes SDL's events to the event bridge (task type "event"), and drives the cursor and the input
// grab for it. Held keys and buttons count as released when the focus is lost, SDL's video ends, or
// the task pauses or ends: no event may ever report their release.
class CTaskEventSDL : public CTask, public IMouseHardware {
 public:
  CTaskEventSDL();
  ~CTaskEventSDL() override;

  using CTask::Start;
  bool Start() override;
  // Drains the event queue.
  void Update() override;
  void Exit() override;
  void Pause() override;
  void Resume() override;

  void ShowCursor() override;
  void HideCursor() override;
  // The current type and types without an image change nothing.
  void ChangeCursor(int type) override;
  void GrabInput(bool on) override;

 private:
  void Dispatch();
  void OnFocus(bool gained);
  void OnKeyDown(const SDL_keysym& key);
  void OnKeyUp(const SDL_keysym& key);
  void OnButtonDown(int button);
  void OnButtonUp(int button);
  void StopListening();
  void ReleaseHeld();
  void Shutdown();
  void FreeCursor();

  int myCursorType = 0;
  SDL_Cursor* myCursor = nullptr;
  SDL_Cursor* myInitialCursor = nullptr;  // SDL's own; known while myCursor is set
  SDL_Event myEvent{};
  CEventBridge* myBridge;
  bool myIsHardware = false;
  bool myIsListening = false;  // neither before the start nor paused nor ended
  bool myIsUpdating = false;
  unsigned myQuitCount = 0;  // of SDL, at the last update
  CHeldInput myKeys;
  CHeldInput myButtons;
};

}  // namespace vask
