#pragma once

#include "events/eventbridge.h"
#include "input/buttons.h"
#include "support/eventrecorder.h"
#include "support/fakeclock.h"
#include "support/keys.h"
#include "support/tasks.h"
#include "support/testpicture.h"
#include "ui/desktopwidget.h"
#include "ui/uitask.h"

#include <gtest/gtest.h>

#include <utility>

namespace vask::ui {

using Rect = CRect<int>;

inline CEventBridge& Bridge() { return *CEventBridge::GetSingletonPtr(); }
inline CDesktopWidget* Desktop() { return CDesktopWidget::GetSingletonPtr(); }

// A desktop of 800 by 600 that the UI task feeds with what comes over the event bridge.
struct UiTest : testing::Test {
  UiTest() {
    Bridge().Resize(800, 600);
    myTask.Start();
  }
  ~UiTest() override { myTask.Exit(); }

  static void Move(SPoint to) { Bridge().MouseMove(to.x, to.y, 0, 0); }
  static void Press(SPoint at, int button = kLeftButton) {
    Move(at);
    Bridge().MouseButtonDown(button);
  }
  static void Release(SPoint at, int button = kLeftButton) {
    Move(at);
    Bridge().MouseButtonUp(button);
  }
  static void Click(SPoint at) {
    Press(at);
    Bridge().MouseButtonUp(kLeftButton);
  }
  // The cursor that a widget has asked for since the last call; empty for none.
  std::string Cursor() { return std::exchange(myPointer.last, ""); }

  test::CFakeClock myClock;
  test::CTestScreen myScreen{200, 60};
  test::CNotingHardware myPointer;
  CUiTask myTask;
};

}  // namespace vask::ui
