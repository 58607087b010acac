#pragma once

#include "designpatterns/singleton.h"
#include "input/keyevent.h"
#include "utils/smartptr/smartptr.h"

#include <memory>
#include <vector>

namespace vask {

// Is asked for each key as it goes down, before it is queued.
class IKeyInterceptor {
 public:
  // Leaves CKeyboard.
  virtual ~IKeyInterceptor();
  // Whether the press is the interceptor's own: it reaches no event then.
  virtual bool TakesPress(int key) = 0;
};

// Queues the keys that go down and up, and hands them on in Update() to the events that they are
// bound to, lower priorities first. Events may bind further events, come, go and delete each other
// at any time; what is bound while keys are handed on counts from the next key.
//
//   CKeyboard& keyboard = *CKeyboard::GetSingletonPtr();
//   keyboard.BindKey(KeyFromName("escape"), CSmartPtr<IKeyEvent>(new CMyEvent), 10);
//   keyboard.Update();  // once per frame
class CKeyboard : public CSingleton<CKeyboard> {
 public:
  CKeyboard();
  ~CKeyboard();
  CKeyboard(const CKeyboard&) = delete;
  CKeyboard& operator=(const CKeyboard&) = delete;

  // Binds the event to a key, in front of those of the same priority. Bindings are never removed.
  void BindKey(int key, const CSmartPtr<IKeyEvent>& event, int priority);
  // Binds the event to each of the keys, and lets it see which keys are down.
  void BindKeys(const std::vector<int>& keys, const CSmartPtr<IKeyEvent>& event, int priority);
  // The event, which is not owned, hears of every key that is bound to something, behind those of
  // the same priority that were added before. Added again, it still hears of each key once.
  void AddKeyEvent(IKeyEvent* event, int priority);
  // Takes an event out that AddKeyEvent has added.
  void RemoveKeyEvent(IKeyEvent* event);
  // Not owned. All interceptors are asked for a press, also when one takes it.
  void AddInterceptor(IKeyInterceptor* interceptor);
  void RemoveInterceptor(IKeyInterceptor* interceptor);
  // Hands on what was queued before the call: the keys that went down, then those that came up.
  void Update();

 private:
  class CKeyboardImpl;

  std::unique_ptr<CKeyboardImpl> myImpl;
};

}  // namespace vask
