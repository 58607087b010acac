#include "events/eventbridge.h"
#include "input/buttons.h"
#include "input/keynames.h"
#include "support/fakeclock.h"
#include "support/tasks.h"
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

#include <functional>

namespace vask::ui {
namespace {

using Rect = CRect<int>;
using Event = IEvent;

CDesktopWidget* Desktop() { return CDesktopWidget::GetSingletonPtr(); }

// Notes what the signals call.
class CEar : public css::CSignalTarget {
 public:
  void Click() {
    myNotes += "click ";
    if (onClick) {
      onClick();
    }
  }
  void DoubleClick() { myNotes += "double "; }
  void Drag(int dx, int dy) { myNotes += std::to_string(dx) + "," + std::to_string(dy) + " "; }
  std::string Notes() { return std::exchange(myNotes, ""); }
  std::function<void()> onClick;

 private:
  std::string myNotes;
};

// Notes the cursors that widgets want.
class CCursor : public IMouse {
 public:
  SPoint GetPosition() const override { return {}; }
  SPoint GetMovement() const override { return {}; }
  std::int32_t GetButtons() const override { return 0; }
  void HideCursor() override {}
  void ShowCursor() override {}
  void ChangeCursor(std::int32_t type) override { myTypes.push_back(type); }
  std::vector<int> Types() { return std::exchange(myTypes, {}); }

 private:
  std::vector<int> myTypes;
};

class WidgetKinds : public testing::Test {
 protected:
  WidgetKinds() { CEventBridge::GetSingletonPtr()->Resize(800, 600); }
  ~WidgetKinds() override { CDesktopWidget::DeleteSingleton(); }

  void Mouse(int type, SPoint at, int buttons = kLeftButton) {
    CMouseEvent event(type, at, buttons, &myCursor);
    Desktop()->HandleEvent(event);
  }
  void Move(SPoint to) { Mouse(Event::kMouseMove, to, 0); }
  void Press(SPoint at, int button = kLeftButton) { Mouse(Event::kMouseButtonDown, at, button); }
  void Release(SPoint at, int button = kLeftButton) { Mouse(Event::kMouseButtonUp, at, button); }
  void Click(SPoint at) {
    Press(at);
    Release(at);
  }
  void Drag(SPoint from, SPoint to) {
    myClock.Advance(1000);  // no double click
    Press(from);
    Move(to);
    Move(to);  // changes nothing
    Release(to);
  }
  static void Key(int type, int key, char character = 0) {
    CKeyboardEvent event(type, key, static_cast<std::uint8_t>(character));
    Desktop()->HandleEvent(event);
  }

