#include "platform/nativeform.h"

#include "platform/editcontrol.h"

#include <gtest/gtest.h>

#include <cctype>

namespace vask::platform {
namespace {

constexpr int kTextX = 5, kTextY = 25;  // of the field below

// Characters are 10 wide, but "i" 5, and lines 10 high. Keeps the texts, carets and selections that
// are drawn.
struct CCanvas : INativeCanvas {
  int CharWidth(char character) const override { return character == 'i' ? 5 : 10; }
  int LineHeight() const override { return 10; }
  void FillBox(const SBox& box, ENativeColor color) override {
    const int left = box.x - kTextX;
    if (color == ENativeColor::kText) {
      drawn += "|" + std::to_string(left) + "," + std::to_string(box.y - kTextY);
    } else if (color == ENativeColor::kSelection) {
      drawn += "[" + std::to_string(left) + "-" + std::to_string(left + box.width) + "]";
    }
  }
  void Text(int, int, std::string_view text, const SBox&) override {
    drawn += std::string(text) + "/";
  }
  std::string drawn;
};

TEST(NativeEdit, ShowsWhatIsTypedAroundItsCaret) {
  // A text and keys: "<>^v{}#!~$" from left to select all, "_" types nothing, "+" holds the shift
  // key from there on, "-" no more; "1" to "9" press the pointer there, 10 apart, "*" far beyond;
  // ")" drags it far beyond, "(" to above and left of the field. Then what fields show that are
  // three characters wide: one line, and two lines that wrap.
  const std::string longText = std::string(100'000, 'a') + "b";
  const struct {
    std::string text, keys, one, two;
  } cases[] = {
      {.text = "", .keys = "<#x~y", .one = "xy/|20,0", .two = "x/y/|10,10"},
      {.text = "ab", .keys = "}x>#!#!", .one = "a/|10,0", .two = "a/|10,0"},
      {.text = "abcd", .keys = "<#", .one = "abc/|0,0", .two = "abc/d/|0,0"},
      {.text = "ab cd", .keys = "v", .one = "ab /|0,0", .two = "ab /cd/|0,10"},
      {.text = "abc d", .keys = "}", .one = " d/|20,0", .two = "abc/d/|30,0"},
      {.text = "abc ", .keys = "}", .one = "c /|20,0", .two = "abc//|30,0"},
      {.text = "iiiiiii", .keys = "", .one = "iiiiii/|0,0", .two = "iiiiii/i/|0,0"},
      {.text = "a\n\nb\n", .keys = "vvv", .one = "a\n\n/|0,0", .two = "b//|0,10"},
      {.text = "abcdef", .keys = "v}^x", .one = "fx/|20,0", .two = "abx/cde/|0,10"},
      {.text = "abcdefghi", .keys = "vv{^^", .one = "abc/|0,0", .two = "abc/def/|0,0"},
      {.text = "abcd", .keys = "1", .one = "abc/|10,0", .two = "abc/d/|10,0"},
      {.text = "abcdefg", .keys = "}1x", .one = "fxg/|20,0", .two = "axb/cde/|20,0"},
      {.text = longText, .keys = "}*", .one = "ab/|20,0", .two = "aaa/aaa/|20,0"},
      {.text = "abc", .keys = ">+>>_", .one = "[0-20]bc/|20,0", .two = "[10-30]abc/|30,0"},
      {.text = "abcd", .keys = "$", .one = "[0-20]cd/|20,0", .two = "[0-30]abc/[0-10]d/|10,10"},
      {.text = "abcd", .keys = "$#", .one = "/|0,0", .two = "/|0,0"},
      {.text = "abc", .keys = ">>#", .one = "ac/|10,0", .two = "ac/|10,0"},
      {.text = "abc", .keys = ">>>+<<-!", .one = "a/|10,0", .two = "a/|10,0"},
      {.text = "abc", .keys = "+>-}", .one = "bc/|20,0", .two = "abc/|30,0"},
      {.text = "abc", .keys = ">>>+<<->x", .one = "cx/|20,0", .two = "abc/x/|10,10"},
      {.text = "abcd", .keys = "1)x", .one = "ax/|20,0", .two = "axc/d/|20,0"},
      {.text = "abc", .keys = "}1(x{", .one = "xc/|0,0", .two = "xbc/|0,0"},
      {.text = "abcdefgh", .keys = "}1((x", .one = "xh/|10,0", .two = "xbc/def/|10,0"},
      {.text = "abcdefgh", .keys = "vv1((x", .one = "xbc/|10,0", .two = "xef/gh/|10,0"},
  };
  constexpr std::string_view kKeys = "<>^v{}#!~$";
  for (const auto& [text, keys, one, two] : cases) {
    for (const bool wraps : {false, true}) {
      CEditControl edit("what was\nthere before", {kTextX - 3, kTextY - 3, 36, wraps ? 26 : 16}, 0,
                        wraps ? 0 : kAutoScroll);
      CCanvas canvas;
      edit.OnPress(999, 999, canvas);
      edit.SetText(text);
      bool isShiftHeld = false;
      for (const char key : keys) {
        const std::size_t name = kKeys.find(key) + 1;  // 0 for a letter: kText
        if (key == '+' || key == '-') {
          isShiftHeld = key == '+';
        } else if (key == '(' || key == ')') {
          edit.OnDrag(key == '(' ? kTextX - 9 : 999, key == '(' ? kTextY - 9 : kTextY + 5, canvas);
        } else if (key == '*' || std::isdigit(key) != 0) {
          edit.OnPress(kTextX + (key == '*' ? 999 : 10 * (key - '0') + 4), kTextY + 5, canvas);
        } else {
          const std::string typed = name == 0 && key != '_' ? std::string(1, key) : "";
          edit.OnKey({static_cast<ENativeKey>(name), typed, isShiftHeld}, canvas);
        }
      }
      edit.Draw(canvas, true, false);
      EXPECT_EQ(canvas.drawn, wraps ? two : one) << text.substr(0, 9) << " " << keys;
    }
  }
}

// A picture of letters: a character is one cell wide and high; "." is the face, "," a field, "_"
// the colour of text, "+" light, "-" shadow, "#" dark, "~" not drawn; a full stop is ":".
struct CLetters : INativeCanvas {
  int CharWidth(char) const override { return 1; }
  int LineHeight() const override { return lineHeight; }
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
  int lineHeight = 1;
  std::string cells = "~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/";
};

TEST(NativeForm, DrawsItsControls) {
  CLetters dotted;
  dotted.DottedEdge({1, 1, 6, 5});
  EXPECT_EQ(dotted.cells, "~~~~~~~~~/~_~_~__~~/~~~~~~~~~/~_~~~~_~~/~~~~~~~~~/~_~_~__~~/~~~~~~~~~/");
  const std::string lines = "a\nb\nc\nd\ne\nf\ng\nh\ni";
  // Seven rows of a control that was scrolled to its end before it got its text.
  const auto draw = [&](EControlKind kind, const std::string& text, int wheel = 0,
                        int lineHeight = 1, bool isPressed = false) {
    CLetters canvas;
    CNativeForm form;
    canvas.lineHeight = lineHeight;
    form.Add(kind, lines, {0, 0, 9, 7}, 1, kClientEdge);
    form.Wheel(1, 1, 9, canvas);
    form.GetControl(0).SetText(text);
    form.Wheel(1, 1, wheel, canvas);
    form.Press(1, isPressed ? 1 : 9, canvas);
    form.Draw(canvas);
    return canvas.cells;
  };
  using enum EControlKind;
  EXPECT_EQ(draw(kButton, "ok"),
            "#########/#++++++-#/#+.....-#/#+.ok..-#/#+.....-#/#-------#/#########/");
  EXPECT_EQ(draw(kButton, "ok", 0, 1, true),
            "#########/#------.#/#-......#/#-._._..#/#-..ok..#/#.......#/#########/");
  EXPECT_EQ(draw(kStatic, "a b", 9),
            "--------+/-~~~~~~~+/-~a b~~~+/-~~~~~~~+/-~~~~~~~+/-~~~~~~~+/+++++++++/");
  EXPECT_EQ(draw(kStatic, lines, 1),
            "--------+/-~~~~~~~+/-~b~~~~~+/-~c~~~~~+/-~:::~~~+/-~~~~~~~+/+++++++++/");
  EXPECT_EQ(draw(kStatic, lines, 9),
            "--------+/-~~~~~~~+/-~g~~~~~+/-~h~~~~~+/-~i~~~~~+/-~~~~~~~+/+++++++++/");
  EXPECT_EQ(draw(kStatic, "a b", 0, 2),
            "--------+/-~~~~~~~+/-~~a b~~+/-~~~~~~~+/-~~~~~~~+/-~~~~~~~+/+++++++++/");
  EXPECT_EQ(draw(kEdit, "a"),
            "--------+/-######.+/-#,,,,,.+/-#,a,,,.+/-#,,,,,.+/-.......+/+++++++++/");
}

TEST(NativeForm, ClicksWhereTheButtonIsPressedAndReleased) {
  const CCanvas font;
  CNativeForm form;
  form.Add(EControlKind::kStatic, "text", {0, 0, 50, 20}, 1, 0);
  form.Add(EControlKind::kEdit, "iii", {0, 10, 50, 20}, 2, 0);
  form.Add(EControlKind::kButton, "a", {0, 40, 50, 20}, 3, 0);
  form.Add(EControlKind::kButton, "b", {0, 70, 50, 20}, 4, 0);
  // Pressed at, released at, and the id that is clicked. The edit is in front of the static.
  const int clicks[][3] = {{45, 45, 3}, {45, 75, 0}, {5, 5, 0}, {35, 45, 0}, {15, 45, 0}};
  for (const auto& [down, up, id] : clicks) {
    form.Press(10, down, font);
    form.MovePointer(10, up, font);
    EXPECT_EQ(form.Release().value_or(0), id) << down << " " << up;
  }
  form.Key({ENativeKey::kReturn, ""}, font);
  EXPECT_EQ(form.GetControl(1).GetText(), "i\nii") << "the caret is where it was pressed";
  // The focus goes round from the edit to both buttons and back to it.
  std::string clicked;
  for (const bool isBackwards : {false, false, false, false, false, true, true, true, true}) {
    form.FocusNext(isBackwards);
    clicked += std::to_string(form.Key({ENativeKey::kReturn, ""}, font).value_or(0));
  }
  EXPECT_EQ(clicked, "340343043");
}

}  // namespace
}  // namespace vask::platform
