#pragma once

#include "events/keyboardlistener.h"
#include "events/mouselistener.h"
#include "events/windowlistener.h"
#include "input/keyevent.h"
#include "kernel/task.h"

#include <memory>

namespace vask {

class CVaskToUiKeyboard;
class CVaskToUiMouse;

// A keyboard listener under other names: in a class that is also a key event the two would be the
// same operations, and be called twice for each bound key.
class CUiKeyListener : public IKeyboardListener {
 public:
  void OnKeyDown(int key) final { OnUiKeyDown(key); }
  void OnKeyUp(int key) final { OnUiKeyUp(key); }

 private:
  virtual void OnUiKeyDown(int key) = 0;
  virtual void OnUiKeyUp(int key) = 0;
};

// Sends keys, mouse and window size to the widgets, repeats held keys, and stops bound keys while a
// widget has the keyboard. Task type "ui". Its exit deletes the desktop and all widgets on it. The
// task and the key event have priorities of their own.
//
//     starttask( ui, ui, 70 )
class CUiTask : public CTask,
                public CUiKeyListener,
                public IMouseListener,
                public IWindowListener,
                public IKeyEvent {
 public:
  CUiTask();
  ~CUiTask() override;

  using CTask::Start;
  bool Start() override;
  void Update() override;
  void Exit() override;

  void OnMouseMove(int x, int y) override;
  void OnMouseButtonDown(int button) override;
  void OnMouseButtonUp(int button) override;

  void OnResize(int width, int height) override;
  void OnFocus(bool) override {}

  bool Trigger(int) override { return false; }
  bool ListensToKeyUp() override { return true; }
  // While a widget has the keyboard.
  bool StopsKey() override;

 private:
  void OnUiKeyDown(int key) override;
  void OnUiKeyUp(int key) override;
  void SendKey(int type, int key);
  void SendButton(int type, int button);

  std::unique_ptr<CVaskToUiMouse> myMouse;
  std::unique_ptr<CVaskToUiKeyboard> myKeyboard;
  bool myIsRunning = false;  // from the start to the exit; outside it no event reaches the widgets
};

}  // namespace vask
