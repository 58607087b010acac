#include "input/playbackmouse.h"

#include "events/eventbridge.h"
#include "input/playbacktimer.h"
#include "utils/inputfile.h"
#include "utils/log/log.h"
#include "utils/randomstate.h"
#include "utils/timer/timer.h"

#include <utility>

namespace vask {
namespace {

void Play(const SMouseEvent& event) {
  CEventBridge& bridge = CEventBridge::GetSingleton();
  const int button = static_cast<int>(event.button);
  switch (event.type) {
    case SMouseEvent::kMove:
      CLog::GetSingletonPtr()->Error() << "CPlaybackMouse::CPlayback::DoTheMagic() - "
                                          "HelperPlayback doesn't work properly with delta\n";
      return bridge.MouseMove(event.x, event.y, 0, 0);
    case SMouseEvent::kButtonUp:
      return bridge.MouseButtonUp(button);
    case SMouseEvent::kButtonDown:
      return bridge.MouseButtonDown(button);
  }
}

}  // namespace

CPlaybackMouse::CPlaybackMouse(std::string fileName, CSmartPtr<IGlobalTimerImpl> realClock)
    : myFileName(std::move(fileName)),
      myClock(new CPlaybackTimer),
      myRealClock(std::move(realClock)),
      myLife(std::make_shared<const bool>(true)) {
  Read();
  SetGlobalTimerImpl(myClock);
}

CPlaybackMouse::~CPlaybackMouse() {
  if (GetGlobalTimerImpl() == myClock) {
    SetGlobalTimerImpl(myRealClock);
  }
}

void CPlaybackMouse::Read() {
  std::ifstream file = OpenInputFile(myFileName);
  std::string line;
  if (!std::getline(file, line)) {
    return;
  }
  CRandomState::GetSingletonPtr()->SetSeed(static_cast<std::uint32_t>(SeedFromLine(line)));
  while (std::getline(file, line)) {
    if (const auto event = SMouseEvent::FromLine(line)) {
      myEvents.push_back(*event);
    }
  }
}

void CPlaybackMouse::Update() {
  const std::weak_ptr<const bool> life = myLife;
  while (IsNextDue()) {
    const SMouseEvent event = myEvents.front();
    myEvents.pop_front();
    Play(event);
    if (life.expired()) {
      return;
    }
  }
  static_cast<CPlaybackTimer&>(*myClock).SetTime(NextTime());
}

bool CPlaybackMouse::IsNextDue() const {
  return !myEvents.empty() && HasReached(GetGlobalTime(), myEvents.front().time);
}

unsigned CPlaybackMouse::NextTime() const {
  const unsigned real = myRealClock->GetTicks();
  const bool goesOn = myEvents.empty() || HasReached(myEvents.front().time, real);
  return goesOn ? real : myEvents.front().time;
}

}  // namespace vask
