#pragma once

namespace vask {

// What a key may be bound to in CKeyboard: hears of the keys that it listens to, in the order of
// the priorities, and may keep a key from the events behind it.
class IKeyEvent {
 public:
  IKeyEvent() = default;
  IKeyEvent(const IKeyEvent&) = delete;
  IKeyEvent& operator=(const IKeyEvent&) = delete;

  // Leaves CKeyboard.
  virtual ~IKeyEvent();
  // The event's action; answers whether there was something to do.
  virtual bool Trigger(int key) = 0;
  virtual bool ListensToKeyUp() { return false; }
  virtual bool ListensToKeyDown() { return true; }
  virtual void OnKeyDown(int key) { Trigger(key); }
  virtual void OnKeyUp(int key) { Trigger(key); }
  // Lower values hear of a key first.
  virtual int GetPriority() { return myPriority; }
  // Asked after the event got a key: whether no event behind it gets the key.
  virtual bool StopsKey() { return false; }
  virtual void SetPriority(int priority) { myPriority = priority; }
  // One flag for each key code, 1 while the key is down; the flags live as long as the keyboard.
  virtual void SetKeyStates(const unsigned char*) {}

 private:
  int myPriority = 10;
};

}  // namespace vask
