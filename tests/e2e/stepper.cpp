// The program with a stopped clock and a task that takes orders from the standard input before each
// frame, so that a test can look at the window between frames. Orders, a line each:
//
//   run LINE      executes LINE in the application console
//   advance MS    moves the clock on
//   date SECONDS  stops the date, which is the seed of a game
//   frame         lets one frame go by
//   click         presses the left button
//   play MANNER SEED UPDATES
//                 lets a pilot play the game to its end; in each frame the game is updated so often
//   compare       whether the screen shows what painting everything shows
//   mail PORT     sends a mail to this host
//   fail          fails an assertion that watches two variables, ourCount and limit, a constant;
//                 then prints the first one and the state of the window
//   fail N        fails one with a message of N line ends
//
// It prints "ok" when each is done, or what is wrong; the end of the input quits.

#include "events/eventbridge.h"
#include "game/brumbletaskimpl.h"
#include "game/pilot.h"
#include "gfx/sprite/screenlayer.h"
#include "input/buttons.h"
#include "kernel/application.h"
#include "kernel/kernel.h"
#include "kernel/taskfactory.h"
#include "platform/wallclock.h"
#include "support/fakeclock.h"
#include "support/tasks.h"
#include "support/testpicture.h"
#include "tools/mail.h"
#include "utils/assert.h"

#include <SDL.h>

#include <iostream>
#include <optional>
#include <sstream>
#include <utility>

namespace {

vask::test::CFakeClock* ourClock = nullptr;
std::int64_t ourDate = 0;
int ourCount = 3;

// Printing it fails an assertion as well.
struct STouchy {
  int value;
};
std::ostream& operator<<(std::ostream& stream, const STouchy& touchy) {
  VASK_ASSERT(touchy.value < 0);
  return stream << touchy.value;
}

void Fail(std::istream& order) {
  std::size_t lines = 0;
  if (order >> lines) {
    VASK_ASSERT(lines == 0, "first" + std::string(lines, '\n') + "last");
    return;
  }
  const STouchy limit{2};
  VASK_ASSERT_WATCHING(ourCount < limit.value, ourCount, limit);
  std::cout << "count " << ourCount << std::endl;
  if (const SDL_Surface* screen = SDL_GetVideoSurface()) {
    std::cout << screen->w << " x " << screen->h
              << ((screen->flags & SDL_FULLSCREEN) != 0 ? " full" : "")
              << (SDL_WM_GrabInput(SDL_GRAB_QUERY) == SDL_GRAB_ON ? " grabbed" : "") << std::endl;
  }
}

std::string ComparePictures() {
  if (SDL_GetVideoSurface() == nullptr) {
    return "no screen";
  }
  vask::CScreenLayer& layer = *vask::CScreenLayer::GetSingletonPtr();
  layer.DrawFrame();
  const auto shown = vask::test::PixelsOf(*vask::Gfx::GetScreen());
  layer.RefreshAll();
  layer.DrawFrame();
  const bool isRight = shown == vask::test::PixelsOf(*vask::Gfx::GetScreen());
  return isRight ? "ok" : "the picture is wrong";
}

std::string SendMail(int port) {
  vask::CMail mail;
  mail.SetHost("127.0.0.1");
  mail.SetPort(port);
  mail.SetSender("Stepper", "stepper@localhost");
  return mail.Send("stepper@localhost") ? "ok" : mail.GetError();
}

class CStepper : public vask::CTask {
 public:
  void Update() override {
    if (myPilot && PlayFrame()) {
      return;
    }
    myPilot.reset();
    if (std::exchange(myFrameRuns, false)) {
      std::cout << "ok" << std::endl;
    }
    std::string order;
    while (!myFrameRuns && std::getline(std::cin, order)) {
      Obey(order);
    }
    if (!std::cin) {
      vask::CKernel::GetSingletonPtr()->Quit();
    }
  }

 private:
  static constexpr unsigned kFrameTime = 20;  // milliseconds; play drops what is more

  void StartPilot(std::istream& order) {
    std::string name;
    std::uint32_t seed = 0;
    order >> name >> seed >> myUpdates;
    brumble::CPilot::EManner manner = {};
    brumble::CPilot::FindManner(name, manner);
    myPilot.emplace(manner, seed);
    myTime = 0;
  }

  // Returns whether the game goes on.
  bool PlayFrame() {
    for (int i = 0; i < myUpdates; ++i) {
      brumble::CBrumbleTaskImpl* const game = brumble::CBrumbleTaskImpl::GetCurrent();
      if (game == nullptr || game->GetScreen() != nullptr) {
        return false;
      }
      ourClock->Advance(kFrameTime);
      const auto pointer = myPilot->PointerAt(game->GetWorld(), myTime += kFrameTime);
      vask::CEventBridge::GetSingletonPtr()->MouseMove(pointer.x, pointer.y, 0, 0);
      game->Update();
    }
    return true;
  }

  void Obey(const std::string& line) {
    std::istringstream order(line);
    std::string verb;
    order >> verb;
    if (verb == "play") {
      StartPilot(order);
    }
    std::cout.clear();  // that one answer could not be written must not hide the next
    myFrameRuns = verb == "frame" || verb == "play";
    if (!myFrameRuns) {
      std::cout << Answer(verb, order) << std::endl;
    }
  }

  static std::string Answer(const std::string& verb, std::istream& order) {
    unsigned number = 0;
    if (verb == "run") {
      std::string line;
      std::getline(order >> std::ws, line);
      std::cerr << vask::test::Execute(line);
    } else if (verb == "advance" && order >> number) {
      ourClock->Advance(number);
    } else if (verb == "date" && order >> ourDate) {
      vask::platform::SetWallClock([] { return ourDate; });
    } else if (verb == "click") {
      vask::CEventBridge::GetSingletonPtr()->MouseButtonDown(vask::kLeftButton);
    } else if (verb == "fail") {
      Fail(order);
    } else if (verb == "compare") {
      return ComparePictures();
    } else if (verb == "mail" && order >> number) {
      return SendMail(static_cast<int>(number));
    }
    return "ok";
  }

  std::optional<brumble::CPilot> myPilot;
  int myUpdates = 1;  // of the game in each frame while it plays
  unsigned myTime = 0;
  bool myFrameRuns = false;
};

const vask::CTaskTypeRegistrar<CStepper> theRegistrar("stepper");

}  // namespace

int main() {
  vask::test::CFakeClock clock;
  ourClock = &clock;
  vask::CApplication application;
  return application.Run();
}
