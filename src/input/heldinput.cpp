#include "input/heldinput.h"

#include <algorithm>

namespace vask {

void CHeldInput::Press(int code, int place, int name) {
  Take(code, place);
  if (name != 0) {
    myHeld.push_back({code, place, name, false});
  }
}

std::optional<int> CHeldInput::Release(int code, int place, int name) {
  const std::optional<SHeld> held = Take(code, place);
  if (!held) {
    return name;
  }
  return held->isGivenUp ? std::nullopt : std::optional<int>(held->name);
}

std::optional<int> CHeldInput::GiveUpOne() {
  const auto held = std::ranges::find(myHeld, false, &SHeld::isGivenUp);
  if (held == myHeld.end()) {
    return std::nullopt;
  }
  held->isGivenUp = true;
  return held->name;
}

std::optional<CHeldInput::SHeld> CHeldInput::Take(int code, int place) {
  const auto found = std::ranges::find_if(myHeld, [=](const SHeld& held) {
    return place != 0 ? held.place == place : code != 0 && held.code == code;
  });
  if (found == myHeld.end()) {
    return std::nullopt;
  }
  const SHeld held = *found;
  myHeld.erase(found);
  return held;
}

}  // namespace vask
