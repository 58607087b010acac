#pragma once

#include "events/eventbridge.h"

#include <functional>
#include <string>
#include <utility>

namespace vask::test {

// Listens to everything: writes each call down with two numbers, then does what the test wants of
// it, once.
struct CEventRecorder : IWindowListener, IKeyboardListener, IMouseListener {
  CEventRecorder(const char* itsName, std::string& itsRecord) : name(itsName), record(itsRecord) {
    CEventBridge::GetSingletonPtr()->AddWindowListener(this);
    CEventBridge::GetSingletonPtr()->AddKeyboardListener(this);
    CEventBridge::GetSingletonPtr()->AddMouseListener(this);
  }
  void OnResize(int w, int h) override { Note("resize", w, h); }
  void OnFocus(bool gained) override { Note("focus", gained, 0); }
  void OnKeyDown(int key) override { Note("down", key, GetCharacter()); }
  void OnKeyUp(int key) override { Note("up", key, GetCharacter()); }
  void OnMouseMove(int x, int y) override { Note("move", x, y); }
  void OnMouseMoveRelative(int x, int y) override { Note("by", x, y); }
  void OnMouseButtonDown(int button) override { Note("press", button, 0); }
  void OnMouseButtonUp(int button) override { Note("release", button, 0); }
  void Note(const std::string& what, int a, int b) {
    record += name + what + " " + std::to_string(a) + " " + std::to_string(b) + "\n";
    const auto once = std::exchange(react, nullptr);
    once ? once() : void();
  }
  std::string name;
  std::string& record;
  std::function<void()> react;
};

// Stands in for the cursor of the screen, and notes what is asked of it.
struct CNotingHardware : IMouseHardware {
  CNotingHardware() { CEventBridge::GetSingletonPtr()->SetMouseHardware(this); }
  ~CNotingHardware() override { CEventBridge::GetSingletonPtr()->ClearMouseHardware(); }
  void ShowCursor() override { last = "show"; }
  void HideCursor() override { last = "hide"; }
  void ChangeCursor(int type) override { last = "type " + std::to_string(type); }
  void GrabInput(bool on) override { last = on ? "grab" : "release"; }
  std::string last;
};

}  // namespace vask::test
