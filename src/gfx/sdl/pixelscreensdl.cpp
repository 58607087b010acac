#include "gfx/sdl/pixelscreensdl.h"

#include "gfx/picture/gfx.h"
#include "kernel/applicationfactory.h"
#include "utils/log/log.h"

#include <algorithm>

namespace vask {

namespace {

constexpr char kRectsSizeName[] = "gfx_flip_rects_size";
constexpr char kDebugRectsName[] = "gfx_flip_debug_rects";

constinit int ourRectsSize = 75;
constinit bool ourDebugRects = false;

void RegisterVariables() {
  CConsole* console = CApplicationFactory::GetSingletonPtr()->GetConsole();
  if (console->FindVariable(kRectsSizeName) == nullptr) {
    console->RegisterVariable(kRectsSizeName, ourRectsSize);
    console->RegisterVariable(kDebugRectsName, ourDebugRects);
  }
}

}  // namespace

CPixelScreenSDL::CPixelScreenSDL() { RegisterVariables(); }

CPixelScreenSDL::~CPixelScreenSDL() { SetSurface(nullptr, false); }

void CPixelScreenSDL::GiveUpScreen() {
  SetSurface(nullptr, false);
  myDirtyRects.clear();
  myUpdateAll = false;
}

void CPixelScreenSDL::Reset(SDL_Surface* surface) {
  GiveUpScreen();
  SetSurface(surface, false);
  Gfx::ScreenRect() = GetRect();
  CLog& log = *CLog::GetSingletonPtr();
  log << "myWidth = " << GetWidth() << "\n";
  log << "myHeight = " << GetHeight() << "\n";
}

void CPixelScreenSDL::AddDirtyRect(const CRect<int>& rect) {
  if (myUpdateAll) {
    return;
  }
  if (rect == Gfx::ScreenRect()) {
    myUpdateAll = true;
    return;
  }
  const CRect<int> visible = ClipRect(rect);
  if (visible.IsEmpty()) {
    return;
  }
  const bool isFull = ourRectsSize != 0 &&
                      myDirtyRects.size() >= static_cast<std::size_t>(std::max(ourRectsSize, 0));
  if (isFull) {
    myUpdateAll = true;
  } else {
    myDirtyRects.push_back(visible);
  }
}

CRect<int> CPixelScreenSDL::ClipRect(const CRect<int>& rect) const {
  return IsEmpty() ? CRect<int>{}
                   : CPixelSDL::ClipRect(rect).Intersection(sdl::Bounds(*GetSurface()));
}

void CPixelScreenSDL::Flip() {
  if (IsEmpty() || sdl::GetVideoSurface() != GetSurface()) {
    return;
  }
  if (myUpdateAll || FullFlip()) {
    SDL_Flip(GetSurface());
    myDirtyRects.clear();
    myUpdateAll = false;
    return;
  }
  for (; !myDirtyRects.empty(); myDirtyRects.pop_front()) {
    const CRect<int>& rect = myDirtyRects.front();
    SDL_UpdateRect(GetSurface(), rect.x, rect.y, static_cast<Uint32>(rect.w),
                   static_cast<Uint32>(rect.h));
  }
}

bool& CPixelScreenSDL::FullFlip() {
  static constinit bool fullFlip = true;
  return fullFlip;
}

}  // namespace vask
