#include "tasks/taskeventsdl.h"

#include <utility>

#include "events/eventbridge.h"
#include "gfx/sdl/video.h"
#include "kernel/kernel.h"
#include "tasks/cursorimages.h"

namespace vask {

namespace {

unsigned char ToCharacter(const SDL_keysym& key) {
  const bool isPlain = key.unicode >= 1 && key.unicode <= 127;
  return static_cast<unsigned char>(isPlain ? key.unicode : 0);
}

int ToButton(int sdlButton) {
  switch (sdlButton) {
    case SDL_BUTTON_LEFT:
      return 1;
    case SDL_BUTTON_MIDDLE:
      return 2;
    case SDL_BUTTON_RIGHT:
      return 4;
    case SDL_BUTTON_WHEELUP:
      return 8;
    case SDL_BUTTON_WHEELDOWN:
      return 16;
    default:
      return 0;
  }
}

// SDL forgets this when its video subsystem starts, which may happen after the task did.
void AskForCharacters() { SDL_EnableUNICODE(1); }

}  // namespace

CTaskEventSDL::CTaskEventSDL() : myBridge(CEventBridge::GetSingletonPtr()) {}

CTaskEventSDL::~CTaskEventSDL() { Shutdown(); }

bool CTaskEventSDL::Start() {
  myBridge->SetMouseHardware(this);
  myIsHardware = true;
  AskForCharacters();
  return true;
}

void CTaskEventSDL::Update() {
  AskForCharacters();
  while (SDL_PollEvent(&myEvent) != 0) {
    Dispatch();
  }
}

void CTaskEventSDL::Exit() { Shutdown(); }

void CTaskEventSDL::Shutdown() {
  const bool isBridgeAlive = CEventBridge::PeekSingletonPtr() == myBridge;
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
      myBridge->KeyDown(event.key.keysym.sym, ToCharacter(event.key.keysym));
      break;
    case SDL_KEYUP:
      myBridge->KeyUp(event.key.keysym.sym, ToCharacter(event.key.keysym));
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

// SDL may never tell of a button that comes up while another window has the focus.
void CTaskEventSDL::OnFocus(bool gained) {
  for (int button = 1; !gained && myHeldButtons != 0; button <<= 1) {
    if ((myHeldButtons & button) != 0) {
      OnButtonUp(button);
      myGivenUpButtons |= button;
    }
  }
  myBridge->FocusEvent(gained);
}

void CTaskEventSDL::OnButtonDown(int button) {
  myHeldButtons |= button;
  myGivenUpButtons &= ~button;
  myBridge->MouseButtonDown(button);
}

void CTaskEventSDL::OnButtonUp(int button) {
  const bool isKnown = (myGivenUpButtons & button) != 0;
  myHeldButtons &= ~button;
  myGivenUpButtons &= ~button;
  if (!isKnown) {
    myBridge->MouseButtonUp(button);
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
