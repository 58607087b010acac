#pragma once

#include "console/console.h"
#include "gfx/sprite/guielement.h"
#include "gfx/sprite/sprite.h"
#include "input/taskrecordingdeviceimpl.h"
#include "kernel/task.h"
#include "ui/console/consolewindow.h"
#include "utils/timer/timer.h"

#include <limits>
#include <memory>
#include <string>

namespace vask {

// Tools of the developer, in the running game: a console window, the frame rate on the screen, a
// recorder and player of mouse input. Task type "debug". Several may run at the same time.
//
// The frame rate shows unless the variable "debug_show_fps" of the application console is 0.
//
//   starttask( debug, debug, 60 )
//   debug::ToggleConsole
//   debug::RecordInput( "game.rec" )
class CTaskDebug : public CTask {
 public:
  // What the frames of the seconds so far were, each counted over at least a second.
  struct SFrameRate {
    float average = 0.0F;  // the younger the second, the more it counts
    unsigned lowest = std::numeric_limits<unsigned>::max();
    unsigned highest = 0;
  };

  CTaskDebug() = default;
  ~CTaskDebug() override;

  using CTask::Start;
  bool Start() override;
  void Update() override;
  void Exit() override;
  bool ExecuteCommand(const std::string& line) override;

  // What the commands do. A console window that is executing a line stays until the next update.
  void ToggleConsole();
  // Each replaces the recording or playback that was going on.
  void RecordInput(const std::string& fileName);
  void PlaybackInput(const std::string& fileName);

  SFrameRate GetFrameRate() const;

 private:
  void ForgetCommands();
  void CountFrame();
  void ShowFrameRate();

  std::unique_ptr<CConsole> myCommands;             // null outside of start and exit
  std::unique_ptr<CConsoleWindow> myConsoleWindow;  // null while the console is closed
  CSpritePtr myFrameRateText;
  std::unique_ptr<zogui::CGuiElement> myFrameRateElement;  // drags the text
  unsigned myLastFrameRateTime = 0;                        // milliseconds
  unsigned myFrames = 0;                                   // since then
  SFrameRate myFrameRate;
  std::unique_ptr<ITaskRecordingDeviceImpl> myInputDevice;  // null for none
  CTimer myTimer;
};

}  // namespace vask
