#include "ui/keyrepeater.h"

#include "ui/event.h"
#include "ui/receivers.h"

namespace vask::ui {

// Code 0 is what SDL sends for a key that it doesn't know, and of whose release it may never tell.
std::optional<CKeyRepeater::SPress>* CKeyRepeater::SlotOf(std::int32_t key) {
  const auto index = static_cast<std::size_t>(key);  // a negative key is beyond every table
  return index > 0 && index < kKeys ? &myPresses[index] : nullptr;
}

void CKeyRepeater::Press(std::int32_t key, std::uint8_t character) {
  if (std::optional<SPress>* slot = SlotOf(key)) {
    myHeldKeys += slot->has_value() ? 0 : 1;
    *slot = SPress{myTimer.GetTime(), character};
  }
}

void CKeyRepeater::Release(std::int32_t key) {
  if (std::optional<SPress>* slot = SlotOf(key)) {
    myHeldKeys -= slot->has_value() ? 1 : 0;
    slot->reset();
  }
}

void CKeyRepeater::ReleaseAll() {
  myPresses.fill(std::nullopt);
  myHeldKeys = 0;
}

// A clock that is set back, as a playback does, has not come to the next press.
void CKeyRepeater::Update() {
  const unsigned now = myTimer.GetTime();
  if (myHeldKeys == 0 || !HasReached(now, myLastCheck + myInterval + 1)) {
    return;
  }
  myLastCheck = now;
  for (std::size_t key = 0; key < kKeys; ++key) {
    const std::optional<SPress>& press = myPresses[key];
    if (press && HasReached(now, press->time + myDelay + 1)) {
      CKeyboardEvent event(IEvent::kKeyDown, static_cast<std::int32_t>(key), press->character);
      SendToKeyboardReceiver(event);
    }
  }
}

}  // namespace vask::ui
