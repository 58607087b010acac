#pragma once

#include "console/console.h"
#include "console/consolecommand.h"
#include "gfx/sprite/guielement.h"
#include "gfx/sprite/sprite.h"
#include "input/taskrecordingdeviceimpl.h"
#include "kernel/task.h"
#include "ui/console/consolewindow.h"
#include "utils/timer/timer.h"

#include <array>
#include <limits>
#include <memory>
#include <string>

namespace vask {

// Developer tools in the running game: a console window, the frame rate on the screen, and
// recording and playback of mouse input. Task type "debug". Several may run at the same time.
//
// The frame rate shows unless the variable "debug_show_fps" of the application console is 0.
//
//     starttask( debug, debug, 60 )
//     debug::ToggleConsole
//     debug::RecordInput( "game.rec" )
class CTaskDebug : public CTask {
 public:
  // Statistics of the frame counts so far, each over at least a second.
  struct SFrameRate {
    float average = 0.0F;  // weighted towards the latest
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

  // The operations of the commands. A console window that is executing a line stays until the next
  // update.
  void ToggleConsole();
  // Each ends the recording or playback before it.
  void RecordInput(const std::string& fileName);
  void PlaybackInput(const std::string& fileName);

  SFrameRate GetFrameRate() const;

 private:
  void ForgetCommands();
  void CountFrame();
  void ShowFrameRate();

  std::unique_ptr<CConsole> myCommands;             // null before the start and after the exit
  std::unique_ptr<CConsoleWindow> myConsoleWindow;  // null while the console is closed
  CSpritePtr myFrameRateText;
  std::unique_ptr<zogui::CGuiElement> myFrameRateElement;  // drags the text
  unsigned myLastFrameRateTime = 0;                        // milliseconds
  unsigned myFrames = 0;                                   // since then
  SFrameRate myFrameRate;
  std::unique_ptr<ITaskRecordingDeviceImpl> myInputDevice;  // null for none
  CTimer myTimer;
};

// A command of the debug tasks. There is one of each kind for the process, registered in the
// consoles of all debug tasks: each task sets itself as theirs before it executes a line.
class CDebugCommand : public CConsoleCommand {
 public:
  // Not owned.
  void SetTask(CTaskDebug* task) { myTask = task; }
  // Clears the task unless another one has been set meanwhile.
  void ForgetTask(const CTaskDebug* task);

 protected:
  CTaskDebug* GetTask() const { return myTask; }

 private:
  CTaskDebug* myTask = nullptr;
};

// Opens the console window, or closes it.
class CConsoleCmdToggleConsole : public CDebugCommand {
 public:
  using CConsoleCommand::Execute;
  std::string Execute() override;
};

// Takes a number: 0 allows the dialog of a failed assertion, any other bans it.
class CConsoleCmdBanAsserts : public CDebugCommand {
 public:
  std::string Execute(CConsoleParams* params) override;
  // Logs how to use the command; so do the two below.
  std::string Execute() override;
};

// Takes the file that the mouse is recorded to.
class CConsoleCmdRecordInput : public CDebugCommand {
 public:
  std::string Execute(CConsoleParams* params) override;
  std::string Execute() override;
};

// Takes the file that is played back.
class CConsoleCmdPlaybackInput : public CDebugCommand {
 public:
  std::string Execute(CConsoleParams* params) override;
  std::string Execute() override;
};

struct SDebugCommand {
  const char* name;
  CDebugCommand* command;  // lives to the end of the process
};

// The one of each kind.
const std::array<SDebugCommand, 4>& GetDebugCommands();

}  // namespace vask
