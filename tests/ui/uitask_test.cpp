#include "ui/uitask.h"

#include "events/eventbridge.h"
#include "input/keyboard.h"
#include "support/tasks.h"
#include "ui/desktopwidget.h"
#include "ui/mouse.h"
#include "ui/receivers.h"
#include "ui/textinputwidget.h"

#include <gtest/gtest.h>

namespace vask {
namespace {

using ui::CDesktopWidget;

CEventBridge& Bridge() { return *CEventBridge::GetSingletonPtr(); }

struct SBinding : IKeyEvent {
  bool Trigger(int) override { return ++fired > 0; }
  int fired = 0;
};

class CMouseSpy : public ui::CWidget {
 public:
  CMouseSpy()
      : CWidget(CDesktopWidget::GetSingletonPtr(), {0, 0, 800, 600}, false, "", CSpritePtr()) {}
  void OnMouseEvent(ui::CMouseEvent& event) override { last = event; }
  ui::CMouseEvent last{0, {}, 0, nullptr};
};

class UiTask : public testing::Test {
 protected:
  UiTask() {
    Bridge().Resize(800, 600);
    myTask.Start();
  }
  ~UiTask() override { myTask.Exit(); }
  static void Click(int x, int y) {
    Bridge().MouseMove(x, y, 0, 0);
    Bridge().MouseButtonDown(1);
    Bridge().MouseButtonUp(1);
  }
  static void Type(char key) {
    Bridge().KeyDown(key, static_cast<unsigned char>(key));
    Bridge().KeyUp(key, 0);
    CKeyboard::GetSingletonPtr()->Update();
  }
  static ui::CTextInputWidget* NewInput() {
    return new ui::CTextInputWidget(CDesktopWidget::GetSingletonPtr(), {10, 10, 400, 20}, false, "",
                                    CSpritePtr(), "");
  }

  CUiTask myTask;
};

TEST_F(UiTask, MouseEventsCarryTheButtonsThatAreHeld) {
  auto* spy = new CMouseSpy;
  const auto expect = [spy](int buttons, int held) {
    EXPECT_EQ(spy->last.GetButtons(), buttons);
    EXPECT_EQ(spy->last.GetMouse()->GetButtons(), held);
  };
  Bridge().MouseMove(100, 50, 0, 0);
  Bridge().MouseButtonDown(1);
  expect(1, 1);
  Bridge().MouseButtonDown(4);
  expect(4, 5);
  Bridge().MouseMove(130, 52, 30, 2);
  expect(5, 5);
  EXPECT_EQ(spy->last.GetPosition(), (ui::SPoint{130, 52}));
  EXPECT_EQ(spy->last.GetMouse()->GetMovement(), (ui::SPoint{-30, -2})) << "the way back";
  Bridge().MouseButtonUp(1);
  expect(1, 4);
}

TEST_F(UiTask, KeysTypeWithTheFocusAndFireTheirBindingsWithout) {
  const CSmartPtr<IKeyEvent> event(new SBinding);
  CKeyboard::GetSingletonPtr()->BindKey('p', event, 10);
  const int& fired = static_cast<SBinding&>(*event).fired;
  auto* input = NewInput();
  Type('p');
  EXPECT_EQ(fired, 1);
  Click(20, 20);
  Type('p');
  EXPECT_EQ(fired, 1);
  Click(500, 500);
  Type('p');
  EXPECT_EQ(fired, 2);
  EXPECT_EQ(input->GetText(), "p");
}

TEST_F(UiTask, NothingReachesWidgetsFromTheExitToTheNextStart) {
  NewInput();
  Click(20, 20);
  ASSERT_TRUE(myTask.StopsKey());
  myTask.Exit();
  Click(20, 20);
  myTask.Update();
  Bridge().Resize(640, 480);
  EXPECT_FALSE(myTask.StopsKey());
  EXPECT_EQ(CDesktopWidget::PeekSingletonPtr(), nullptr);

  test::RunScript("starttask( ui, ui, 70 )");
  EXPECT_EQ(CDesktopWidget::GetSingletonPtr()->GetRect(), (CRect<int>{0, 0, 640, 480}));
  auto* input = NewInput();
  Click(20, 20);
  Type('q');
  EXPECT_EQ(input->GetText(), "q");
  test::RunScript("stoptask( ui )");
}

}  // namespace
}  // namespace vask
