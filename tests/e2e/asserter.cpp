// A task type "asserter" for the stepper. Its lines:
//
//   Fail        fails an assertion that watches two variables: count, and limit, a constant
//   FailWith N  fails one with a message of the numbers 1 to N, one a line
//   Unban       lifts the ban that "Ignore All" sets
//   Tell        prints the variable and the window's state

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

void FailWith(int numbers) {
  std::string message;
  for (int i = 1; i <= numbers; ++i) {
    message += "number " + std::to_string(i) + "\n";
  }
  VASK_ASSERT(numbers < 0, message);
}

class CAsserter : public vask::CTask {
 public:
  void Update() override {}

  bool ExecuteCommand(const std::string& line) override {
    const STouchy limit{2};
    if (line == "Fail") {
      VASK_ASSERT_WATCHING(count < limit.value, count, limit);
    } else if (line.starts_with("FailWith ")) {
      FailWith(std::stoi(line.substr(9)));
    } else if (line == "Unban") {
      vask::BanAsserts(false);
    } else {
      std::cout << "count " << count << std::endl;
      TellOfWindow();
    }
    return true;
  }

 private:
  static void TellOfWindow() {
    if (const SDL_Surface* screen = SDL_GetVideoSurface()) {
      std::cout << screen->w << " x " << screen->h
                << ((screen->flags & SDL_FULLSCREEN) != 0 ? " full" : "")
                << (SDL_WM_GrabInput(SDL_GRAB_QUERY) == SDL_GRAB_ON ? " grabbed" : "") << std::endl;
    }
  }

  int count = 3;
};

const vask::CTaskTypeRegistrar<CAsserter> theRegistrar("asserter");

}  // namespace
