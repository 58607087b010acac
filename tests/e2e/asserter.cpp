// A task type "asserter" for the stepper. Its lines:
//
//   Fail        fails an assertion that watches two variables: count, and limit, a constant
//   FailWith N  fails one with a message of the numbers 1 to N, one a line
//   Unban       lifts the ban that "Ignore All" sets
//   Tell        prints the variable and the window's state

#include "events/eventbridge.h"
#include "kernel/taskfactory.h"
#include "utils/assert.h"

#include <SDL.h>

#include <iostream>
#include <string>

namespace {

// Printing it fails an assertion as well.
struct STouchy {
  int value;
};
std::ostream& operator<<(std::ostream& stream, const STouchy& touchy) {
  VASK_ASSERT(touchy.value < 0);
  return stream << touchy.value;
}

class CAsserter : public vask::CTask {
 public:
  CAsserter() { vask::CEventBridge::GetSingletonPtr()->AddResizeListener(this); }
  void Exit() override { vask::CEventBridge::GetSingletonPtr()->RemoveResizeListener(this); }
  void Update() override {}
  void OnResize(int, int) { ++myResizes; }

  bool ExecuteCommand(const std::string& line) override {
    const STouchy limit{2};
    if (line == "Fail") {
      VASK_ASSERT_WATCHING(count < limit.value, count, limit);
    } else if (line.starts_with("FailWith ")) {
      FailWith(std::stoi(line.substr(9)));
    } else if (line == "Unban") {
      vask::BanAsserts(false);
    } else {
      std::cout << "count " << count << Window() << std::endl;
    }
    return true;
  }

 private:
  static void FailWith(int numbers) {
    std::string message;
    for (int i = 1; i <= numbers; ++i) {
      message += "number " + std::to_string(i) + "\n";
    }
    VASK_ASSERT(numbers < 0, message);
  }
  std::string Window() const {
    const SDL_Surface* screen = SDL_GetVideoSurface();
    const bool isFull = screen != nullptr && (screen->flags & SDL_FULLSCREEN) != 0;
    const bool isGrabbed = screen != nullptr && SDL_WM_GrabInput(SDL_GRAB_QUERY) == SDL_GRAB_ON;
    return std::string(isFull ? ", full" : "") + (isGrabbed ? ", grabbed" : "") + ", resized " +
           std::to_string(myResizes);
  }

  int count = 3;
  int myResizes = 0;
};

const vask::CTaskTypeRegistrar<CAsserter> theRegistrar("asserter");

}  // namespace
