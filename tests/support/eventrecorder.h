#pragma once

#include "events/eventbridge.h"
#include "input/cursornames.h"

#include <functional>
#include <string>
#include <utility>

namespace vask::test {

// Listens to everything: writes each call down with two numbers, then calls the reaction of the
// test, once.
struct CEventRecorder : IWindowListener, IKeyboardListener, IMouseListener {
  CEventRecorder(const char* name, std::string& record) : myName(name), myRecord(record) {
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
  std::function<void()> react;  // may delete the listener

  void Note(const std::string& what, int a, int b) {
    myRecord += myName + what + " " + std::to_string(a) + " " + std::to_string(b) + "\n";
    if (const auto once = std::exchange(react, nullptr)) {
      once();
    }
  }
  std::string myName;
  std::string& myRecord;
};

// Replaces the cursor of the screen; keeps the last request: a cursor by its name in the console,
// less the "cursor_".
struct CNotingHardware : IMouseHardware {
  CNotingHardware() { CEventBridge::GetSingletonPtr()->SetMouseHardware(this); }
  ~CNotingHardware() override { CEventBridge::GetSingletonPtr()->ClearMouseHardware(); }
  void ShowCursor() override { last = "show"; }
  void HideCursor() override { last = "hide"; }
  void ChangeCursor(int type) override { last = kCursorNames.at(type).substr(7); }
  void GrabInput(bool on) override { last = on ? "grab" : "release"; }
  std::string last;
};

}  // namespace vask::test
