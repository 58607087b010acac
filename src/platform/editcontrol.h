#pragma once

#include "platform/nativecontrol.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <vector>

namespace vask::platform {

// A text that can be edited (class "edit"): on one line that scrolls, or, without kAutoScroll, on
// lines that wrap and scroll up and down. What does not fit is clipped. Dragging the pointer, or
// moving the caret with the shift key held, selects text, which the next typed text replaces.
class CEditControl : public CNativeControl {
 public:
  using CNativeControl::CNativeControl;

  // The caret goes to the front; nothing is selected.
  void SetText(std::string text) override;
  bool TakesFocus() const override { return true; }
  void Draw(INativeCanvas& canvas, bool hasFocus, bool isPressed) override;
  void OnPress(int x, int y, const INativeFont& font) override;
  void OnDrag(int x, int y, const INativeFont& font) override;
  // In wrapping fields Return begins a new line, in others it does nothing.
  bool OnKey(const SNativeKey& key, const INativeFont& font) override;

 private:
  using Lines = std::vector<STextLine>;

  SBox TextBox() const { return GetBox().Inside(3); }
  Lines SplitLines(const INativeFont& font) const;
  std::size_t LineOfCaret(const Lines& lines) const;
  // The place in the line that is nearest to `x` pixels after the first character shown.
  std::size_t PlaceInLine(const Lines& lines, std::size_t line, int x,
                          const INativeFont& font) const;
  // The place at a point, also when that is outside the field.
  std::size_t PlaceAt(int x, int y, const INativeFont& font) const;
  std::size_t SelectionBegin() const { return std::min(myAnchor, myCaret); }
  std::size_t SelectionEnd() const { return std::max(myAnchor, myCaret); }
  // Replaces what is selected by the text.
  void Insert(const std::string& text);
  // Erases what is selected, else from the caret to the place.
  void EraseTo(std::size_t place);
  void MoveCaret(ENativeKey key, const INativeFont& font);
  // Without the shift key, sideways: to the end of what is selected. False when nothing is.
  bool LeaveSelection(ENativeKey key);
  void ScrollToCaret(const INativeFont& font);
  void DrawSelection(INativeCanvas& canvas, STextLine shown, int y) const;
  void DrawCaret(INativeCanvas& canvas, const Lines& lines) const;

  std::size_t myCaret = 0;      // how many characters are before it
  std::size_t myAnchor = 0;     // the other end of what is selected
  std::size_t myFirstChar = 0;  // the first one shown of a field of one line
  std::size_t myFirstLine = 0;  // the first one shown of a wrapping field
};

}  // namespace vask::platform
