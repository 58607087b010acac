#include "game/demowatch.h"

#include "input/mouse.h"
#include "kernel/applicationfactory.h"
#include "ui/desktopwidget.h"
#include "utils/timer/globalapptimer.h"

namespace brumble {
namespace {

int ourDemoAfter = 0;  // seconds; 0: never
const vask::CConsoleVariableRegistrar theVariableRegistrar("game_demo_after", ourDemoAfter);

bool IsConsoleOpen() {
  const auto* const desktop = vask::ui::CDesktopWidget::PeekSingletonPtr();
  return desktop != nullptr && !desktop->GetChildren().empty();
}

}  // namespace

CDemoWatch::CDemoWatch() : myClock(vask::CGlobalAppTimer::GetSingletonPtr()) {
  vask::CMouse::GetSingletonPtr()->AddDragged(this);
  vask::CKeyboard::GetSingletonPtr()->AddInterceptor(this);
}

// As an object of the mouse and as an interceptor it leaves by itself.
CDemoWatch::~CDemoWatch() = default;

bool CDemoWatch::IsDue() {
  if (IsConsoleOpen()) {
    myClock.Reset();
  }
  return ourDemoAfter > 0 && myClock.GetSeconds() >= static_cast<float>(ourDemoAfter);
}

void CDemoWatch::Begin() {
  myIsPlaying = true;
  myWasTouched = false;
}

void CDemoWatch::End() {
  myIsPlaying = false;
  myClock.Reset();
}

void CDemoWatch::Touch() {
  myWasTouched = true;
  myClock.Reset();
}

void CDemoWatch::OnMouseMove(int, int) { Touch(); }

void CDemoWatch::OnMouseButtonDown(int) { Touch(); }

bool CDemoWatch::TakesPress(int) {
  Touch();
  return myIsPlaying;
}

}  // namespace brumble
