#include "platform/nativeform.h"

#include "platform/editcontrol.h"

#include <gtest/gtest.h>

#include <map>
#include <sstream>

namespace vask::platform {
namespace {

// A picture of letters, in rows that end with "/": "." is the face, "," a field, "=" selected, "_"
// the colour of text, "+" light, "-" shadow, "#" dark, "~" not drawn; a full stop is ":". A
// character is in the last of its cells; "i" has one.
struct CLetters : INativeCanvas {
  int CharWidth(char character) const override { return character == 'i' ? 1 : charWidth; }
  int LineHeight() const override { return lineHeight; }
  void FillBox(const SBox& box, ENativeColor color) override {
    for (int i = 0; i < box.width * box.height; ++i) {
      At(box.x + i % box.width, box.y + i / box.width) = ".,_+-#="[static_cast<int>(color)];
    }
  }
  void Text(int x, int y, std::string_view text, const SBox& clip) override {
    EXPECT_LE(TextWidth(text), clip.width) << "no more than can be seen";
    for (const char character : text) {
      x += CharWidth(character);
      if (clip.Contains(x - 1, y)) {
        At(x - 1, y) = character == '.' ? ':' : character;
      }
    }
  }
  char& At(int x, int y) {
    return x < 0 || y < 0 ? outside : cells.at(static_cast<std::size_t>(10 * y + x));
  }
  int charWidth = 1;
  int lineHeight = 1;
  char outside = '~';
  std::string cells = "~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/~~~~~~~~~/";
};

// Presses the keys of these names, those that begin with "shift-" with the shift key held;
// "nothing" is a key that types nothing, and other words are what is typed. The pointer is pressed
// within the second character or far to the right, and dragged there or to above and left of the
// field.
void Use(CEditControl& edit, const std::string& words, const INativeFont& font) {
  using enum ENativeKey;
  const std::map<std::string, ENativeKey> keys = {
      {"left", kLeft},           {"right", kRight},   {"up", kUp},
      {"down", kDown},           {"home", kHome},     {"end", kEnd},
      {"backspace", kBackspace}, {"delete", kDelete}, {"return", kReturn},
      {"all", kSelectAll}};
  std::istringstream stream(words);
  for (std::string word; stream >> word;) {
    const bool isShifted = word.starts_with("shift-");
    word.erase(0, isShifted ? 6 : 0);
    if (word.starts_with("press")) {
      edit.OnPress(word == "press" ? 3 : 999, 1, font);
    } else if (word.starts_with("drag")) {
      const bool isFar = word == "drag-far";
      edit.OnDrag(isFar ? 999 : -3, isFar ? 1 : -3, font);
    } else if (keys.contains(word)) {
      edit.OnKey({keys.at(word), "", isShifted}, font);
    } else {
      edit.OnKey({kText, word == "nothing" ? "" : word, isShifted}, font);
    }
  }
}

// What two fields of that text show after these words in the upper row of each line, with their
// border on the right. They are three characters wide: one of one line, and one of two lines, in
// which the text wraps.
std::string Shown(const std::string& text, const std::string& words) {
  std::string drawn;
  for (const bool wraps : {false, true}) {
    CEditControl edit("what was\nthere before", {-3, -3, 12, wraps ? 10 : 8}, 0,
                      wraps ? 0 : kAutoScroll);
    CLetters canvas;
    canvas.charWidth = canvas.lineHeight = 2;
    edit.OnPress(999, 999, canvas);
    edit.SetText(text);
    Use(edit, words, canvas);
    edit.Draw(canvas, true, false);
    drawn += canvas.cells.substr(0, 10) + (wraps ? canvas.cells.substr(20, 10) : "");
  }
  return drawn;
}

TEST(NativeEdit, ShowsWhatIsTypedAroundItsCaret) {
  const std::string longText = std::string(100'000, 'a') + "b";
  // At the ends of the text there is nowhere to go, and nothing to erase.
  EXPECT_EQ(Shown("", "left backspace x return y"), ",x,y_,,,+/,x,,,,,,+/,y_,,,,,+/");
  EXPECT_EQ(Shown("ab", "end x right backspace delete backspace delete"),
            ",a_,,,,,+/,a_,,,,,+/,,,,,,,,+/");
  EXPECT_EQ(Shown("abcd", "left backspace"), "_a,b,c,,+/_a,b,c,,+/,d,,,,,,+/");
  // Lines wrap after a blank, or where they are full; a blank or a line end may hang over.
  EXPECT_EQ(Shown("ab cd", "down"), "_a,b, ,,+/,a,b, ,,+/_c,d,,,,+/");
  EXPECT_EQ(Shown("abc d", "end"), ", ,d_,,,+/,a,b,c_,+/,d,,,,,,+/");
  EXPECT_EQ(Shown("abc ", "end"), ",c, _,,,+/,a,b,c_,+/,,,,,,,,+/");
  EXPECT_EQ(Shown("iiiiiii", ""), "_iiiii,,+/_iiiii,,+/i,,,,,,,+/");
  EXPECT_EQ(Shown("a\n\nb\n", "down down down"), "_a,\n,\n,,+/,b,,,,,,+/_,,,,,,,+/");
  // Between lines the caret keeps its distance from the left.
  EXPECT_EQ(Shown("abcdef", "down end up x"), ",f,x_,,,+/,a,b,x,,+/_c,d,e,,+/");
  EXPECT_EQ(Shown("abcdefghi", "down down home up up"), "_a,b,c,,+/_a,b,c,,+/,d,e,f,,+/");
  // The pointer's place counts from what is scrolled into the field.
  EXPECT_EQ(Shown("abcdefg", "end press x"), ",f,x_g,,+/,a,x_b,,+/,c,d,e,,+/");
  EXPECT_EQ(Shown(longText, "end press-far"), ",a,b_,,,+/,a,a_a,,+/,a,a,a,,+/");
}

TEST(NativeEdit, SelectsWithTheShiftKeyAndThePointer) {
  // What is selected grows and shrinks at the caret, is erased and typed over as one, and left at
  // the end to which the key goes.
  EXPECT_EQ(Shown("abc", "right shift-right shift-right shift-nothing"),
            "=b=c_,,,+/,a=b=c_,+/,,,,,,,,+/");
  EXPECT_EQ(Shown("abcd", "all"), "=c=d_,,,+/=a=b=c,,+/=d_,,,,,+/");
  EXPECT_EQ(Shown("abc", "right right right shift-left shift-left delete"),
            ",a_,,,,,+/,a_,,,,,+/,,,,,,,,+/");
  EXPECT_EQ(Shown("abc", "shift-right end"), ",b,c_,,,+/,a,b,c_,+/,,,,,,,,+/");
  EXPECT_EQ(Shown("abc", "right right right shift-left shift-left right x"),
            ",c,x_,,,+/,a,b,c,,+/,x_,,,,,+/");
  // A drag beyond the field scrolls it.
  EXPECT_EQ(Shown("abcd", "press drag-far x"), ",a,x_,,,+/,a,x_c,,+/,d,,,,,,+/");
  EXPECT_EQ(Shown("abc", "end press drag-back x home"), "_x,c,,,,+/_x,b,c,,+/,,,,,,,,+/");
  EXPECT_EQ(Shown("abcdefgh", "end press drag-back drag-back x"), ",x_h,,,,+/,x_b,c,,+/,d,e,f,,+/");
  EXPECT_EQ(Shown("abcdefgh", "down down press drag-back drag-back x"),
            ",x_b,c,,+/,x_e,f,,+/,g,h,,,,+/");
}

struct SHow {
  int wheel = 0;
  int lineHeight = 1;
  bool isPressed = false;
};
constexpr const char* kLines = "a\nb\nc\nd\ne\nf\ng\nh\ni";

// The seven rows of a control, after another text in it was scrolled to its end.
std::string Drawn(EControlKind kind, const std::string& text, const SHow& how = {}) {
  CLetters canvas;
  CNativeForm form;
  canvas.lineHeight = how.lineHeight;
  form.Add(kind, kLines, {0, 0, 9, 7}, 1, kClientEdge);
  form.Wheel(1, 1, 9, canvas);
  form.GetControl(0).SetText(text);
  form.Wheel(1, 1, how.wheel, canvas);
  form.Press(1, how.isPressed ? 1 : 9, canvas);
  form.Draw(canvas);
  return canvas.cells;
}

TEST(NativeForm, DrawsItsControls) {
  using enum EControlKind;
  CLetters focus;
  focus.DottedEdge({1, 1, 6, 5});
  EXPECT_EQ(focus.cells, "~~~~~~~~~/~_~_~__~~/~~~~~~~~~/~_~~~~_~~/~~~~~~~~~/~_~_~__~~/~~~~~~~~~/");
  EXPECT_EQ(Drawn(kButton, "ok"),
            "#########/#++++++-#/#+.....-#/#+.ok..-#/#+.....-#/#-------#/#########/");
  EXPECT_EQ(Drawn(kButton, "ok", {.isPressed = true}),
            "#########/#------.#/#-......#/#-._._..#/#-..ok..#/#.......#/#########/");
  // A text that fits stays, a longer one scrolls line by line and ends with dots, which is cut to
  // whole lines.
  EXPECT_EQ(Drawn(kStatic, "a b", {.wheel = 9}),
            "--------+/-~~~~~~~+/-~a b~~~+/-~~~~~~~+/-~~~~~~~+/-~~~~~~~+/+++++++++/");
  EXPECT_EQ(Drawn(kStatic, kLines, {.wheel = 1}),
            "--------+/-~~~~~~~+/-~b~~~~~+/-~c~~~~~+/-~:::~~~+/-~~~~~~~+/+++++++++/");
  EXPECT_EQ(Drawn(kStatic, kLines, {.wheel = 9}),
            "--------+/-~~~~~~~+/-~g~~~~~+/-~h~~~~~+/-~i~~~~~+/-~~~~~~~+/+++++++++/");
  EXPECT_EQ(Drawn(kStatic, "a b", {.lineHeight = 2}),
            "--------+/-~~~~~~~+/-~~a b~~+/-~~~~~~~+/-~~~~~~~+/-~~~~~~~+/+++++++++/");
  EXPECT_EQ(Drawn(kEdit, "a"),
            "--------+/-######.+/-#,,,,,.+/-#,a,,,.+/-#,,,,,.+/-.......+/+++++++++/");
}

TEST(NativeForm, ClicksWhereTheButtonIsPressedAndReleased) {
  const CLetters font;
  CNativeForm form;
  form.Add(EControlKind::kStatic, "text", {0, 0, 50, 20}, 1, 0);
  form.Add(EControlKind::kEdit, "iii", {0, 10, 50, 20}, 2, 0);
  form.Add(EControlKind::kButton, "a", {0, 40, 50, 20}, 3, 0);
  form.Add(EControlKind::kButton, "b", {0, 70, 50, 20}, 4, 0);
  const auto clicked = [&](int pressedAt, int releasedAt) {
    form.Press(4, pressedAt, font);
    form.MovePointer(4, releasedAt, font);
    return form.Release().value_or(0);
  };
  EXPECT_EQ(clicked(45, 45), 3);
  EXPECT_EQ(clicked(45, 75), 0) << "on the other button";
  EXPECT_EQ(clicked(5, 5), 0) << "on the text";
  EXPECT_EQ(clicked(35, 45), 0) << "between them";
  EXPECT_EQ(clicked(15, 45), 0) << "on the edit, in front of the text";
  form.Key({ENativeKey::kReturn, ""}, font);
  EXPECT_EQ(form.GetControl(1).GetText(), "i\nii") << "the caret is where it was pressed";
  // The focus goes round from the edit to both buttons and back to it.
  std::string ids;
  for (const bool isBackwards : {false, false, false, false, false, true, true, true, true}) {
    form.FocusNext(isBackwards);
    ids += std::to_string(form.Key({ENativeKey::kReturn, ""}, font).value_or(0));
  }
  EXPECT_EQ(ids, "340343043");
}

}  // namespace
}  // namespace vask::platform
