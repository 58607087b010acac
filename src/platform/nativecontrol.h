#pragma once

#include "platform/nativecanvas.h"
#include "platform/nativekey.h"

#include <string>
#include <utility>

namespace vask::platform {

// The styles of a control, to be added up.
inline constexpr unsigned kClientEdge = 1;  // a sunken border
inline constexpr unsigned kAutoScroll =
    2;  // an edit field of one line, which scrolls; else it wraps

// A control of a native window.
class CNativeControl {
 public:
  CNativeControl(std::string text, const SBox& box, int id, unsigned style);
  virtual ~CNativeControl() = default;

  virtual void SetText(std::string text) { myText = std::move(text); }
  const std::string& GetText() const { return myText; }
  const SBox& GetBox() const { return myBox; }
  int GetId() const { return myId; }

  // Whether the control takes the focus, and whether it can be clicked.
  virtual bool TakesFocus() const { return false; }
  virtual bool IsButton() const { return false; }

  // `isPressed`: the pointer holds it down.
  virtual void Draw(INativeCanvas& canvas, bool hasFocus, bool isPressed) = 0;
  // The pointer's button went down on the control.
  virtual void OnPress(int x, int y, const INativeFont& font);
  // The pointer moved since, anywhere, and the button is still down.
  virtual void OnDrag(int x, int y, const INativeFont& font);
  // The wheel turned over the control: by so many lines, upwards when negative.
  virtual void OnWheel(int lines, const INativeFont& font);
  // A key came while the control had the focus. True when it clicks the control.
  virtual bool OnKey(const SNativeKey& key, const INativeFont& font);

 protected:
  bool HasStyle(unsigned style) const { return (myStyle & style) != 0; }

  std::string myText;

 private:
  SBox myBox;
  int myId;
  unsigned myStyle;
};

}  // namespace vask::platform
