#pragma once

#include "designpatterns/singleton.h"
#include "input/keyevent.h"
#include "utils/smartptr/smartptr.h"

#include <memory>
#include <vector>

namespace vask {

// Called for each key as it goes down, before it is queued.
class IKeyInterceptor {
 public:
  // Leaves CKeyboard.
  virtual ~IKeyInterceptor();
  // Returns true to take the press: it reaches no event then.
  virtual bool TakesPress(int key) = 0;
};

// Queues the keys that go down and up; Update(), once per frame, dispatches them to the events that
// they are bound to, lower priorities first. Events may bind further events, come, go and delete
// each other at any time; what is bound during a dispatch counts from the next key.
//
//     CKeyboard& keyboard = *CKeyboard::GetSingletonPtr();
//     keyboard.BindKey(KeyFromName("escape"), CSmartPtr<IKeyEvent>(new CMyEvent), 10);
class CKeyboard : public CSingleton<CKeyboard> {
 public:
  CKeyboard();
  ~CKeyboard();
  CKeyboard(const CKeyboard&) = delete;
  CKeyboard& operator=(const CKeyboard&) = delete;

  // Binds the event to a key, before those of the same priority. Bindings are never removed.
  void BindKey(int key, const CSmartPtr<IKeyEvent>& event, int priority);
  // Binds the event to each of the keys, and gives it the key states.
  void BindKeys(const std::vector<int>& keys, const CSmartPtr<IKeyEvent>& event, int priority);
  // The event, which is not owned, gets every key that is bound to something, after those of the
  // same priority that were added before. Added again, it still gets each key once.
  void AddKeyEvent(IKeyEvent* event, int priority);
  // Removes an event that AddKeyEvent has added.
  void RemoveKeyEvent(IKeyEvent* event);
  // Not owned. Each press goes to all interceptors, also when one takes it.
  void AddInterceptor(IKeyInterceptor* interceptor);
  void RemoveInterceptor(IKeyInterceptor* interceptor);
  // Dispatches what was queued before the call: the keys that went down, then those that came up.
  void Update();

 private:
  class CKeyboardImpl;

  std::unique_ptr<CKeyboardImpl> myImpl;
};

}  // namespace vask
