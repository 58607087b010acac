#pragma once

#include "input/keyevent.h"

#include <vector>

namespace vask {

// A set of keys that must all be down. A derived class adds the action.
class CMultiKeyEvent : public IKeyEvent {
 public:
  explicit CMultiKeyEvent(std::vector<int> keys);

  // Whether every key of the set is down; false before the event is bound.
  bool Trigger(int key) override;
  void SetKeyStates(const unsigned char* states) override { myKeyStates = states; }

 private:
  const unsigned char* myKeyStates = nullptr;
  std::vector<int> myKeys;
};

}  // namespace vask