  const test::CDataFolder myData;
  test::CFakeClock myClock;
  test::CTestScreen myScreen{80, 60};
  CCursor myCursor;
};

class CLamp : public CWidget {};
const CWidgetRegistrar<CLamp> theRegistrar("CLamp");

TEST_F(WidgetKinds, TheFactoryMakesEachClass) {
  CWidget* const made = CWidgetFactory::GetSingletonPtr()->Create("CButtonWidget");
  EXPECT_NE(dynamic_cast<CButtonWidget*>(made), nullptr);
  delete made;
  for (const std::string name :
       {"CWidget", "CTextInputWidget", "CWindowWidget", "CConsoleWidget", "CLamp"}) {
    const std::unique_ptr<CWidget> widget(CWidgetFactory::GetSingleton().Create(name));
    EXPECT_TRUE(std::string(typeid(*widget).name()).ends_with(name + "E")) << name;
  }
  EXPECT_EQ(CWidgetFactory::GetSingleton().Create("CDesktopWidget"), Desktop());
  EXPECT_EQ(CWidgetFactory::GetSingleton().Create("CNothing"), nullptr);
}

TEST_F(WidgetKinds, HeldKeysRepeatAfterTheDelay) {
  CTextInputWidget input;
  SetFocus(&input);
  const auto typedAfter = [&](unsigned milliseconds) {
    myClock.Advance(milliseconds);
    Desktop()->UpdateKeyRepeat();
    const std::string typed = input.GetText();
    input.SetText("");
    return typed;
  };
  constexpr int kLastKey = 323;
  Key(Event::kKeyDown, 'a', 'a');
  Key(Event::kKeyDown, kLastKey, 'z');
  for (const int unrepeated : {-1, 0, kLastKey + 1}) {
    Key(Event::kKeyDown, unrepeated, '!');
  }
  EXPECT_EQ(typedAfter(650), "az!!!") << "the presses themselves";
  EXPECT_EQ(typedAfter(25), "") << "too soon after the last check";
  EXPECT_EQ(typedAfter(1), "az");
  Key(Event::kKeyUp, 'a');
  Key(Event::kKeyUp, 'a');
  EXPECT_EQ(typedAfter(26), "z") << "a second release counts for no other key";
  Key(Event::kKeyDown, kLastKey, 'y');
  EXPECT_EQ(typedAfter(650), "y") << "begins anew";
  EXPECT_EQ(typedAfter(26), "y");
  EXPECT_EQ(typedAfter(0U - 1000U), "") << "the clock is set back";
}

TEST_F(WidgetKinds, AKeyMayEndTheDesktopBeforeTheTurnOfTheNextOne) {
  CEar ear;
  CTextInputWidget input;
  input.GetKeySignal(CTextInputWidget::kReturn).Connect(&ear, &CEar::Click);
  Key(Event::kKeyDown, 'a', 'a');
  Key(Event::kKeyDown, kReturnKey);
  SetFocus(&input);
  ear.onClick = [] { CDesktopWidget::DeleteSingleton(); };
  myClock.Advance(651);
  Desktop()->UpdateKeyRepeat();
  EXPECT_EQ(ear.Notes(), "click ");
  EXPECT_EQ(input.GetText(), "");
  EXPECT_EQ(GetFocus(), nullptr);
}

TEST_F(WidgetKinds, TheDesktopKeepsWidgetsOnIt) {
  Desktop()->SetRect({10, 20, 100, 80});
  EXPECT_EQ(Desktop()->FitChildRect({11, 21, 99, 79}), (Rect{11, 21, 99, 79}));
  EXPECT_EQ(Desktop()->FitChildRect({9, 19, 5, 6}), (Rect{10, 20, 5, 6}));
  EXPECT_EQ(Desktop()->FitChildRect({50, 50, 101, 82}), (Rect{9, 18, 101, 82})) << "too large";
}

TEST_F(WidgetKinds, TheDesktopTellsWhereAWidgetTakesPresses) {
  auto* widget = new CWidget(Desktop(), {10, 10, 20, 20}, false, "", {});
  EXPECT_TRUE(CDesktopWidget::HasWidgetAt({10, 29}));
  EXPECT_FALSE(CDesktopWidget::HasWidgetAt({10, 30}));
  widget->SetIgnoreEvent(Event::kMouseButtonDown, true);
  EXPECT_FALSE(CDesktopWidget::HasWidgetAt({10, 10}));
  CDesktopWidget::DeleteSingleton();
  EXPECT_FALSE(CDesktopWidget::HasWidgetAt({10, 10}));
}

class WidgetKindsButton : public WidgetKinds {
 protected:
  WidgetKindsButton() {
    button->GetClickSignal().Connect(&ear, &CEar::Click);
    button->GetDoubleClickSignal().Connect(&ear, &CEar::DoubleClick);
    button->GetDragSignal().Connect(&ear, &CEar::Drag);
  }
  std::string ClickAfter(unsigned milliseconds) {
    myClock.Advance(milliseconds);
    Click({15, 15});
    return ear.Notes();
  }
  CEar ear;
  CButtonWidget* button = new CButtonWidget(Desktop(), {10, 10, 20, 20}, true, "", {});
};

TEST_F(WidgetKindsButton, TwoPressesWithin300MillisecondsAreADoubleClick) {
  EXPECT_EQ(ClickAfter(0), "click ");
  EXPECT_EQ(ClickAfter(299), "double click ");
  EXPECT_EQ(ClickAfter(0), "click ") << "the first of a new pair";
  EXPECT_EQ(ClickAfter(300), "click ") << "too late, and no first";
  EXPECT_EQ(ClickAfter(0), "click ");
  EXPECT_EQ(ClickAfter(0), "double click ");
  button->SetDoubleClickEnabled(false);
  EXPECT_EQ(ClickAfter(0) + ClickAfter(0), "click click ");
}

TEST_F(WidgetKindsButton, AClickIsAPressAndAReleaseOnIt) {
  button->SetDoubleClickEnabled(false);
  Press({15, 15}, kRightButton);
  Release({15, 15}, kRightButton);
  Release({15, 15});
  EXPECT_EQ(ear.Notes(), "") << "another button; no press";
  button->SetDraggable(false);
  Press({15, 15});
  Move({70, 70});
  Move({15, 15});
  Release({15, 15});
  EXPECT_EQ(ear.Notes(), "") << "left in between";
  ear.onClick = [] { CDesktopWidget::DeleteSingleton(); };  // and the button with it
  Click({15, 15});
  EXPECT_EQ(ear.Notes(), "click ");
  EXPECT_TRUE(Desktop()->GetChildren().empty());
}

TEST_F(WidgetKindsButton, ADragTellsTheWayToThePointer) {
  Press({15, 15});
  Move({90, 12});
  EXPECT_EQ(ear.Notes(), "75,-3 ") << "also outside of it; it does not move itself";
  Press({90, 12}, kRightButton);
  Release({90, 12}, kRightButton);
  Move({91, 12});
  EXPECT_EQ(ear.Notes(), "76,-3 ");
  button->SetDraggable(false);
  Move({92, 12});
  EXPECT_EQ(ear.Notes(), "");
}

class CForm : public css::CSignalTarget {
 public:
  explicit CForm(CWidget* area) {
    auto* input = new CTextInputWidget(area, {0, 0, 400, 20}, true, "line",
                                       GetGfxHandler().Load("data/gui/text_input.xml"),
                                       "data/gui/text_cursor.gif");
    input->GetKeySignal(CTextInputWidget::kReturn).Connect(this, &CForm::Send);
    line = input;
  }
  void Send() { ++sent; }
  int sent = 0;
  CTextInputWidget* line;
};

class WidgetKindsInput : public WidgetKinds {
 protected:
  WidgetKindsInput() { input->MoveTo(10, 10); }
  // What is in the line after a key, with "|" for the cursor.
  std::string After(int key, char character = 0) {
    Key(Event::kKeyDown, key, character);
    Key(Event::kKeyUp, key, character);
    std::string text = input->GetText();
    return text.insert(static_cast<std::size_t>(input->GetCursor()), "|");
  }
  bool HasCursorAt(int x, int y) {
    CScreenLayer::GetSingletonPtr()->DrawFrame();
    return myScreen.At(x, y) == 0xFFF3D6 && myScreen.At(x - 1, y) != 0xFFF3D6;
  }
  CForm form{Desktop()};
  CTextInputWidget* input = form.line;
};

TEST_F(WidgetKindsInput, KeysEditAtTheCursor) {
  Click({10, 10});
  for (const int key : {kBackspaceKey, kDeleteKey, kLeftKey, kRightKey, kReturnKey, kTabKey}) {
    EXPECT_EQ(After(key, 'x'), "|") << key;
  }
  EXPECT_EQ(form.sent, 1);
  EXPECT_EQ(After('a', 'a'), "a|");
  EXPECT_EQ(After('c', 'c'), "ac|");
  EXPECT_EQ(After(kLeftKey), "a|c");
  EXPECT_EQ(After('b', 'b'), "ab|c");
  EXPECT_EQ(After(kRightKey), "abc|");
  EXPECT_EQ(After(kBackspaceKey), "ab|");
  EXPECT_EQ(After(kHomeKey), "|ab");
  EXPECT_EQ(After(kDeleteKey), "|b");
  EXPECT_EQ(After(kEndKey), "b|");
}

TEST_F(WidgetKindsInput, TheCursorGoesToThePointAndStaysInTheText) {
  input->SetText("wide text");  // characters of six pixels
  const auto cursorAt = [&](int x) {
    input->SetCursorToPoint({10 + x, 10});
    return input->GetCursor();
  };
  EXPECT_EQ(cursorAt(11), 1);
  EXPECT_EQ(cursorAt(0), 1) << "not by a point on the left";
  EXPECT_EQ(cursorAt(1), 0);
  EXPECT_EQ(cursorAt(54), 9);
  input->SetText("wi");
  EXPECT_EQ(input->GetCursor(), 2);
}

TEST_F(WidgetKindsInput, TheCursorIsASpriteWithinTheWidget) {
  EXPECT_FALSE(HasCursorAt(10, 10));
  Click({11, 11});
  EXPECT_TRUE(HasCursorAt(10, 10));
  input->SetText("   ");
  input->CursorEnd();
  input->MoveBy(5, 5);
  EXPECT_TRUE(HasCursorAt(33, 15)) << "after three characters, and moved";
  input->SetText(" ");
  EXPECT_TRUE(HasCursorAt(21, 15)) << "after what is left of the text";
  input->Resize(6, 20);
  EXPECT_FALSE(HasCursorAt(21, 15)) << "outside the widget";
  input->CursorHome();
  EXPECT_TRUE(HasCursorAt(15, 15));
  Click({70, 50});
  EXPECT_FALSE(HasCursorAt(15, 15)) << "without the focus";
  EXPECT_EQ(GetFocus(), nullptr) << "the empty desktop takes it away";
  EXPECT_EQ(myCursor.Types(), (std::vector<int>{kCursorText, kCursorArrow}));
}

class WidgetKindsWindow : public WidgetKinds {
 protected:
  // The window's rectangle after a drag.
  Rect Dragged(SPoint from, SPoint to) {
    window.Resize(200, 150);
    window.MoveTo(100, 100);
    Drag(from, to);
    return window.GetRect();
  }
  // The cursor that it wants there; none when it leaves the arrow.
  int CursorAt(SPoint point) {
    CMouseEvent event(Event::kMouseMove, point, 0, &myCursor);
    window.OnMouseEvent(event);
    const std::vector<int> types = myCursor.Types();
    return types.empty() ? kCursorNone : types.back();
  }
  CWindowWidget window{Desktop(), {100, 100, 200, 150}, false, "", {}};
};

TEST_F(WidgetKindsWindow, BordersAreGrabbedWithinThreePixelsAndCornersWithinTwenty) {
  EXPECT_EQ(CursorAt({103, 170}), kCursorNone);
  EXPECT_EQ(CursorAt({102, 170}), kCursorResizeHorizontal);
  EXPECT_EQ(CursorAt({103, 170}), kCursorArrow) << "off the border again";
  EXPECT_EQ(CursorAt({297, 170}), kCursorResizeHorizontal);
  EXPECT_EQ(CursorAt({200, 102}), kCursorResizeVertical);
  EXPECT_EQ(CursorAt({200, 247}), kCursorResizeVertical);
  EXPECT_EQ(CursorAt({279, 249}), kCursorResizeVertical);
  EXPECT_EQ(CursorAt({280, 249}), kCursorResizeDiagonal1);
  EXPECT_EQ(CursorAt({101, 119}), kCursorResizeDiagonal1);
  EXPECT_EQ(CursorAt({101, 120}), kCursorResizeHorizontal);
  EXPECT_EQ(CursorAt({298, 119}), kCursorResizeDiagonal2);
  EXPECT_EQ(CursorAt({119, 249}), kCursorResizeDiagonal2);
  EXPECT_EQ(CursorAt({296, 246}), kCursorArrow);
  EXPECT_EQ(CursorAt({300, 170}), kCursorNone) << "outside";
}

TEST_F(WidgetKindsWindow, DragsOfBordersMoveTheEdgesThatAreGrabbed) {
  EXPECT_EQ(Dragged({100, 170}, {90, 999}), (Rect{90, 100, 210, 150}));
  EXPECT_EQ(Dragged({299, 170}, {309, 0}), (Rect{100, 100, 210, 150}));
  EXPECT_EQ(Dragged({200, 101}, {0, 90}), (Rect{100, 90, 200, 160}));
  EXPECT_EQ(Dragged({200, 249}, {0, 260}), (Rect{100, 100, 200, 161}));
  EXPECT_EQ(Dragged({101, 119}, {91, 95}), (Rect{91, 95, 209, 155}));
  EXPECT_EQ(Dragged({299, 249}, {50, 50}), (Rect{100, 100, 100, 50})) << "not below the minimum";
  EXPECT_EQ(Dragged({100, 100}, {290, 240}), (Rect{200, 200, 100, 50})) << "not pushed away";
  EXPECT_EQ(Dragged({299, 170}, {899, 170}), (Rect{0, 100, 800, 150})) << "onto the desktop";
  EXPECT_EQ(Dragged({100, 100}, {-30, -20}), (Rect{0, 0, 330, 270})) << "over the upper left";
  EXPECT_EQ(Dragged({285, 249}, {799, 249}), (Rect{86, 100, 714, 150})) << "once only";
  EXPECT_EQ(Dragged({150, 150}, {160, 160}), (Rect{100, 100, 200, 150})) << "no border";
}

TEST_F(WidgetKindsWindow, OnlyTheLeftButtonResizes) {
  Press({299, 170}, kRightButton);
  Move({309, 170});
  EXPECT_EQ(window.GetRect().w, 200);
  Press({299, 170});
  Release({299, 170}, kRightButton);
  Move({309, 170});
  EXPECT_EQ(window.GetRect().w, 210);
  Release({309, 170});
  Move({320, 170});
  EXPECT_EQ(window.GetRect().w, 210) << "released";
}

TEST_F(WidgetKindsWindow, ItsTitleBarMovesItOverTheDesktop) {
  CWindowWidget other(Desktop(), {150, 150, 200, 150}, false, "", {});
  EXPECT_EQ(Dragged({160, 110}, {150, 115}), (Rect{90, 105, 200, 150}));
  EXPECT_EQ(Desktop()->GetChildren().front(), &window) << "raised by the press";
  EXPECT_EQ(Dragged({160, 110}, {-500, -500}), (Rect{0, 0, 200, 150}));
  EXPECT_EQ(Dragged({160, 110}, {900, 900}), (Rect{600, 450, 200, 150}));
}

TEST_F(WidgetKindsWindow, IsMaximisedAndRestored) {
  Click({260, 110});
  EXPECT_TRUE(window.IsMaximised());
  EXPECT_EQ(window.GetRect(), (Rect{0, 0, 800, 600}));
  EXPECT_EQ(CursorAt({799, 300}), kCursorNone) << "no borders now";
  Desktop()->Resize(1024, 768);
  EXPECT_EQ(window.GetClientArea()->GetRect(), (Rect{2, 22, 1020, 744}));
  myClock.Advance(1000);
  Click({300, 10});
  Click({300, 10});
  EXPECT_EQ(window.GetRect(), (Rect{100, 100, 200, 150})) << "by a double click";
  EXPECT_EQ(CursorAt({299, 170}), kCursorResizeHorizontal);
  Desktop()->Resize(250, 768);
  EXPECT_EQ(window.GetRect(), (Rect{50, 100, 200, 150})) << "keeps its size";
  EXPECT_FALSE(window.IsClosed());
  Click({230, 110});
  EXPECT_TRUE(window.IsClosed());
}

}  // namespace
}  // namespace vask::ui
