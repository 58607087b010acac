#include "input/recordmouse.h"

#include "events/eventbridge.h"
#include "platform/wallclock.h"
#include "utils/outputfile.h"
#include "utils/randomstate.h"
#include "utils/timer/globaltimerimpl.h"

#include <cstdint>
#include <utility>

namespace vask {

CRecordMouse::CRecordMouse(std::string fileName) : myFileName(std::move(fileName)) {
  CEventBridge::GetSingletonPtr()->AddMouseListener(this);
  const std::int64_t seed = platform::WallClockSeconds();
  OpenOutputFile(myFileName) << seed << "\n";
  CRandomState::GetSingletonPtr()->SetSeed(static_cast<std::uint32_t>(seed));
}

// The base class leaves the bridge.
CRecordMouse::~CRecordMouse() = default;

void CRecordMouse::OnMouseMove(int x, int y) {
  Append({.time = GetGlobalTime(), .type = SMouseEvent::kMove, .x = x, .y = y});
}

void CRecordMouse::OnMouseButtonDown(int button) { AppendButton(SMouseEvent::kButtonDown, button); }

void CRecordMouse::OnMouseButtonUp(int button) { AppendButton(SMouseEvent::kButtonUp, button); }

void CRecordMouse::Append(const SMouseEvent& event) const {
  OpenOutputFile(myFileName, std::ios::app) << event.ToLine() << "\n";
}

void CRecordMouse::AppendButton(SMouseEvent::EType type, int button) const {
  SMouseEvent event{.time = GetGlobalTime(), .type = type};
  event.button = static_cast<std::uint32_t>(button);
  Append(event);
}

}  // namespace vask
