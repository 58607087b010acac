#include "tasks/taskwindowsdl.h"

#include "console/consoleparams.h"
#include "events/eventbridge.h"
#include "gfx/picture/gfx.h"
#include "gfx/sdl/surface.h"
#include "gfx/sdl/video.h"
#include "gfx/sprite/screenlayer.h"
#include "kernel/applicationfactory.h"
#include "kernel/kernel.h"
#include "platform/displayloss.h"
#include "utils/inputfile.h"
#include "utils/log/log.h"

#include <cstdlib>
#include <iostream>

namespace vask {

namespace {

constexpr int kMaxIconSide = 32;
constexpr int kDefaultPriority = 1000;

bool IsSet(const char* variable) {
  const char* value = std::getenv(variable);
  return value != nullptr && *value != '\0';
}

// Without a display SDL falls back to drivers that paint into a terminal, or nowhere, and some of
// them write to it before they fail. These are of no use to a player; who wants one, or another
// kind of display, names it in the environment. Only the compatibility library knows Wayland; with
// the classic one it fails.
void ChooseDriver() {
  const bool hasOnlyWayland = !IsSet("DISPLAY") && IsSet("WAYLAND_DISPLAY");
  if (!IsSet("SDL_VIDEODRIVER")) {
    setenv("SDL_VIDEODRIVER", hasOnlyWayland ? "wayland" : "x11", 1);
  }
}

// Full screen must end, and the display's mode come back, however the program ends.
void QuitSdlAtExit() { [[maybe_unused]] static const int registered = std::atexit(sdl::Quit); }

void LogVersions() {
  Log() << "Compiled with SDL version: " << SDL_MAJOR_VERSION << "." << SDL_MINOR_VERSION << "."
        << SDL_PATCHLEVEL << "\n";
  const SDL_version& linked = *SDL_Linked_Version();
  Log() << "Running with SDL version: " << int{linked.major} << "." << int{linked.minor} << "."
        << int{linked.patch} << "\n";
  Log() << "Using driver: " << sdl::GetDriverName() << "\n";
}

void LogModes(std::uint32_t flags) {
  SDL_Rect** modes = sdl::HasVideo() ? SDL_ListModes(nullptr, flags) : nullptr;
  Log() << "Valid resolutions for current flags\n";
  // SDL's pointer value for "any size will do".
  if (reinterpret_cast<std::intptr_t>(modes) == -1) {
    Log() << "All resolutions available\n";
    return;
  }
  for (; modes != nullptr && *modes != nullptr; ++modes) {
    Log() << "Width: " << (*modes)->w << "\tHeight:" << (*modes)->h << "\n";
  }
}

void QuitWithoutScreen(const std::string& reason) {
  const std::string message =
      "There is no display to open the window on (" + reason + "); the program ends.";
  std::cerr << message << std::endl;
  Log().Error() << message << "\n";
  CKernel::GetSingletonPtr()->Quit();
}

}  // namespace

CTaskWindowSDL::CTaskWindowSDL() {
  CTask::SetName("window");
  CTask::SetPriority(kDefaultPriority);
}

CTaskWindowSDL::~CTaskWindowSDL() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->RemoveResizeListener(this);
  }
}

bool CTaskWindowSDL::Start(CConsoleParams* params) {
  if (params != nullptr) {
    ReadParams(*params);
  } else {
    UseDefaults();
  }
  const std::string failure = InitVideo();
  CreateWindowDescription();
  RegisterCommands();
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.RemoveResizeListener(this);
  bridge.AddResizeListener(this);
  bridge.Resize(myWidth, myHeight);
  if (myScreen == nullptr) {
    QuitWithoutScreen(failure.empty() ? SDL_GetError() : failure);
  }
  return false;
}

bool CTaskWindowSDL::Start() {
  if (myScreen != nullptr) {
    return false;
  }
  return Start(nullptr);
}

void CTaskWindowSDL::Exit() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->RemoveResizeListener(this);
  }
  myScreen = nullptr;
  sdl::Quit();
}

