#include "input/multikeyevent.h"

#include <algorithm>
#include <utility>

#include "input/keynames.h"

namespace vask {

CMultiKeyEvent::CMultiKeyEvent(std::vector<int> keys) : myKeys(std::move(keys)) {}

bool CMultiKeyEvent::Trigger(int) {
  return myKeyStates != nullptr && std::ranges::all_of(myKeys, [this](int key) {
           return IsKeyCode(key) && myKeyStates[key] != 0;
         });
}

}  // namespace vask
