#pragma once

namespace vask {

// An action that CKeyboard binds to keys. Events get a key in the order of their priorities, and
// one may keep it from those after it.
class IKeyEvent {
 public:
  IKeyEvent() = default;
  IKeyEvent(const IKeyEvent&) = delete;
  IKeyEvent& operator=(const IKeyEvent&) = delete;

  // Leaves CKeyboard.
  virtual ~IKeyEvent();
  // The event's action; returns whether there was something to do.
  virtual bool Trigger(int key) = 0;
  virtual bool ListensToKeyUp() { return false; }
  virtual bool ListensToKeyDown() { return true; }
  virtual void OnKeyDown(int key) { Trigger(key); }
  virtual void OnKeyUp(int key) { Trigger(key); }
  // Lower values get a key first.
  virtual int GetPriority() { return myPriority; }
  // Called after the event got a key: true keeps the key from the events after it.
  virtual bool StopsKey() { return false; }
  virtual void SetPriority(int priority) { myPriority = priority; }
  // One flag for each key code, 1 while the key is down; the flags live as long as the keyboard.
  virtual void SetKeyStates(const unsigned char*) {}

 private:
  int myPriority = 10;
};

}  // namespace vask
