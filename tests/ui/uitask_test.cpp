#include "ui/uitask.h"

#include "events/eventbridge.h"
#include "input/keyboard.h"
#include "support/paths.h"
#include "ui/desktopwidget.h"
#include "ui/gfxhandler.h"
#include "ui/mouse.h"
#include "ui/receivers.h"
#include "ui/textinputwidget.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace vask {
namespace {

using ui::CDesktopWidget;

constexpr int kBoundKey = 'p';
constexpr int kFreeKey = 'q';

CEventBridge& Bridge() { return *CEventBridge::GetSingletonPtr(); }

struct CBinding : IKeyEvent {
  bool Trigger(int) override { return ++fired > 0; }
  int fired = 0;
};

// Writes down what the mouse events carry.
struct CMouseLog : ui::CWidget {
  CMouseLog()
      : CWidget(CDesktopWidget::GetSingletonPtr(), {0, 0, 800, 600}, false, "", CSpritePtr()) {}
  void OnMouseEvent(ui::CMouseEvent& event) override {
    const auto number = [](int value) { return std::to_string(value) + " "; };
    const ui::SPoint back = event.GetMouse()->GetMovement();
    heard += number(event.GetType()) + number(event.GetPosition().x) + number(event.GetButtons()) +
             number(back.x) + number(event.GetMouse()->GetButtons()) + "| ";
  }
  std::string heard;
};

class UiTask : public testing::Test {
 protected:
  UiTask() {
    std::filesystem::create_directory_symlink(test::SourcePath("runtime/data"), "data");
    Bridge().Resize(800, 600);
    task.Start();
  }
  ~UiTask() override {
    task.Exit();
    std::filesystem::remove("data");
  }
  static void Click(int x, int y) {
    Bridge().MouseMove(x, y, 0, 0);
    Bridge().MouseButtonDown(1), Bridge().MouseButtonUp(1);
  }
  static void Type(int key) {
    Bridge().KeyDown(key, static_cast<unsigned char>(key));
    Bridge().KeyUp(key, 0);
    CKeyboard::GetSingletonPtr()->Update();
  }
  static ui::CTextInputWidget* NewInput() {
    return new ui::CTextInputWidget(CDesktopWidget::GetSingletonPtr(), {10, 10, 400, 20}, false, "",
                                    ui::GetGfxHandler().Load("data/gui/text_input.xml"),
                                    "data/gui/text_cursor.gif");
  }

  CUiTask task;
};

TEST_F(UiTask, MouseEventsCarryTheButtonsThatAreHeld) {
  auto* log = new CMouseLog;
  Bridge().MouseMove(100, 50, 0, 0);
  log->heard.clear();
  Bridge().MouseButtonDown(1), Bridge().MouseButtonDown(4);
  Bridge().MouseMove(130, 50, 30, 0);
  Bridge().MouseButtonUp(1);
  Bridge().MouseMove(131, 50, 1, 0);
  EXPECT_EQ(log->heard,
            "4 100 1 -100 1 | 4 100 4 -100 5 | 1 130 5 -30 5 | 5 130 1 -30 4 | 1 131 4 -1 4 | ");
}

TEST_F(UiTask, KeysTypeOrFireAsTheFocusIs) {
  const CSmartPtr<IKeyEvent> event(new CBinding);
  CKeyboard::GetSingletonPtr()->BindKey(kBoundKey, event, 10);
  const auto* binding = static_cast<CBinding*>(event.Get());
  auto* input = NewInput();

  Type(kBoundKey);
  EXPECT_EQ(input->GetText() + std::to_string(binding->fired), "1");
  Click(20, 20);
  Type(kBoundKey), Type(kFreeKey);
  EXPECT_EQ(input->GetText() + std::to_string(binding->fired), "pq1");
  Click(500, 500);
  Type(kBoundKey);
  EXPECT_EQ(input->GetText() + std::to_string(binding->fired), "pq2");
}

TEST_F(UiTask, AfterTheExitNothingReachesWidgets) {
  NewInput();
  Click(20, 20);
  ASSERT_TRUE(task.StopsKey());
  task.Exit();
  Click(20, 20), Type(kFreeKey), task.Update();
  Bridge().Resize(640, 480);
  EXPECT_FALSE(task.StopsKey());
  EXPECT_EQ(CDesktopWidget::PeekSingletonPtr(), nullptr);

  task.Start();
  EXPECT_EQ(CDesktopWidget::GetSingletonPtr()->GetRect(), (CRect<int>{0, 0, 640, 480}));
  auto* input = NewInput();
  Click(20, 20), Type(kFreeKey);
  EXPECT_EQ(input->GetText(), "q");
}

}  // namespace
}  // namespace vask
