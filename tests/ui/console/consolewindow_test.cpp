#include "ui/console/consoleinput.h"

#include "gfx/text/textsprite.h"
#include "support/testpicture.h"

#include <gtest/gtest.h>

namespace vask::test {

struct CListener : css::CSignalTarget {
  void Hear() { ++heard; }
  int heard = 0;
};

// Five characters of the system font and the cursor fit in.
TEST(ConsoleInput, ALongLineScrollsAndControlCharactersStayOut) {
  const CTestScreen screen(80, 60);
  const CSpritePtr sprite(new CTextSprite(LoadFont("system"), 32, 20));
  const auto& shown = dynamic_cast<const CTextSprite&>(*sprite);
  CConsoleInput input(nullptr, {100, 0, 32, 20}, false, "", sprite, "");
  CListener listener;
  input.GetKeySignal(CConsoleInput::kReturn).Connect(&listener, &CListener::Hear);
  const auto press = [&](int key, int character) {
    for (const int type : {ui::IEvent::kKeyDown, ui::IEvent::kKeyUp}) {
      ui::CKeyboardEvent event(type, key, static_cast<std::uint8_t>(character));
      input.OnKeyboardEvent(event);
    }
  };
  for (const char character : std::string("abcd`ef")) {
    press(character, character);
  }
  EXPECT_EQ(shown.GetText(), "cd`ef");
  constexpr int kKeypadEnter = 271, kHome = 278, kEnd = 279, kBackspace = 8, kEscape = 27;
  press(kEscape, 27);
  press('c', 3);
  press(0, 127);
  press(kKeypadEnter, 13);
  EXPECT_EQ(input.GetText(), "abcd`ef");
  EXPECT_EQ(listener.heard, 1);
  press(kHome, 0);
  EXPECT_EQ(shown.GetText(), "abcd`ef");
  press(kEnd, 0);
  press(kBackspace, 8);
  EXPECT_EQ(shown.GetText(), "bcd`e") << "no room is left behind the end";
  input.SetCursorToPoint({113, 0});
  EXPECT_EQ(input.GetCursor(), 3);
  input.Resize(100, 20);
  EXPECT_EQ(shown.GetText(), "abcd`e");
}

}  // namespace vask::test