bool CTaskWindowSDL::ExecuteCommand(const std::string& line) {
  if (myCommands != nullptr) {
    myCommands->Execute(line, false);
  }
  return true;
}

void CTaskWindowSDL::UseDefaults() {
  myFlags = 0;
  myWidth = kDefaultWidth;
  myHeight = kDefaultHeight;
  myBpp = 0;
  myFullscreen = false;
  myCaption = kDefaultCaption;
}

void CTaskWindowSDL::ReadParams(const CConsoleParams& params) {
  const auto readInteger = [&](int index, int& field) {
    if (params.Has(index, CVariable::kNumber)) {
      field = ToInteger(params.GetNumber(index));
    }
  };
  const auto readFlag = [&](int index, bool& field) {
    if (params.Has(index, CVariable::kNumber)) {
      field = params.GetNumber(index) != 0.0;
    }
  };
  const auto readText = [&](int index, std::string& field) {
    if (params.Has(index, CVariable::kString)) {
      field = params.GetString(index);
    }
  };
  readInteger(0, myWidth);
  readInteger(1, myHeight);
  readInteger(2, myBpp);
  readFlag(3, myFullscreen);
  readFlag(4, myResizable);
  readText(5, myCaption);
  readText(6, myIconFile);
  readFlag(7, myFrames);
}

std::string CTaskWindowSDL::InitVideo() {
  Log() << "Initializing video ";
  ChooseDriver();
  if (SDL_Init(SDL_INIT_VIDEO | SDL_INIT_TIMER) != -1) {
    QuitSdlAtExit();
    // Nothing here uses SDL's timers, for whose sake a thread would wake every millisecond.
    SDL_QuitSubSystem(SDL_INIT_TIMER);
    if (sdl::GetDriverName() == "x11") {
      platform::EndWithDisplay();
    }
    Log() << "[OK]\n\n";
    return {};
  }
  const std::string failure = SDL_GetError();
  const CLogBlock block(Log());
  Log().Error() << "Error on initialing video or timer.\n";
  Log().Error() << " SDL Says:\n";
  Log().Error() << failure << "\n";
  Log().Error() << "Exiting on error \n";
  return failure.empty() ? "unknown error" : failure;
}

void CTaskWindowSDL::CreateWindowDescription() {
  myNewSurfaceFlags = 0;
  Log() << "Creating new window\n";
  {
    const CLogBlock block(Log());
    LogVersions();
    SDL_GetVideoInfo();
    myFlags = BuildFlags();
    LogModes(myFlags);
    if (!myCaption.empty()) {
      SetCaption(myCaption);
    }
    // SDL takes an icon only before the first video mode.
    if (!myIconFile.empty()) {
      WindowSetIcon(myIconFile);
    }
  }
  Log() << "New window created succesfully\n\n";
}

std::uint32_t CTaskWindowSDL::BuildFlags() const {
  std::uint32_t flags = 0;
  if (!myFullscreen && myResizable) {
    flags |= SDL_RESIZABLE;
    Log() << "Using resizable ( SDL_RESIZABLE )\n";
  }
  if (myBpp == 0 && !myFullscreen) {
    flags |= SDL_ANYFORMAT;
    Log() << "Using anyformat ( SDL_ANYFORMAT )\n";
  }
  if (!myFrames) {
    flags |= SDL_NOFRAME;
    Log() << "Using no window frames,\n"
             "  ( oh my god our window doesn't have frames!? ) ( SDL_NOFRAME )\n";
  }
  return flags;
}

void CTaskWindowSDL::RegisterCommands() {
  myCommands.reset(CApplicationFactory::GetSingletonPtr()->NewConsole());
  myCommands->AddCommand("SetName", &myCommandSetName);
  myCommands->AddCommand("Resize", &myCommandResize);
  myCommands->AddCommand("SetIcon", &myCommandSetIcon);
  myCommands->AddCommand("Fullscreen", &myCommandToggleFullscreen);
}

void CTaskWindowSDL::SetCaption(const std::string& caption) {
  myCaption = caption;
  SDL_WM_SetCaption(caption.c_str(), caption.c_str());
}

