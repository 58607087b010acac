#include "platform/nativewindow.h"

#include "platform/editcontrol.h"

#include <gtest/gtest.h>

// Last: its macros would spoil the other headers.
#include <X11/Xlib.h>

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

// clang-format off
TEST(NativeEdit, ShowsWhatIsTypedAroundItsCaret) {
  // A text and keys: "<>^v{}#!~$" from left to select all, "_" types nothing, "+" holds the shift key from there
  // on, "-" no more; "1" to "9" press the pointer there, 10 apart, "*" far behind; ")" drags it far behind, "(" to
  // above and left of the field. Then what fields show that are three characters wide: one line, and two lines
  // that wrap.
  const struct { std::string text, keys, single, wrapping; } kCases[] = {
      {"", "", "/|0,0", "/|0,0"},
      {"", "x~y", "xy/|20,0", "x/y/|10,10"},
      {"ab", "}x>#!#!", "a/|10,0", "a/|10,0"},
      {"ab", ">!<<x!", "x/|10,0", "x/|10,0"},
      {"abcd", "", "abc/|0,0", "abc/d/|0,0"},
      {"ab cd", "v", "ab /|0,0", "ab /cd/|0,10"},
      {"abc d", "}", " d/|20,0", "abc/d/|30,0"},
      {"abc ", "}", "c /|20,0", "abc//|30,0"},
      {"iiiiiii", "", "iiiiii/|0,0", "iiiiii/i/|0,0"},
      {"a\n\nb\n", "vvv", "a\n\n/|0,0", "b//|0,10"},
      {"abcdef", "}", "ef/|20,0", "abc/def/|20,0"},
      {"abcdef", "v}^x", "fx/|20,0", "abx/cde/|0,10"},
      {"abcdefghi", "vv{^^", "abc/|0,0", "abc/def/|0,0"},
      {"abcd", "1", "abc/|10,0", "abc/d/|10,0"},
      {"abcdefg", "}1x", "fxg/|20,0", "axb/cde/|20,0"},
      {std::string(100'000, 'a') + "b", "}*", "ab/|20,0", "aaa/aaa/|20,0"},
      {"abc", ">+>>_", "[0-20]bc/|20,0", "[10-30]abc/|30,0"},
      {"abcd", "$", "[0-20]cd/|20,0", "[0-30]abc/[0-10]d/|10,10"},
      {"abcd", "$x", "x/|10,0", "x/|10,0"},
      {"abcd", "$#", "/|0,0", "/|0,0"},
      {"abc", ">>>+<<-!", "a/|10,0", "a/|10,0"},
      {"abc", "+>>-<x", "xab/|10,0", "xab/c/|10,0"},
      {"abc", "+>-}", "bc/|20,0", "abc/|30,0"},
      {"abc", ">>>+<<->x", "cx/|20,0", "abc/x/|10,10"},
      {"abcd", "1)x", "ax/|20,0", "axc/d/|20,0"},
      {"abcdefgh", "}1((x", "xh/|10,0", "xbc/def/|10,0"},
      {"abcdefgh", "vv1((x", "xbc/|10,0", "xef/gh/|10,0"}};
  constexpr std::string_view kKeys = "<>^v{}#!~$";
  for (const auto& [text, keys, single, wrapping] : kCases) {
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
      EXPECT_EQ(canvas.drawn, wraps ? wrapping : single) << text.substr(0, 9) << " " << keys;
    }
  }
}
// clang-format on

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

int OnError(Display*, XErrorEvent*) { return 41; }
int OnLoss(Display*) { return 42; }

TEST(NativeWindow, LeavesTheHandlersOfOtherConnectionsInPlace) {
  XSetErrorHandler(&OnError);
  XSetIOErrorHandler(&OnLoss);
  {
    const CNativeWindow window({});
    const auto onError = XSetErrorHandler(nullptr);
    const auto onLoss = XSetIOErrorHandler(nullptr);
    EXPECT_NE(onError, &OnError);
    auto* const other = reinterpret_cast<Display*>(this);
    EXPECT_EQ(onError(other, nullptr) + onLoss(other), 83);
  }
  EXPECT_EQ(XSetErrorHandler(nullptr), &OnError);
  EXPECT_EQ(XSetIOErrorHandler(nullptr), &OnLoss);
}

}  // namespace
}  // namespace vask::platform
