// The program with a stopped clock and a task that takes orders from the standard input before each
// frame, so that a test can look at the window between frames. Orders, a line each:
//
//   run LINE      executes LINE in the application console
//   advance MS    moves the clock on
//   redraw        makes the next frame a full redraw
//   frame         lets one frame go by
//
// It prints "ok" when each is done; the end of the input quits.

#include "gfx/sprite/screenlayer.h"
#include "kernel/application.h"
#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"

#include <iostream>
#include <string>
#include <utility>

namespace {

vask::test::CFakeClock* theClock = nullptr;

class CStepper : public vask::CTask {
 public:
  void Update() override {
    if (std::exchange(myFrameHasRun, true)) {
      std::cout << "ok" << std::endl;
    }
    std::string order;
    while (std::getline(std::cin, order) && order != "frame") {
      Obey(order);
      std::cout << "ok" << std::endl;
    }
    if (!std::cin) {
      vask::CKernel::GetSingletonPtr()->Quit();
    }
  }

 private:
  static void Obey(const std::string& order) {
    if (order.starts_with("run ")) {
      vask::CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(order.substr(4), false);
    } else if (order.starts_with("advance ")) {
      theClock->Advance(static_cast<unsigned>(std::stoul(order.substr(8))));
    } else if (order == "redraw") {
      vask::CScreenLayer::GetSingletonPtr()->RefreshAll();
    }
  }

  bool myFrameHasRun = false;
};

const vask::CTaskTypeRegistrar<CStepper> theRegistrar("stepper");

}  // namespace

int main() {
  vask::test::CFakeClock clock;
  theClock = &clock;
  vask::CApplication application;
  return application.Run();
}
