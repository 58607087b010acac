#pragma once

#include "platform/nativecontrol.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace vask::platform {

enum class EControlKind { kStatic, kEdit, kButton };

// The controls of a native window: which one has the focus, which one is pressed, and what is
// clicked. It knows no window system.
class CNativeForm {
 public:
  // Returns the number of the new control: 0, 1, and so on.
  std::size_t Add(EControlKind kind, std::string text, const SBox& box, int id, unsigned style);
  CNativeControl& GetControl(std::size_t number) { return *myControls[number]; }

  void Draw(INativeCanvas& canvas) const;

  // The pointer's button: a click is a press and a release on the same button, and the release
  // returns that button's id. A press gives the focus to a control that takes it.
  void Press(int x, int y, const INativeFont& font);
  void MovePointer(int x, int y, const INativeFont& font);
  std::optional<int> Release();

  // Turns the wheel over the control at that place.
  void Wheel(int x, int y, int lines, const INativeFont& font);

  // The focus goes to the next control that takes it, or to the one before.
  void FocusNext(bool backwards);
  // The id of the button that the key clicks.
  std::optional<int> Key(const SNativeKey& key, const INativeFont& font);

 private:
  // The frontmost control there; null for none.
  CNativeControl* ControlAt(int x, int y) const;

  std::vector<std::unique_ptr<CNativeControl>> myControls;
  // None at first, so that keys that are still held, or repeat, click nothing.
  CNativeControl* myFocus = nullptr;
  CNativeControl* myPressed = nullptr;
  bool myPointerIsOnPressed = false;
};

}  // namespace vask::platform
