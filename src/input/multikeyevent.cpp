#include "input/multikeyevent.h"

#include "input/keynames.h"

#include <algorithm>
#include <utility>

namespace vask {

CMultiKeyEvent::CMultiKeyEvent(std::vector<int> keys) : myKeys(std::move(keys)) {}

bool CMultiKeyEvent::Trigger(int) {
  return myKeyStates != nullptr && std::ranges::all_of(myKeys, [this](int key) {
           return IsKeyCode(key) && myKeyStates[key] != 0;
         });
}

}  // namespace vask
