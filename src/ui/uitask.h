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

// Hears of keys under names of its own: a listener of keys that is also a key event would answer
// both with the same operations, and hear of each bound key twice.
class CUiKeyListener : public IKeyboardListener {
 public:
  void OnKeyDown(int key) final { OnUiKeyDown(key); }
  void OnKeyUp(int key) final { OnUiKeyUp(key); }

 private:
  virtual void OnUiKeyDown(int key) = 0;
  virtual void OnUiKeyUp(int key) = 0;
};

// Feeds the widgets with keys, mouse and window size, repeats keys that are held, and keeps bound
// keys back while a widget has the keyboard. Task type "ui". The desktop and all widgets on it go
// with the task's exit. The priorities of the task and of the key event are not the same.
//
//   starttask( ui, ui, 70 )
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
  bool myIsRunning = false;  // from the start to the exit; outside it nothing reaches the widgets
};

}  // namespace vask
