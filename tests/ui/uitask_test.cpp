#include "ui/uitask.h"

#include "support/uitest.h"
#include "ui/mouse.h"
#include "ui/textinputwidget.h"
#include "ui/widgetfactory.h"

namespace vask::ui {
namespace {

struct CMouseSpy : CWidget {
  CMouseSpy() : CWidget(Desktop(), {0, 0, 800, 600}, false, "", {}) {}
  void OnMouseEvent(CMouseEvent& event) override { last = event; }
  CMouseEvent last{0, {}, 0, nullptr};
};

TEST_F(UiTest, MouseEventsCarryTheButtonsThatAreHeld) {
  auto* spy = new CMouseSpy;
  const auto expect = [spy](int buttons, int held) {
    EXPECT_EQ(spy->last.GetButtons(), buttons);
    EXPECT_EQ(spy->last.GetMouse()->GetButtons(), held);
  };
  Press({100, 50});
  expect(kLeftButton, kLeftButton);
  Bridge().MouseButtonDown(kRightButton);
  expect(kRightButton, kLeftButton | kRightButton);
  Move({130, 52});
  expect(kLeftButton | kRightButton, kLeftButton | kRightButton);
  EXPECT_EQ(spy->last.GetPosition(), (SPoint{130, 52}));
  EXPECT_EQ(spy->last.GetMouse()->GetMovement(), (SPoint{-30, -2})) << "the way back";
  Release({130, 52});
  expect(kLeftButton, kRightButton);
}

TEST_F(UiTest, NothingReachesWidgetsFromTheExitToTheNextStart) {
  new CTextInputWidget(Desktop(), {10, 10, 400, 20}, false, "", {}, "");
  Click({20, 20});
  EXPECT_TRUE(myTask.StopsKey());
  myTask.Exit();
  EXPECT_FALSE(myTask.StopsKey());
  Click({20, 20});
  Bridge().Resize(640, 480);
  EXPECT_EQ(CDesktopWidget::PeekSingletonPtr(), nullptr);
  test::RunScript(R"(
      starttask( ui, ui, 70 )
  )");
  EXPECT_EQ(Desktop()->GetRect(), (Rect{0, 0, 640, 480}));
  test::RunScript("stoptask( ui )");
}

TEST_F(UiTest, HeldKeysRepeatAfterTheDelay) {
  CTextInputWidget input;
  SetFocus(&input);
  const auto typedAfter = [&](unsigned milliseconds) {
    myClock.Advance(milliseconds);
    myTask.Update();
    const std::string typed = input.GetText();
    input.SetText("");
    return typed;
  };
  for (const int key : std::initializer_list<int>{'a', kKeyCount, -1, 0, kKeyCount + 1}) {
    Bridge().KeyDown(key, key == 'a' ? 'a' : 'z');
  }
  EXPECT_EQ(typedAfter(650), "azzzz") << "the presses themselves";
  EXPECT_EQ(typedAfter(25), "") << "too soon after the last check";
  EXPECT_EQ(typedAfter(1), "az");
  Bridge().KeyUp('a', 0);
  Bridge().KeyUp('a', 0);
  EXPECT_EQ(typedAfter(26), "z") << "a second release counts for no other key";
  Bridge().KeyDown(kKeyCount, 'y');
  EXPECT_EQ(typedAfter(650), "y") << "begins anew";
  EXPECT_EQ(typedAfter(0U - 1000U), "") << "the clock is set back";
}

TEST_F(UiTest, TheDesktopTellsWhereAWidgetTakesPresses) {
  auto* widget = new CWidget(Desktop(), {700, 10, 20, 20}, false, "", {});
  EXPECT_TRUE(CDesktopWidget::HasWidgetAt({700, 29}));
  EXPECT_FALSE(CDesktopWidget::HasWidgetAt({700, 30}));
  widget->SetIgnoreEvent(IEvent::kMouseButtonDown, true);
  EXPECT_FALSE(CDesktopWidget::HasWidgetAt({700, 10}));
}

TEST_F(UiTest, TheFactoryMakesEachClass) {
  for (const std::string name :
       {"CWidget", "CButtonWidget", "CTextInputWidget", "CWindowWidget", "CConsoleWidget"}) {
    const std::unique_ptr<CWidget> widget(CWidgetFactory::GetSingleton().Create(name));
    EXPECT_TRUE(std::string(typeid(*widget).name()).ends_with(name + "E")) << name;
  }
  EXPECT_EQ(CWidgetFactory::GetSingleton().Create("CDesktopWidget"), Desktop());
  EXPECT_EQ(CWidgetFactory::GetSingleton().Create("CNothing"), nullptr);
}

}  // namespace
}  // namespace vask::ui
