#include "utils/timer/globalapptimer.h"

#include "events/eventbridge.h"

namespace vask {

CGlobalAppTimer::CGlobalAppTimer()
    : myFocusHandler(std::make_unique<CGlobalAppFocusHandler>(*this)) {
  CEventBridge::GetSingleton().AddWindowListener(myFocusHandler.get());
}

CGlobalAppTimer::~CGlobalAppTimer() = default;

void CGlobalAppTimer::CGlobalAppFocusHandler::OnResize(int, int) {}

void CGlobalAppTimer::CGlobalAppFocusHandler::OnFocus(bool gained) {
  myHasFocus = gained;
  if (gained) {
    myTimer.Resume();
  } else {
    myTimer.Pause();
  }
}

}  // namespace vask