void CTaskWindowSDL::WindowSetIcon(const std::string& file) {
  constexpr char kOperation[] = " CApplicationSDL::WindowSetIcon() ";
  const sdl::SurfacePtr icon(
      IsEndless(file) ? nullptr : SDL_LoadBMP_RW(SDL_RWFromFile(file.c_str(), "rb"), 1));
  if (icon == nullptr) {
    Log().Warning() << kOperation << "Could not load file: " << file << "\n";
  } else if (icon->w > kMaxIconSide) {
    Log().Warning() << kOperation << "Image's (" << file << ") width is larger than 32 pixels \n";
  } else if (icon->h > kMaxIconSide) {
    Log().Warning() << kOperation << "Image's (" << file << ") height is larger than 32 pixels \n";
  } else if (sdl::HasVideo()) {
    SDL_WM_SetIcon(icon.get(), nullptr);
  }
}

void CTaskWindowSDL::ToggleFullscreen() {
  Log() << "crappy shiet\n";
  myFullscreen = !myFullscreen;
  CEventBridge::GetSingletonPtr()->Resize(myWidth, myHeight);
  if (CScreenLayer* layer = CScreenLayer::PeekSingletonPtr()) {
    layer->RefreshAll();
  }
}

void CTaskWindowSDL::OnResize(int width, int height) {
  myWidth = width;
  myHeight = height;
  OpenMode();
}

void CTaskWindowSDL::OpenMode() {
  const std::uint32_t fullscreen = myFullscreen ? SDL_FULLSCREEN : 0;
  const std::uint32_t flags = myFlags | fullscreen;
  const int depth = sdl::GetModeDepth(myWidth, myHeight, myBpp, flags);
  if (depth == 0) {
    Log().Error() << "Error the screen mode is not available\n";
    Log().Error() << "Resolution: " << myWidth << ", " << myHeight << " @ " << myBpp << "\n";
    Log().Error() << "Flags: " << flags << "\n";
  }
  if (depth != myBpp) {
    Log().Error() << "Error the screen mode is not available with the bpp " << myBpp << "\n";
    Log().Error() << "Using bpp " << depth << "\n";
  }
  myScreen = sdl::OpenVideoMode(myWidth, myHeight, depth, flags);
  if (myScreen == nullptr) {
    Log().Error() << "Error creating the new window\n";
    Log().Error() << "  " << SDL_GetError() << "\n";
    return;
  }
  Gfx::ScreenBpp() = myScreen->format->BitsPerPixel;
  Gfx::NewSurfaceFlags() = myNewSurfaceFlags;
}

std::string CTaskWindowSDL::CCommandSetName::Execute(CConsoleParams* params) {
  if (params->Size() == 0) {
    return Execute();
  }
  myTask->SetCaption(params->GetString(0));
  return {};
}

std::string CTaskWindowSDL::CCommandSetName::Execute() {
  myTask->SetCaption({});
  return {};
}

std::string CTaskWindowSDL::CCommandResize::Execute(CConsoleParams* params) {
  const auto read = [&](int index, int otherwise) {
    return params->Has(index, CVariable::kNumber) ? ToInteger(params->GetNumber(index)) : otherwise;
  };
  const int width = read(0, myTask->myWidth);
  const int height = read(1, myTask->myHeight);
  CEventBridge::GetSingletonPtr()->Resize(width, height);
  return {};
}

std::string CTaskWindowSDL::CCommandResize::Execute() {
  return "[ERROR] You should give atleast two parameters";
}

std::string CTaskWindowSDL::CCommandSetIcon::Execute(CConsoleParams* params) {
  if (params->Size() == 0) {
    return Execute();
  }
  myTask->WindowSetIcon(params->GetString(0));
  return {};
}

std::string CTaskWindowSDL::CCommandSetIcon::Execute() {
  return "[ERROR] You have to give atleast one parameter";
}

std::string CTaskWindowSDL::CCommandToggleFullscreen::Execute() {
  myTask->ToggleFullscreen();
  return {};
}

}  // namespace vask
