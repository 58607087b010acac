#include "events/eventbridge.h"
#include "support/fakeclock.h"
#include "support/paths.h"
#include "support/testpicture.h"
#include "ui/buttonwidget.h"
#include "ui/desktopwidget.h"
#include "ui/gfxhandler.h"
#include "ui/mouse.h"
#include "ui/receivers.h"
#include "ui/textinputwidget.h"
#include "ui/widgetfactory.h"
#include "ui/windowwidget.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <functional>

namespace vask::ui {
namespace {

using Rect = CRect<int>;
using Event = IEvent;

CDesktopWidget* Desktop() { return CDesktopWidget::GetSingletonPtr(); }

// What the signals have called.
struct CEar : css::CSignalTarget {
  void Click() { heard += "click ", hook ? hook() : void(); }
  void DoubleClick() { heard += "double "; }
  void Drag(int dx, int dy) { heard += std::to_string(dx) + "," + std::to_string(dy) + " "; }
  std::string heard;
  std::function<void()> hook;
};

struct CCursor : IMouse {
  SPoint GetPosition() const override { return {}; }
  SPoint GetMovement() const override { return {}; }
  std::int32_t GetButtons() const override { return 0; }
  void HideCursor() override {}
  void ShowCursor() override {}
  void ChangeCursor(std::int32_t type) override { asked += std::to_string(type) + " "; }
  std::string asked;
};

class WidgetKinds : public testing::Test {
 protected:
  WidgetKinds() {
    std::filesystem::create_directory_symlink(test::SourcePath("runtime/data"), "data");
    CEventBridge::GetSingletonPtr()->Resize(800, 600);
  }
  ~WidgetKinds() override {
    CDesktopWidget::DeleteSingleton();
    std::filesystem::remove("data");
  }
  static CTextInputWidget* NewInput(const Rect& rect) {
    return new CTextInputWidget(Desktop(), rect, false, "",
                                GetGfxHandler().Load("data/gui/text_input.xml"),
                                "data/gui/text_cursor.gif");
  }

  void Mouse(int type, int x, int y, int buttons = 1) {
    CMouseEvent event(type, SPoint{x, y}, buttons, &myCursor);
    Desktop()->HandleEvent(event);
  }
  void Click(int x, int y) {
    Mouse(Event::kMouseButtonDown, x, y), Mouse(Event::kMouseButtonUp, x, y);
  }
  // From one point to the other with the left button held. Of two moves to one place the second
  // changes nothing.
  void Drag(SPoint from, SPoint to) {
    myClock.Advance(1000);  // no double click
    Mouse(Event::kMouseButtonDown, from.x, from.y);
    Mouse(Event::kMouseMove, to.x, to.y), Mouse(Event::kMouseMove, to.x, to.y);
    Mouse(Event::kMouseButtonUp, to.x, to.y);
  }
  void Key(int type, int key, char character = 0) {
    CKeyboardEvent event(type, key, static_cast<std::uint8_t>(character));
    Desktop()->HandleEvent(event);
  }

