#include "tasks/taskgfxsdl.h"

#include "events/eventbridge.h"
#include "gfx/picture/gfx.h"
#include "gfx/picture/rectresize.h"
#include "gfx/sdl/gfxfactorysdl.h"
#include "gfx/sdl/pixelscreensdl.h"
#include "gfx/sdl/video.h"
#include "gfx/sprite/screenlayer.h"
#include "kernel/kernel.h"

#include <algorithm>

namespace vask {

namespace {

// How many of these tasks own a factory: a script may start two.
constinit int ourFactoryCount = 0;

}  // namespace

CTaskGfxSDL::CTaskGfxSDL() { FollowScreenSize(); }

CTaskGfxSDL::~CTaskGfxSDL() { Shutdown(); }

bool CTaskGfxSDL::Start() {
  FollowScreenSize();
  ourFactoryCount += myFactory == nullptr ? 1 : 0;
  myFactory = std::make_unique<CGfxFactorySDL>();
  Gfx::SetFactory(myFactory.get());
  myScreen = std::make_unique<CPixelScreenSDL>();
  Gfx::SetScreen(myScreen.get());
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.RemoveResizeListener(this);
  bridge.AddResizeListener(this);
  OnResize(bridge.GetWidth(), bridge.GetHeight());
  // The first frame is due at once.
  myLastFrame = myFrameTimer.GetTime() - myFrameInterval;
  return CTaskGfx::Start();
}

void CTaskGfxSDL::Update() {
  if (myScreen == nullptr) {
    return;
  }
  const unsigned now = myFrameTimer.GetTime();
  if (now - myLastFrame >= myFrameInterval) {
    DrawFrame();
    myLastFrame = now;
  }
  const unsigned passed = std::min(myFrameTimer.GetTime() - myLastFrame, myFrameInterval);
  CKernel::GetSingletonPtr()->SleepAtMost(static_cast<int>(myFrameInterval - passed));
}

void CTaskGfxSDL::DrawFrame() {
  if (IsScreenStale()) {
    OnResize(0, 0);
  }
  CTaskGfx::Update();
  myScreen->Flip();
}

void CTaskGfxSDL::Exit() {
  CTaskGfx::Exit();
  Shutdown();
}

void CTaskGfxSDL::OnResize(int, int) {
  if (myScreen == nullptr) {
    return;
  }
  myVideoSurface = sdl::GetVideoSurface();
  myScreen->Reset(myVideoSurface);
  if (CScreenLayer* layer = CScreenLayer::PeekSingletonPtr()) {
    layer->RefreshAll();
  }
}

// A window that started after this task sets its modes after this task has heard of them.
bool CTaskGfxSDL::IsScreenStale() const {
  const SDL_Surface* surface = sdl::GetVideoSurface();
  return surface != myVideoSurface ||
         (surface != nullptr && sdl::Bounds(*surface) != myScreen->GetRect());
}

void CTaskGfxSDL::FollowScreenSize() {
  CEventBridge& bridge = *CEventBridge::GetSingletonPtr();
  bridge.RemoveResizeListener(&Gfx::ScreenRect());
  bridge.AddResizeListener(&Gfx::ScreenRect());
}

void CTaskGfxSDL::Shutdown() {
  if (CEventBridge* bridge = CEventBridge::PeekSingletonPtr()) {
    bridge->RemoveResizeListener(this);
    bridge->RemoveResizeListener(&Gfx::ScreenRect());
  }
  if (myFactory == nullptr) {
    return;
  }
  if (Gfx::GetFactory() == myFactory.get()) {
    Gfx::SetFactory(nullptr);
  }
  myFactory.reset();
  --ourFactoryCount;
  if (Gfx::GetScreen() == myScreen.get()) {
    Gfx::SetScreen(nullptr);
  }
  myScreen.reset();
  myVideoSurface = nullptr;
  // A factory that was set in place of ours has no other owner.
  if (ourFactoryCount == 0) {
    delete Gfx::GetFactory();
    Gfx::SetFactory(nullptr);
  }
}

}  // namespace vask
