#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace vask::platform {

// A rectangle of a native window, in pixels.
struct SBox {
  int x = 0;
  int y = 0;
  int width = 0;
  int height = 0;

  bool Contains(int px, int py) const {
    return px >= x && py >= y && px < x + width && py < y + height;
  }
  // The box without a border of that many pixels; not below an empty one.
  SBox Inside(int border) const;
};

// What texts are measured by. A character is a byte, and a text as wide as its characters are.
class INativeFont {
 public:
  virtual ~INativeFont() = default;
  virtual int CharWidth(char character) const = 0;
  // From the top of one line to the top of the next, at least 1.
  virtual int LineHeight() const = 0;

  int TextWidth(std::string_view text) const;
};

enum class ENativeColor { kFace, kField, kText, kLight, kShadow, kDark, kSelection };

// What controls are drawn on.
class INativeCanvas : public INativeFont {
 public:
  virtual void FillBox(const SBox& box, ENativeColor color) = 0;
  // One line of text by its top left corner, cut off at the edges of `clip`.
  virtual void Text(int x, int y, std::string_view text, const SBox& clip) = 0;

  // A border of one pixel inside the box: left and top, right and bottom.
  void Edge(const SBox& box, ENativeColor topLeft, ENativeColor bottomRight);
  // A dotted border of one pixel.
  void DottedEdge(const SBox& box);
};

// A line of a text: its characters from `begin` to before `end`. The line feed is none of them.
struct STextLine {
  std::size_t begin = 0;
  std::size_t end = 0;
};

// Breaks the text at its line feeds and, where a line is wider than `width`, behind the last blank
// that leaves it narrow enough, or anywhere in a longer word. At least one line; each takes at
// least one character.
std::vector<STextLine> WrapText(std::string_view text, int width, const INativeFont& font);

// The height of the text's lines, broken at that width.
int TextHeight(std::string_view text, int width, const INativeFont& font);

// The styles of a control, to be added up.
inline constexpr unsigned kClientEdge = 1;  // a sunken border
inline constexpr unsigned kAutoScroll =
    2;  // an edit field of one line, which scrolls; else it wraps

enum class ENativeKey {
  kText,
  kLeft,
  kRight,
  kUp,
  kDown,
  kHome,
  kEnd,
  kBackspace,
  kDelete,
  kReturn,
  kSelectAll,
};

struct SNativeKey {
  ENativeKey key = ENativeKey::kText;
  std::string text;      // what the key types
  bool selects = false;  // the shift key is held
};

// A control of a native window.
class CNativeControl {
 public:
  CNativeControl(std::string text, const SBox& box, int id, unsigned style);
  virtual ~CNativeControl() = default;

  virtual void SetText(std::string text) { myText = std::move(text); }
  const std::string& GetText() const { return myText; }
  const SBox& GetBox() const { return myBox; }
  int GetId() const { return myId; }

  // Whether the control takes the keyboard, and whether a click on it counts.
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
  // A key came while the control had the keyboard. True when it clicks the control.
  virtual bool OnKey(const SNativeKey& key, const INativeFont& font);

 protected:
  bool HasStyle(unsigned style) const { return (myStyle & style) != 0; }

  std::string myText;

 private:
  SBox myBox;
  int myId;
  unsigned myStyle;
};

// A text that is only shown (class "static"). It wraps when the box has room for two lines; what
// has no room then is scrolled by the wheel, and dots in the last line tell that more comes.
class CStaticControl : public CNativeControl {
 public:
  using CNativeControl::CNativeControl;
  void SetText(std::string text) override;
  void Draw(INativeCanvas& canvas, bool hasFocus, bool isPressed) override;
  void OnWheel(int lines, const INativeFont& font) override;

 private:
  SBox TextBox() const { return GetBox().Inside(HasStyle(kClientEdge) ? 2 : 0); }
  std::size_t CountRows(const INativeFont& font) const;
  void DrawLines(INativeCanvas& canvas, std::size_t rows) const;

  std::size_t myFirstLine = 0;  // the first one shown
};

// A button with its label in the middle (class "button"). Return and the space key click it.
class CButtonControl : public CNativeControl {
 public:
  using CNativeControl::CNativeControl;
  bool TakesFocus() const override { return true; }
  bool IsButton() const override { return true; }
  void Draw(INativeCanvas& canvas, bool hasFocus, bool isPressed) override;
  bool OnKey(const SNativeKey& key, const INativeFont& font) override;
};

}  // namespace vask::platform