  test::CFakeClock myClock;
  test::CTestScreen myScreen{80, 60};
  CCursor myCursor;
};

TEST_F(WidgetKinds, FactoryMakesEachClass) {
  const CWidgetFactory& factory = CWidgetFactory::GetSingleton();
  for (const std::string name : {"CWidget", "CButtonWidget", "CTextInputWidget", "CWindowWidget"}) {
    const std::unique_ptr<CWidget> made(factory.Create(name));
    const CWidget& widget = *made;
    EXPECT_TRUE(std::string(typeid(widget).name()).ends_with(name + "E")) << name;
  }
  EXPECT_EQ(factory.Create("CDesktopWidget"), Desktop());
}

TEST_F(WidgetKinds, HeldKeysRepeatAfterTheDelay) {
  CTextInputWidget input;
  SetFocus(&input);
  const auto update = [&](unsigned later) {
    myClock.Advance(later);
    Desktop()->UpdateKeyRepeat();
    const std::string typed = input.GetText();
    input.SetText("");
    return typed;
  };
  Key(Event::kKeyDown, 97, 'a'), Key(Event::kKeyDown, 323, 'z');
  for (const int unrepeated : {-1, 0, 324}) {
    Key(Event::kKeyDown, unrepeated, '!');
  }
  EXPECT_EQ(update(650), "az!!!");
  EXPECT_EQ(update(25), "") << "too soon after the last check";
  EXPECT_EQ(update(1), "az");
  Key(Event::kKeyUp, 97, 'a'), Key(Event::kKeyUp, 97, 'a');
  EXPECT_EQ(update(26), "z") << "two releases count as one";
  Key(Event::kKeyDown, 323, 'y');
  EXPECT_EQ(update(650), "y") << "begins anew";
  EXPECT_EQ(update(26), "y");
  EXPECT_EQ(update(0U - 1000U), "") << "the clock is set back";
  myClock.Advance(1000);
  CEar ear;
  input.GetKeySignal(CTextInputWidget::kReturn).Connect(&ear, &CEar::Click);
  Key(Event::kKeyDown, 13);
  ear.hook = [] { CDesktopWidget::DeleteSingleton(); };
  EXPECT_EQ(update(651), "") << "the desktop goes, before the turn of the other key";
  EXPECT_TRUE(!GetFocus() && (Desktop()->GetRect() == Rect{0, 0, 800, 600}));
}

TEST_F(WidgetKinds, ButtonSignals) {
  // The button stands at (10, 10) and does not move.
  // clang-format off
  const std::tuple<unsigned, int, int, int, const char*> steps[] = {
      {0, 4, 15, 1, ""}, {0, 5, 15, 1, "click "},                // first of a pair
      {299, 4, 15, 1, "double "}, {0, 5, 15, 1, "click "},
      {0, 4, 15, 1, ""}, {0, 5, 15, 1, "click "},
      {300, 4, 15, 1, ""}, {0, 5, 15, 1, "click "},              // too late, and no new pair
      {0, 4, 15, 1, ""}, {0, 5, 15, 1, "click "},
      {0, 4, 15, 2, ""}, {0, 5, 15, 2, ""}, {0, 5, 15, 1, ""},   // another button; no press
      {999, 4, 15, 1, ""}, {0, 1, 18, 1, "3,0 3,0 "}, {0, 1, 90, 1, "75,0 "},  // captured, routed
      {0, 4, 90, 2, ""}, {0, 5, 90, 1, ""}, {0, 1, 15, 0, ""},   // left while pressed: no click
  };
  // clang-format on
  CEar ear;
  auto* button = new CButtonWidget(Desktop(), {10, 10, 20, 20}, true, "", {});
  button->GetClickSignal().Connect(&ear, &CEar::Click);
  button->GetDoubleClickSignal().Connect(&ear, &CEar::DoubleClick);
  button->GetDragSignal().Connect(&ear, &CEar::Drag);
  int number = 0;
  for (const auto& [later, type, x, buttons, heard] : steps) {
    myClock.Advance(later);
    Mouse(type, x, 15, buttons);
    EXPECT_EQ(std::exchange(ear.heard, ""), heard) << "step " << number++;
  }
  ear.hook = [] { CDesktopWidget::DeleteSingleton(); };  // and the button with it
  Click(15, 15);
  EXPECT_EQ(ear.heard, "click ");
  EXPECT_TRUE(Desktop()->GetChildren().empty());
}

TEST_F(WidgetKinds, TextInputEditsAtItsCursor) {
  // Key, character, text and cursor after it.
  // clang-format off
  const std::tuple<int, char, const char*, int> steps[] = {
      {8, 8, "", 0}, {127, 127, "", 0}, {276, 0, "", 0}, {97, 'a', "a", 1}, {99, 'c', "ac", 2},
      {275, 0, "ac", 2}, {276, 0, "ac", 1}, {98, 'b', "abc", 2}, {127, 0, "ab", 2}, {127, 0, "ab", 2},
      {278, 0, "ab", 0}, {8, 0, "ab", 0}, {0, '\x01', "\x01" "ab", 1}, {279, 0, "\x01" "ab", 3},
      {8, 0, "\x01" "a", 2}, {13, 13, "\x01" "a", 2}, {9, 9, "\x01" "a", 2}, {304, 0, "\x01" "a", 2},
      {271, 13, "\x01" "a\r", 3},
  };
  // clang-format on
  CTextInputWidget* input = NewInput({100, 40, 50, 20});
  CEar ear;
  input->GetKeySignal(CTextInputWidget::kReturn).Connect(&ear, &CEar::Click);
  Click(100, 40);
  ASSERT_EQ(GetFocus(), input);
  for (const auto& [key, character, text, cursor] : steps) {
    Key(Event::kKeyDown, key, character), Key(Event::kKeyUp, key, character);
    EXPECT_EQ(input->GetText() + std::to_string(input->GetCursor()), text + std::to_string(cursor));
  }
  EXPECT_EQ(ear.heard, "click ") << "the return key";

  input->SetText("wide text");  // characters of six pixels
  // The point and the cursor after it, which a point on the left does not move.
  for (const auto& [x, cursor] :
       {std::pair{149, 8}, {100, 8}, {99, 8}, {101, 0}, {112, 2}, {117, 2}}) {
    input->SetCursorToPoint({x, 0});
    EXPECT_EQ(input->GetCursor(), cursor) << x;
  }
  input->SetText("w");
  EXPECT_EQ(input->GetCursor(), 1);
  Click(500, 500);
  EXPECT_TRUE(!GetFocus() && !GetKeyboardReceiver()) << "the empty desktop takes the focus away";
  EXPECT_EQ(myCursor.asked, "3 1 ");
}

TEST_F(WidgetKinds, TextCursorIsAnOwnSpriteWithinTheWidget) {
  CTextInputWidget* input = NewInput({10, 10, 20, 20});
  const auto isSeenAt = [&](int x, int y) {
    CScreenLayer::GetSingletonPtr()->DrawFrame();
    return myScreen.At(x, y) == 0xFFF3D6;
  };
  EXPECT_FALSE(isSeenAt(10, 10));
  Click(11, 11);
  EXPECT_TRUE(isSeenAt(10, 10) && isSeenAt(11, 25));
  input->InsertCharacter(' '), input->MoveBy(5, 5);
  EXPECT_TRUE(isSeenAt(21, 15)) << "it follows moves";
  input->SetText("    "), input->CursorEnd();
  EXPECT_FALSE(isSeenAt(39, 15)) << "outside the widget";
  Click(70, 50), input->CursorHome();
  EXPECT_FALSE(isSeenAt(15, 15)) << "without the focus";
}

TEST_F(WidgetKinds, WindowBorders) {
  // From where to where the pointer drags, the cursor over the border, the rectangle after it. The
  // window is (100, 100, 200, 150) each time.
  // clang-format off
  const std::tuple<SPoint, SPoint, std::string, Rect> cases[] = {
      {{100, 170}, {90, 999}, "6 ", {90, 100, 210, 150}},
      {{299, 170}, {309, 0}, "6 ", {100, 100, 210, 150}},
      {{200, 101}, {0, 90}, "7 ", {100, 90, 200, 160}},
      {{200, 249}, {0, 260}, "7 ", {100, 100, 200, 161}},
      {{281, 249}, {291, 259}, "8 ", {100, 100, 210, 160}},    // within 20 of the corner
      {{279, 249}, {300, 259}, "7 ", {100, 100, 200, 160}},    // not within
      {{101, 119}, {91, 95}, "8 ", {91, 95, 209, 155}},
      {{298, 119}, {303, 95}, "9 ", {100, 95, 205, 155}},
      {{119, 249}, {90, 259}, "9 ", {90, 100, 210, 160}},
      {{299, 249}, {50, 50}, "8 ", {100, 100, 100, 50}},       // not below the minimum
      {{100, 100}, {290, 240}, "8 ", {200, 200, 100, 50}},     // the other edges stay
      {{299, 170}, {899, 170}, "6 ", {0, 100, 800, 150}},      // fitted into the desktop
      {{285, 249}, {799, 249}, "8 ", {86, 100, 714, 150}},     // and no further with each event
      {{150, 150}, {160, 160}, "", {100, 100, 200, 150}},      // no border
  };
  // clang-format on
  for (const auto& [grab, to, cursor, after] : cases) {
    CWindowWidget window(Desktop(), {100, 100, 200, 150}, false, "", {});
    SCOPED_TRACE(std::to_string(grab.x) + " " + std::to_string(grab.y));
    Mouse(Event::kMouseMove, grab.x, grab.y, 0);
    EXPECT_EQ(std::exchange(myCursor.asked, ""), cursor);
    Drag(grab, to);
    const Rect& rect = window.GetRect();
    EXPECT_TRUE(rect == after) << rect.x << " " << rect.y << " " << rect.w << " " << rect.h;
    Mouse(Event::kMouseMove, 700, 500, 0), Mouse(Event::kMouseMove, to.x, to.y, 0);
    EXPECT_TRUE(window.GetRect() == after) << "released";
    Mouse(Event::kMouseMove, 700, 599, 0);
    EXPECT_EQ(myCursor.asked.ends_with("1 "), !cursor.empty()) << myCursor.asked;
    myCursor.asked.clear();
  }
}

TEST_F(WidgetKinds, WindowButtons) {
  CWindowWidget window(Desktop(), {100, 100, 200, 150}, false, "", {});
  CWindowWidget other(Desktop(), {150, 150, 200, 150}, false, "", {});
  Drag({160, 110}, {150, 115});
  EXPECT_TRUE((window.GetRect() == Rect{90, 105, 200, 150}));
  EXPECT_EQ(Desktop()->GetChildren().front(), &window) << "raised by the press";
  Drag({150, 115}, {790, 115});
  EXPECT_TRUE((window.GetRect() == Rect{600, 105, 200, 150})) << "stops at the edge";
  Click(760, 115);  // maximise
  EXPECT_TRUE((window.GetRect() == Rect{0, 0, 800, 600}) && window.IsMaximised());
  Mouse(Event::kMouseMove, 400, 599, 0);
  Drag({799, 300}, {500, 300});
  EXPECT_EQ(myCursor.asked, "") << "no borders now";
  Desktop()->Resize(1024, 768);
  EXPECT_TRUE((window.GetClientArea()->GetRect() == Rect{2, 22, 1020, 744})) << "follows";
  myClock.Advance(1000);
  Click(300, 10), Click(300, 10);
  EXPECT_TRUE((window.GetRect() == Rect{600, 105, 200, 150})) << "restored by a double click";
  EXPECT_FALSE(window.IsClosed());
  Click(780, 115);
  EXPECT_TRUE(window.IsClosed());
  EXPECT_TRUE((Desktop()->FitChildRect({-5, 700, 1100, 900}) == Rect{-76, -132, 1100, 900}));
}

}  // namespace
}  // namespace vask::ui
