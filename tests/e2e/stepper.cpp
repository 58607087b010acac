// The program with a stopped clock and a task that takes orders from the standard input before each
// frame, so that a test can look at the window between frames. Orders, a line each:
//
//   run LINE      executes LINE in the application console
//   advance MS    moves the clock on
//   redraw        makes the next frame a full redraw
//   frame         lets one frame go by
//   fail          fails an assertion that watches two variables: count, and limit, a constant
//   fail N        fails one with a message of the numbers 1 to N, one a line
//   unban         lifts the ban that "Ignore All" sets
//   tell          prints the variable and the window's state
//
// It prints "ok" when each is done; the end of the input quits.

#include "gfx/sprite/screenlayer.h"
#include "kernel/application.h"
#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "kernel/taskfactory.h"
#include "support/fakeclock.h"
#include "utils/assert.h"

#include <SDL.h>

#include <iostream>
#include <string>
#include <utility>

namespace {

vask::test::CFakeClock* theClock = nullptr;
int ourCount = 3;

// Printing it fails an assertion as well.
struct STouchy {
  int value;
};
std::ostream& operator<<(std::ostream& stream, const STouchy& touchy) {
  VASK_ASSERT(touchy.value < 0);
  return stream << touchy.value;
}

void Fail() {
  const STouchy limit{2};
  VASK_ASSERT_WATCHING(ourCount < limit.value, ourCount, limit);
}

void FailWith(int numbers) {
  std::string message;
  for (int i = 1; i <= numbers; ++i) {
    message += "number " + std::to_string(i) + "\n";
  }
  VASK_ASSERT(numbers < 0, message);
}

void Tell() {
  std::cout << "count " << ourCount << std::endl;
  if (const SDL_Surface* screen = SDL_GetVideoSurface()) {
    std::cout << screen->w << " x " << screen->h
              << ((screen->flags & SDL_FULLSCREEN) != 0 ? " full" : "")
              << (SDL_WM_GrabInput(SDL_GRAB_QUERY) == SDL_GRAB_ON ? " grabbed" : "") << std::endl;
  }
}

void Obey(const std::string& order, const std::string& rest) {
  if (order == "run") {
    vask::CApplicationFactory::GetSingletonPtr()->GetConsole()->Execute(rest.substr(1), false);
  } else if (order == "advance") {
    theClock->Advance(static_cast<unsigned>(std::stoul(rest)));
  } else if (order == "redraw") {
    vask::CScreenLayer::GetSingletonPtr()->RefreshAll();
  } else if (order == "fail" && rest.empty()) {
    Fail();
  } else if (order == "fail") {
    FailWith(std::stoi(rest));
  } else if (order == "unban") {
    vask::BanAsserts(false);
  } else if (order == "tell") {
    Tell();
  }
}

class CStepper : public vask::CTask {
 public:
  void Update() override {
    if (std::exchange(myFrameHasRun, true)) {
      std::cout << "ok" << std::endl;
    }
    std::string order, rest;
    while (std::cin >> order && std::getline(std::cin, rest) && order != "frame") {
      Obey(order, rest);
      std::cout << "ok" << std::endl;
    }
    if (!std::cin) {
      vask::CKernel::GetSingletonPtr()->Quit();
    }
  }

 private:
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
