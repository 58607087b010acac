#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "platform/nativecontrol.h"

namespace vask::platform {

// A text that can be edited (class "edit"): on one line that scrolls, or, without kAutoScroll, on
// lines that wrap and scroll up and down. What does not fit is cut off at the edges.
class CEditControl : public CNativeControl {
 public:
  using CNativeControl::CNativeControl;

  // The caret goes to the front.
  void SetText(std::string text) override;
  bool TakesFocus() const override { return true; }
  void Draw(INativeCanvas& canvas, bool hasFocus, bool isPressed) override;
  void OnPress(int x, int y, const INativeFont& font) override;
  // In wrapping fields Return begins a new line, in others it does nothing.
  bool OnKey(const SNativeKey& key, const INativeFont& font) override;

  // How many characters stand before the caret.
  std::size_t GetCaret() const { return myCaret; }

 private:
  using Lines = std::vector<STextLine>;

  SBox TextBox() const { return GetBox().Inside(3); }
  Lines SplitLines(const INativeFont& font) const;
  std::size_t LineOfCaret(const Lines& lines) const;
  // The place in the line that is nearest to `x` pixels behind the first character shown.
  std::size_t PlaceInLine(const Lines& lines, std::size_t line, int x,
                          const INativeFont& font) const;
  void Insert(const std::string& text);
  void Erase(std::size_t place);
  void MoveCaret(ENativeKey key, const INativeFont& font);
  void ScrollToCaret(const INativeFont& font);
  void DrawCaret(INativeCanvas& canvas, const Lines& lines) const;

  std::size_t myCaret = 0;
  std::size_t myFirstChar = 0;  // the first one shown of a field of one line
  std::size_t myFirstLine = 0;  // the first one shown of a wrapping field
};

}  // namespace vask::platform
