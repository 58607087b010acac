#include "platform/nativeform.h"

#include "platform/editcontrol.h"

#include <gtest/gtest.h>

namespace vask::platform {
namespace {

// Characters are 10 wide, but "i" 5, and lines 10 high. Keeps the texts, carets and selections that
// are drawn.
struct CCanvas : INativeCanvas {
  int CharWidth(char character) const override { return character == 'i' ? 5 : 10; }
  int LineHeight() const override { return 10; }
  void FillBox(const SBox& box, ENativeColor color) override {
    const std::string left = std::to_string(box.x);
    if (color == ENativeColor::kText) {
      drawn += "|" + left + "," + std::to_string(box.y);
    } else if (color == ENativeColor::kSelection) {
      drawn += "[" + left + "-" + std::to_string(box.x + box.width) + "]";
    }
  }
  void Text(int, int, std::string_view text, const SBox&) override {
    drawn += std::string(text) + "/";
  }
  std::string drawn;
};

TEST(NativeEdit, ShowsWhatIsTypedAroundItsCaret) {
  // A text and keys: "<>^v{}#!~$" from left to select all, "_" types nothing, "+" holds the shift
  // key from there on, "-" no more; "1" to "9" press the pointer there, 10 apart, "*" far behind;
  // ")" drags it far behind, "(" to above and left of the field. Then what fields show that are
  // three characters wide: one line, and two lines that wrap.
  const struct {
    std::string text, keys, oneLine, wrapped;
  } cases[] = {
      {.text = "", .keys = "", .oneLine = "/|0,0", .wrapped = "/|0,0"},
      {.text = "", .keys = "x~y", .oneLine = "xy/|20,0", .wrapped = "x/y/|10,10"},
      {.text = "ab", .keys = "}x>#!#!", .oneLine = "a/|10,0", .wrapped = "a/|10,0"},
      {.text = "ab", .keys = ">!<<x!", .oneLine = "x/|10,0", .wrapped = "x/|10,0"},
      {.text = "abcd", .keys = "", .oneLine = "abc/|0,0", .wrapped = "abc/d/|0,0"},
      {.text = "ab cd", .keys = "v", .oneLine = "ab /|0,0", .wrapped = "ab /cd/|0,10"},
      {.text = "abc d", .keys = "}", .oneLine = " d/|20,0", .wrapped = "abc/d/|30,0"},
      {.text = "abc ", .keys = "}", .oneLine = "c /|20,0", .wrapped = "abc//|30,0"},
      {.text = "iiiiiii", .keys = "", .oneLine = "iiiiii/|0,0", .wrapped = "iiiiii/i/|0,0"},
      {.text = "a\n\nb\n", .keys = "vvv", .oneLine = "a\n\n/|0,0", .wrapped = "b//|0,10"},
      {.text = "abcdef", .keys = "}", .oneLine = "ef/|20,0", .wrapped = "abc/def/|20,0"},
      {.text = "abcdef", .keys = "v}^x", .oneLine = "fx/|20,0", .wrapped = "abx/cde/|0,10"},
      {.text = "abcdefghi", .keys = "vv{^^", .oneLine = "abc/|0,0", .wrapped = "abc/def/|0,0"},
      {.text = "abcd", .keys = "1", .oneLine = "abc/|10,0", .wrapped = "abc/d/|10,0"},
      {.text = "abcdefg", .keys = "}1x", .oneLine = "fxg/|20,0", .wrapped = "axb/cde/|20,0"},
      {.text = std::string(100'000, 'a') + "b",
       .keys = "}*",
       .oneLine = "ab/|20,0",
       .wrapped = "aaa/aaa/|20,0"},
      {.text = "abc", .keys = ">+>>_", .oneLine = "[0-20]bc/|20,0", .wrapped = "[10-30]abc/|30,0"},
      {.text = "abcd",
       .keys = "$",
       .oneLine = "[0-20]cd/|20,0",
       .wrapped = "[0-30]abc/[0-10]d/|10,10"},
      {.text = "abcd", .keys = "$x", .oneLine = "x/|10,0", .wrapped = "x/|10,0"},
      {.text = "abcd", .keys = "$#", .oneLine = "/|0,0", .wrapped = "/|0,0"},
      {.text = "abc", .keys = ">>>+<<-!", .oneLine = "a/|10,0", .wrapped = "a/|10,0"},
      {.text = "abc", .keys = "+>>-<x", .oneLine = "xab/|10,0", .wrapped = "xab/c/|10,0"},
      {.text = "abc", .keys = "+>-}", .oneLine = "bc/|20,0", .wrapped = "abc/|30,0"},
      {.text = "abc", .keys = ">>>+<<->x", .oneLine = "cx/|20,0", .wrapped = "abc/x/|10,10"},
      {.text = "abcd", .keys = "1)x", .oneLine = "ax/|20,0", .wrapped = "axc/d/|20,0"},
      {.text = "abcdefgh", .keys = "}1((x", .oneLine = "xh/|10,0", .wrapped = "xbc/def/|10,0"},
      {.text = "abcdefgh", .keys = "vv1((x", .oneLine = "xbc/|10,0", .wrapped = "xef/gh/|10,0"},
  };
  constexpr std::string_view kKeys = "<>^v{}#!~$";
  for (const auto& [text, keys, oneLine, wrapped] : cases) {
    for (const bool wraps : {false, true}) {
      CEditControl edit(text, {-3, -3, 36, wraps ? 26 : 16}, 0, wraps ? 0 : kAutoScroll);
      CCanvas canvas;
      bool isShiftHeld = false;
      for (const char key : keys) {
        const std::size_t name = kKeys.find(key) + 1;  // 0 for a letter: kText
        if (key == '+' || key == '-') {
          isShiftHeld = key == '+';
        } else if (key == '(') {
          edit.OnDrag(-9, -9, canvas);
        } else if (key == ')') {
          edit.OnDrag(999, 5, canvas);
        } else if (key == '*' || (key >= '0' && key <= '9')) {
          edit.OnPress(key == '*' ? 999 : 10 * (key - '0') + 4, 5, canvas);
        } else {
          const std::string typed = name == 0 && key != '_' ? std::string(1, key) : "";
          edit.OnKey({static_cast<ENativeKey>(name), typed, isShiftHeld}, canvas);
        }
      }
      edit.Draw(canvas, true, false);
      EXPECT_EQ(canvas.drawn, wraps ? wrapped : oneLine) << text.substr(0, 9) << " " << keys;
    }
  }
}

// A picture of letters: a character is one cell wide and high; "." is the face, "," a field, "_"
// the colour of text, "+" light, "-" shadow, "#" dark; a full stop is ":".
struct CLetters : INativeCanvas {
  int CharWidth(char) const override { return 1; }
  int LineHeight() const override { return 1; }
  void FillBox(const SBox& box, ENativeColor color) override {
    for (int i = 0; i < box.width * box.height; ++i) {
      At(box.x + i % box.width, box.y + i / box.width) = ".,_+-#="[static_cast<int>(color)];
    }
  }
  void Text(int x, int y, std::string_view text, const SBox& clip) override {
    for (std::size_t i = 0; i < text.size() && clip.Contains(x, y); ++i, ++x) {
      At(x, y) = text[i] == '.' ? ':' : text[i];
    }
  }
  char& At(int x, int y) { return cells.at(static_cast<std::size_t>(10 * y + x)); }
  std::string cells = "........./........./........./........./........./........./........./";
};

TEST(NativeForm, DrawsItsControls) {
  const std::string lines = "a\nb\nc\nd\ne\nf\ng\nh\ni";
  const struct {
    EControlKind kind;
    std::string text;
    int wheel;
    bool isPressed;
    std::string picture;  // seven rows
  } cases[] = {
      {EControlKind::kButton, "ok", 0, false,
       "#########/#++++++-#/#+.....-#/#+.ok..-#/#+.....-#/#-------#/#########/"},
      {EControlKind::kButton, "ok", 0, true,
       "#########/#------.#/#-......#/#-._._..#/#-..ok..#/#.......#/#########/"},
      {EControlKind::kStatic, "a b", 0, false,
       "--------+/-.......+/-.a b...+/-.......+/-.......+/-.......+/+++++++++/"},
      {EControlKind::kStatic, lines, 1, false,
       "--------+/-.......+/-.b.....+/-.c.....+/-.:::...+/-.......+/+++++++++/"},
      {EControlKind::kStatic, lines, 9, false,
       "--------+/-.......+/-.g.....+/-.h.....+/-.i.....+/-.......+/+++++++++/"},
      {EControlKind::kEdit, "a", 0, false,
       "--------+/-######.+/-#,,,,,.+/-#,a,,,.+/-#,,,,,.+/-.......+/+++++++++/"},
  };
  for (const auto& c : cases) {
    CLetters canvas;
    CNativeForm form;
    form.Add(c.kind, c.text, {0, 0, 9, 7}, 1, kClientEdge);
    form.Wheel(1, 1, c.wheel, canvas);
    form.Press(1, c.isPressed ? 1 : 9, canvas);
    form.Draw(canvas);
    EXPECT_EQ(canvas.cells, c.picture) << c.text << " " << c.wheel;
  }
}

TEST(NativeForm, ClicksWhereTheButtonIsPressedAndReleased) {
  const CCanvas font;
  CNativeForm form;
  form.Add(EControlKind::kStatic, "text", {0, 0, 50, 20}, 1, 0);
  form.Add(EControlKind::kEdit, "", {0, 10, 50, 20}, 2, 0);
  form.Add(EControlKind::kButton, "a", {0, 40, 50, 20}, 3, 0);
  form.Add(EControlKind::kButton, "b", {0, 70, 50, 20}, 4, 0);
  // Pressed at, released at, and the id that is clicked. The edit is in front of the static.
  const int clicks[][3] = {{45, 45, 3}, {45, 75, 0}, {5, 5, 0}, {35, 45, 0}, {15, 45, 0}};
  for (const auto& [down, up, id] : clicks) {
    form.Press(10, down, font);
    form.MovePointer(10, up, font);
    EXPECT_EQ(form.Release().value_or(0), id) << down << " " << up;
  }
  EXPECT_FALSE(form.Key({ENativeKey::kReturn, ""}, font));
  EXPECT_EQ(form.GetControl(1).GetText(), "\n");
}

}  // namespace
}  // namespace vask::platform
