#pragma once

#include "designpatterns/singleton.h"
#include "events/windowlistener.h"
#include "utils/timer/timer.h"

#include <memory>

namespace vask {

// Counts on the global clock while the window has the focus. Timers built on it stop while the user
// is away.
class CGlobalAppTimer : public CSingleton<CGlobalAppTimer>, public CTimer {
 public:
  class CGlobalAppFocusHandler : public IWindowListener {
   public:
    explicit CGlobalAppFocusHandler(CTimer& timer) : myTimer(timer) {}
    void OnResize(int width, int height) override;
    void OnFocus(bool gained) override;

   private:
    CTimer& myTimer;
    bool myHasFocus = true;
  };

  CGlobalAppTimer();
  ~CGlobalAppTimer() override;
  using CTimer::operator=;

 private:
  std::unique_ptr<CGlobalAppFocusHandler> myFocusHandler;
};

}  // namespace vask
