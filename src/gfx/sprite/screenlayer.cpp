#include "gfx/sprite/screenlayer.h"

#include "gfx/sprite/spritetypes.h"
#include "utils/log/log.h"

namespace vask {
namespace {

// New buffers are zero, which is black, so that a copy of one clears the screen at any depth.
// Returns whether there was one.
bool FillBlack(IPixel* screen) {
  const CRect<int> all{0, 0, screen->GetWidth(), screen->GetHeight()};
  const Gfx::ImagePtr black(Gfx::NewScreenBuffer(all.w, all.h, Gfx::kMagenta));
  Gfx::CopyPixels(black.get(), all, screen, 0, 0);
  screen->AddDirtyRect(all);
  return !black->IsEmpty();
}

// The screen layer belongs to itself. It is counted once for itself, so that the last smart pointer
// of somebody else does not delete it.
CSprite* ScreenLayer() {
  CSprite* layer = CScreenLayer::GetSingletonPtr();
  CSmartPtrManager<CSprite>* owners = CSmartPtrManager<CSprite>::GetSingletonPtr();
  if (owners->Count(layer) == 0) {
    owners->Register(layer);
  }
  return layer;
}

const CSpriteTypeRegistrar theRegistrar(kScreenLayerSprite, ScreenLayer);

}  // namespace

CScreenLayer::CScreenLayer()
    : myCanvasSprite(std::make_unique<CSprite>()), myScreen(Gfx::NullImage()) {
  SetCanvas(myCanvasSprite.get());
}

CScreenLayer::~CScreenLayer() {
  SetCanvas(nullptr);
  // A later object at the same address starts with a count of its own.
  if (auto* owners = CSmartPtrManager<CSprite>::PeekSingletonPtr()) {
    owners->Forget(this);
  }
}

int CScreenLayer::GetTypeId() const { return kScreenLayerSprite.number; }

// A sprite may change or die after the screen has gone. Nothing is restored on such a screen, nor
// on one that is about to be redrawn, which may have another depth.
CSprite* CScreenLayer::GetCanvas() const {
  const bool isSame = myScreen == Gfx::GetScreen() && !myRefreshAll;
  return isSame ? CSpriteLayer::GetCanvas() : nullptr;
}

void CScreenLayer::DrawFrame() {
  const bool isSame = myScreen == Gfx::GetScreen();
  myScreen = Gfx::GetScreen();
  if (myScreen->IsEmpty()) {
    return;
  }
  if (isSame && !myRefreshAll && myScreen->GetRect() == myCanvasSprite->GetRect()) {
    Draw(GetCanvas());
  } else {
    DrawAll();
  }
  if (TakeLostBackground()) {
    RefreshAll();  // the next frame tries again
  }
}

void CScreenLayer::DrawAll() {
  myRefreshAll = false;
  myCanvasSprite->SetImage(myScreen);
  myCanvasSprite->SetRect(myScreen->GetRect());
  *CLog::GetSingletonPtr() << "drawing all\n";
  const bool isBlack = FillBlack(myScreen);
  // What was saved belongs to the last screen; painting saves new backgrounds.
  ForgetBackground();
  Draw(GetCanvas());
  if (!isBlack) {
    RefreshAll();
  }
}

}  // namespace vask
