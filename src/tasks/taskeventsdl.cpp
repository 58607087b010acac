#include "tasks/taskeventsdl.h"

#include "events/eventbridge.h"
#include "gfx/sdl/video.h"
#include "input/buttons.h"
#include "input/cursorimages.h"
#include "input/keyplaces.h"
#include "kernel/kernel.h"

#include <utility>

namespace vask {

namespace {

unsigned char ToCharacter(const SDL_keysym& key) {
  const bool isPlain = key.unicode >= 1 && key.unicode <= 127;
  return static_cast<unsigned char>(isPlain ? key.unicode : 0);
}

// With other drivers a scancode is another number.
int ToKey(const SDL_keysym& key) {
  const std::string driver = sdl::GetDriverName();
  const bool knowsPlace = driver == "x11" || driver == "wayland";
  return knowsPlace ? KeyByPlace(key.sym, key.scancode) : key.sym;
}

int ToButton(int sdlButton) {
  switch (sdlButton) {
    case SDL_BUTTON_LEFT:
      return kLeftButton;
    case SDL_BUTTON_MIDDLE:
      return kMiddleButton;
    case SDL_BUTTON_RIGHT:
      return kRightButton;
    case SDL_BUTTON_WHEELUP:
      return kWheelUp;
    case SDL_BUTTON_WHEELDOWN:
      return kWheelDown;
    default:
      return kNoButton;
  }
}

// SDL forgets this when its video subsystem starts, which may be after the task's start.
void AskForCharacters() { SDL_EnableUNICODE(1); }

}  // namespace

CTaskEventSDL::CTaskEventSDL() : myBridge(CEventBridge::GetSingletonPtr()) {}

CTaskEventSDL::~CTaskEventSDL() { Shutdown(); }

bool CTaskEventSDL::Start() {
  myBridge->SetMouseHardware(this);
  myIsHardware = true;
  myIsListening = true;
  AskForCharacters();
  return true;
}

void CTaskEventSDL::Update() {
  AskForCharacters();
  if (std::exchange(myQuitCount, sdl::GetQuitCount()) != myQuitCount) {
    ReleaseHeld();
  }
  myIsUpdating = true;
  while (myIsListening && SDL_PollEvent(&myEvent) != 0) {
    Dispatch();
  }
  myIsUpdating = false;
  if (!myIsListening) {
    ReleaseHeld();
  }
}

void CTaskEventSDL::Exit() { Shutdown(); }

void CTaskEventSDL::Pause() { StopListening(); }

void CTaskEventSDL::Resume() { myIsListening = true; }

// When a listener stops the task, the releases wait for the end of the update: the other listeners
// have yet to be told of the press.
void CTaskEventSDL::StopListening() {
  myIsListening = false;
  if (!myIsUpdating) {
    ReleaseHeld();
  }
}

void CTaskEventSDL::Shutdown() {
  const bool isBridgeAlive = CEventBridge::PeekSingletonPtr() == myBridge;
  if (isBridgeAlive) {
    StopListening();
  }
  if (std::exchange(myIsHardware, false) && isBridgeAlive) {
    myBridge->ClearMouseHardware();
  }
  FreeCursor();
}

void CTaskEventSDL::Dispatch() {
  const SDL_Event& event = myEvent;
  switch (event.type) {
    case SDL_ACTIVEEVENT:
      if ((event.active.state & SDL_APPINPUTFOCUS) != 0) {
        OnFocus(event.active.gain != 0);
      }
      break;
    case SDL_KEYDOWN:
      OnKeyDown(event.key.keysym);
      break;
    case SDL_KEYUP:
      OnKeyUp(event.key.keysym);
      break;
    case SDL_MOUSEMOTION:
      myBridge->MouseMove(event.motion.x, event.motion.y, event.motion.xrel, event.motion.yrel);
      break;
    case SDL_MOUSEBUTTONDOWN:
      OnButtonDown(ToButton(event.button.button));
      break;
    case SDL_MOUSEBUTTONUP:
      OnButtonUp(ToButton(event.button.button));
      break;
    case SDL_QUIT:
      CKernel::GetSingletonPtr()->Quit();
      break;
    case SDL_VIDEORESIZE:
      // The compatibility library also tells of a size that is there already.
      if (event.resize.w != myBridge->GetWidth() || event.resize.h != myBridge->GetHeight()) {
        myBridge->Resize(event.resize.w, event.resize.h);
      }
      break;
    default:
      break;
  }
}

void CTaskEventSDL::OnFocus(bool gained) {
  if (!gained) {
    ReleaseHeld();
  }
  myBridge->FocusEvent(gained);
}

void CTaskEventSDL::OnKeyDown(const SDL_keysym& key) {
  const int name = ToKey(key);
  myKeys.Press(key.sym, key.scancode, name);
  myBridge->KeyDown(name, ToCharacter(key));
}

void CTaskEventSDL::OnKeyUp(const SDL_keysym& key) {
  if (const auto name = myKeys.Release(key.sym, key.scancode, ToKey(key))) {
    myBridge->KeyUp(*name, ToCharacter(key));
  }
}

void CTaskEventSDL::OnButtonDown(int button) {
  myButtons.Press(button, 0, button);
  myBridge->MouseButtonDown(button);
}

void CTaskEventSDL::OnButtonUp(int button) {
  if (const auto name = myButtons.Release(button, 0, button)) {
    myBridge->MouseButtonUp(*name);
  }
}

// One at a time: listeners may stop the task in the middle of it.
void CTaskEventSDL::ReleaseHeld() {
  while (const auto key = myKeys.GiveUpOne()) {
    myBridge->KeyUp(*key, 0);
  }
  while (const auto button = myButtons.GiveUpOne()) {
    myBridge->MouseButtonUp(*button);
  }
}

void CTaskEventSDL::ShowCursor() {
  if (sdl::HasVideo()) {
    SDL_ShowCursor(SDL_ENABLE);
  }
}

void CTaskEventSDL::HideCursor() {
  if (sdl::HasVideo()) {
    SDL_ShowCursor(SDL_DISABLE);
  }
}

void CTaskEventSDL::GrabInput(bool on) {
  if (sdl::HasVideo()) {
    SDL_WM_GrabInput(on ? SDL_GRAB_ON : SDL_GRAB_OFF);
  }
}

void CTaskEventSDL::ChangeCursor(int type) {
  if (type == myCursorType || !sdl::HasVideo()) {
    return;
  }
  myCursorType = type;
  const SCursorImage* image = GetCursorImage(type);
  if (image == nullptr) {
    return;
  }
  SCursorPlanes planes = MakeCursorPlanes(*image);
  SDL_Cursor* cursor = SDL_CreateCursor(planes.data.data(), planes.mask.data(), SCursorImage::kSide,
                                        SCursorImage::kSide, image->hotX, image->hotY);
  if (cursor == nullptr) {
    return;
  }
  SDL_Cursor* previous = SDL_GetCursor();
  SDL_SetCursor(cursor);
  if (previous == myCursor) {
    SDL_FreeCursor(previous);
  } else {
    myInitialCursor = previous;
  }
  myCursor = cursor;
}

// SDL_Quit frees the cursor that is set: one that SDL no longer knows is gone already.
void CTaskEventSDL::FreeCursor() {
  SDL_Cursor* cursor = std::exchange(myCursor, nullptr);
  myCursorType = 0;
  if (cursor != nullptr && sdl::HasVideo() && SDL_GetCursor() == cursor) {
    // The compatibility library would go on with the freed one.
    SDL_SetCursor(myInitialCursor);
    SDL_FreeCursor(cursor);
  }
}

}  // namespace vask
