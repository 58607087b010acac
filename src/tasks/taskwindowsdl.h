#pragma once

#include "console/console.h"
#include "console/consolecommand.h"
#include "kernel/task.h"

#include <SDL.h>

#include <cstdint>
#include <memory>
#include <string>

namespace vask {

// Owns the program's one window (task type "window"). The video mode is set only in the resize
// handler: the start, the commands "Resize" and "Fullscreen" and the window's frame all go through
// a resize of the event bridge, so every listener sees the same sizes in the same order.
class CTaskWindowSDL : public CTask {
 public:
  CTaskWindowSDL();
  ~CTaskWindowSDL() override;

  // Parameters: width, height, bits per pixel, full screen, resizable, caption, icon file, frames;
  // each keeps its default when it is missing or of the wrong kind. Returns false: the window needs
  // no updates. Without a display the kernel quits.
  bool Start(CConsoleParams* params) override;
  bool Start() override;
  void Update() override {}
  void Exit() override;
  bool ExecuteCommand(const std::string& line) override;

  void SetCaption(const std::string& caption);
  // A BMP file of at most 32 by 32 pixels; anything else is a warning in the log.
  void WindowSetIcon(const std::string& file);
  void ToggleFullscreen();
  // Sets the video mode.
  void OnResize(int width, int height);

  // The screen of the last mode that was set; null when that failed.
  SDL_Surface* GetScreen() const { return myScreen; }
  // The window's own console; null before the start.
  CConsole* GetConsole() const { return myCommands.get(); }
  // SDL's video flags as built at the start, without SDL_FULLSCREEN.
  std::uint32_t GetFlags() const { return myFlags; }
  int GetWidth() const { return myWidth; }
  int GetHeight() const { return myHeight; }

 private:
  static constexpr int kDefaultWidth = 640;
  static constexpr int kDefaultHeight = 480;
  static constexpr char kDefaultCaption[] = "SDL Window";

  class CWindowCommand : public CConsoleCommand {
   public:
    explicit CWindowCommand(CTaskWindowSDL* task) : myTask(task) {}

   protected:
    CTaskWindowSDL* myTask;
  };

  class CCommandSetName : public CWindowCommand {
   public:
    using CWindowCommand::CWindowCommand;
    std::string Execute(CConsoleParams* params) override;
    std::string Execute() override;
  };

  class CCommandResize : public CWindowCommand {
   public:
    using CWindowCommand::CWindowCommand;
    std::string Execute(CConsoleParams* params) override;
    std::string Execute() override;
  };

  class CCommandSetIcon : public CWindowCommand {
   public:
    using CWindowCommand::CWindowCommand;
    std::string Execute(CConsoleParams* params) override;
    std::string Execute() override;
  };

  class CCommandToggleFullscreen : public CWindowCommand {
   public:
    using CWindowCommand::CWindowCommand;
    using CWindowCommand::Execute;
    std::string Execute() override;
  };

  void UseDefaults();
  void ReadParams(const CConsoleParams& params);
  // Returns why there is no video; empty when there is.
  std::string InitVideo();
  void CreateWindowDescription();
  std::uint32_t BuildFlags() const;
  void RegisterCommands();
  void OpenMode();

  std::unique_ptr<CConsole> myCommands;
  CCommandSetName myCommandSetName{this};
  CCommandResize myCommandResize{this};
  CCommandSetIcon myCommandSetIcon{this};
  CCommandToggleFullscreen myCommandToggleFullscreen{this};
  SDL_Surface* myScreen = nullptr;
  std::uint32_t myFlags = 0;
  int myWidth = kDefaultWidth;
  int myHeight = kDefaultHeight;
  int myBpp = 0;  // 0: the display's own depth
  bool myFullscreen = false;
  bool myResizable = true;
  bool myFrames = true;
  std::string myCaption = kDefaultCaption;
  std::string myIconFile;
  std::uint32_t myNewSurfaceFlags = 0;
};

}  // namespace vask
