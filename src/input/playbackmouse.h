#pragma once

#include "input/mouseevent.h"
#include "input/taskrecordingdeviceimpl.h"
#include "utils/timer/globaltimerimpl.h"

#include <cstdint>
#include <list>
#include <memory>
#include <string>

namespace vask {

// Plays the mouse events of a file that CRecordMouse wrote into the event bridge, as if they came
// from the mouse. It sets the seed of the random numbers and replaces the global clock. Its clock
// follows the real one, but stops at the time of the next event until that has been played: each
// event happens at its recorded time, however slow the frames are.
//
//     auto device = std::make_unique<CPlaybackMouse>("game.rec");  // time is 0
//     device->Update();                                            // once per frame
//     device.reset();                                              // time is the real one again
class CPlaybackMouse : public ITaskRecordingDeviceImpl {
 public:
  // A file that cannot be read plays nothing and leaves the seed alone.
  explicit CPlaybackMouse(std::string fileName,
                          CSmartPtr<IGlobalTimerImpl> realClock =
                              CSmartPtr<IGlobalTimerImpl>(new CGlobalTimerImplTimeH));
  // Restores the real clock, unless the playback's has been replaced meanwhile.
  ~CPlaybackMouse() override;
  CPlaybackMouse(const CPlaybackMouse&) = delete;
  CPlaybackMouse& operator=(const CPlaybackMouse&) = delete;

  // Plays what is due, then moves the clock on. A listener of an event may delete the playback.
  void Update() override;

 private:
  enum EMode : std::int32_t { kRealTimeHeld = 2 };

  void Read();
  bool IsNextDue() const;
  unsigned NextTime() const;

  [[maybe_unused]] EMode myMode = kRealTimeHeld;  // there is no other
  std::string myFileName;
  std::list<SMouseEvent> myEvents;      // still to be played, in the order of the file
  CSmartPtr<IGlobalTimerImpl> myClock;  // a CPlaybackTimer
  CSmartPtr<IGlobalTimerImpl> myRealClock;
  std::shared_ptr<const bool> myLife;  // expires with the playback
};

}  // namespace vask
