#include "gfx/sprite/sprite.h"

#include "gfx/sprite/spritelayer.h"
#include "gfx/sprite/spritetypes.h"
#include "utils/xml/xmlcontext.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace vask {
namespace {

const CSpriteTypeRegistrar theRegistrar(kBaseSprite, NewSprite<CSprite>);

constinit CSprite::DeathHook ourDeathHook = nullptr;

// Rotating by less would cost a new copy of the picture that looks like the old one.
constexpr float kSmallestTurn = 0.5F;
// How much larger than the sprite a back buffer may be before it is replaced: the size of a
// spinning sprite varies by less, so it keeps one buffer.
constexpr int kBackBufferSlack = 20;

bool FitsBuffer(int buffer, int needed) {
  return buffer >= needed && buffer - needed <= kBackBufferSlack;
}

}  // namespace

CSprite::CSprite() : myImage(Gfx::NullImage()) {}

CSprite::~CSprite() {
  LeaveLayer();
  if (ourDeathHook != nullptr) {
    ourDeathHook(this);
  }
}

void CSprite::SetDeathHook(DeathHook hook) { ourDeathHook = hook; }

int CSprite::GetTypeId() const { return kBaseSprite.number; }

bool CSprite::IsEmpty() const { return myOriginalImage == nullptr || myOriginalImage->IsEmpty(); }

void CSprite::Serialize(CXmlContext& xml) {
  if (xml.IsReading()) {
    ReadFields(xml);
  } else {
    WriteFields(xml);
  }
}

void CSprite::ReadFields(CXmlContext& xml) {
  std::string file;
  if (xml.OptionalValue("ImageFilename", file) && !file.empty()) {
    SetImage(Gfx::LoadImage(file, Gfx::kMagenta));
  }
  CRect<int> scroll;
  if (xml.OptionalValue("ScrollRect", scroll) && (scroll.w != 0 || scroll.h != 0)) {
    SetScrollRect(scroll);
  }
  CRect<int> rect = myRect;
  if (xml.OptionalValue("ImageRect", rect)) {
    SetRect(rect);
  }
  int z = myZ;
  if (xml.OptionalValue("Z", z)) {
    SetZ(z);
  }
  int alpha = myAlpha;
  if (xml.OptionalValue("Alpha", alpha)) {
    SetAlpha(alpha);
  }
}

void CSprite::WriteFields(CXmlContext& xml) {
  xml.SetAttribute("type", SpriteTypeName(GetTypeId()));
  std::string file = IsEmpty() ? std::string() : myOriginalImage->GetFileName();
  if (!file.empty()) {  // a picture that was drawn by the program has no file
    xml.Value("ImageFilename", file);
  }
  if (myScrollRect != nullptr) {
    xml.Value("ScrollRect", *myScrollRect);
  }
  int alpha = myAlpha;
  xml.Value("ImageRect", myRect);
  xml.Value("Z", myZ);
  xml.Value("Alpha", alpha);
}

std::string CSprite::GetName() const { return myName; }

void CSprite::SetName(const std::string& name) { myName = name; }

void CSprite::SetX(int x) { SetPosition(x, myRect.y); }

void CSprite::SetY(int y) { SetPosition(myRect.x, y); }

void CSprite::SetZ(int z) {
  if (z == myZ) {
    return;
  }
  if (myParent == nullptr) {
    myZ = z;
    return;
  }
  MarkChanged();
  myParent->Detach(this);
  myZ = z;
  myParent->InsertByDepth(this);
}

void CSprite::SetRect(const CRect<int>& rect) {
  if (rect == myRect) {
    return;
  }
  MarkChanged();
  myRect = rect;
}

int CSprite::GetX() const { return myRect.x; }

int CSprite::GetY() const { return myRect.y; }

int CSprite::GetZ() const { return myZ; }

CRect<int> CSprite::GetRect() const { return myRect; }

void CSprite::SetImageRect(const CRect<int>& rect) {
  if (IsEmpty()) {
    return;
  }
  const CRect<int> sheet{0, 0, myOriginalImage->GetSurfaceWidth(),
                         myOriginalImage->GetSurfaceHeight()};
  const CRect<int> part = rect.Intersection(sheet);
  if (part == myOriginalImage->GetRect()) {
    return;
  }
  MarkChanged();
  const CRect<int> before = myOriginalImage->GetRect();
  myOriginalImage->SetRect(part);
  // A sprite that turns gets another copy soon anyway.
  if (myCopy != nullptr && part.w == before.w && part.h == before.h) {
    myIsCopyOld = true;
  } else {
    ShowImage();
  }
}

CRect<int> CSprite::GetImageRect() const {
  return myOriginalImage == nullptr ? CRect<int>{} : myOriginalImage->GetRect();
}

void CSprite::SetScrollRect(const CRect<int>& rect) {
  const CRect<int> before = myScrollRect ? myScrollRect->Intersection(myRect) : myRect;
  if (rect.Intersection(myRect) != before) {
    MarkChanged();
  }
  if (myScrollRect == nullptr) {
    myScrollRect = std::make_unique<CRect<int>>();
  }
  *myScrollRect = rect;
}

CRect<int> CSprite::GetScrollRect() const { return myScrollRect ? *myScrollRect : CRect<int>{}; }

CRect<int> CSprite::PaintedPart(const CRect<int>& canvas) const {
  const CRect<int> onCanvas = myRect.Intersection(canvas);
  const CRect<int> part = myScrollRect ? onCanvas.Intersection(*myScrollRect) : onCanvas;
  if (part.IsEmpty()) {
    return {};
  }
  const IPixel& image = *GetImage();
  const CRect<int> solidPart =
      mySolidPart.value_or(CRect<int>{0, 0, image.GetWidth(), image.GetHeight()});
  const CRect<int> inPicture{part.x - myRect.x, part.y - myRect.y, part.w, part.h};
  const CRect<int> solid = inPicture.Intersection(solidPart);
  return {solid.x + myRect.x, solid.y + myRect.y, solid.w, solid.h};
}

void CSprite::PaintPart(CSprite* canvas, const CRect<int>& clip) {
  if (canvas == nullptr || IsEmpty()) {
    return;
  }
  const CRect<int> part = PaintedPart(canvas->GetRect()).Intersection(clip);
  if (part.IsEmpty()) {
    return;
  }
  GetImage()->Blit(canvas->GetImage(), {part.x - myRect.x, part.y - myRect.y, part.w, part.h},
                   part);
  canvas->GetImage()->AddDirtyRect(part);
}

void CSprite::Paint(CSprite* canvas) { PaintPart(canvas, myRect); }

void CSprite::RestoreBackground(CSprite* canvas) {
  if (canvas == nullptr || mySavedArea.IsEmpty()) {
    return;
  }
  const CRect<int> area = std::exchange(mySavedArea, {});
  Gfx::CopyPixels(myBackBuffer.get(), {0, 0, area.w, area.h}, canvas->GetImage(), area.x, area.y);
  canvas->GetImage()->AddDirtyRect(area);
}

void CSprite::SaveBackground(CSprite* canvas) {
  if (canvas == nullptr || !myOwnsBackBuffer || IsEmpty()) {
    return;
  }
  myLastRect = myRect;
  const CRect<int> whole = canvas->GetRect();
  mySavedArea = {};
  const CRect<int> area = PaintedPart(whole);
  // No larger than the canvas, since no picture has the size of every rectangle.
  if (area.IsEmpty()) {
    return;
  }
  if (!FitBackBuffer(std::min(myRect.w, whole.w), std::min(myRect.h, whole.h))) {
    if (myParent != nullptr) {
      myParent->LoseBackground();
    }
    return;
  }
  mySavedArea = area;
  Gfx::CopyPixels(canvas->GetImage(), area, myBackBuffer.get(), 0, 0);
}

bool CSprite::FitBackBuffer(int width, int height) {
  if (myBackBuffer == nullptr || !FitsBuffer(myBackBuffer->GetWidth(), width) ||
      !FitsBuffer(myBackBuffer->GetHeight(), height)) {
    myBackBuffer.reset();
    myBackBuffer.reset(Gfx::NewScreenBuffer(width, height, Gfx::kMagenta));
  }
  return !myBackBuffer->IsEmpty();
}

void CSprite::CheckOverlap(CSprite* canvas) {
  if (canvas == nullptr || myDirtyState == kOffCanvas || IsEmpty() ||
      !myRect.Intersects(canvas->GetRect())) {
    return;
  }
  myDirtyState = kOffCanvas;
  RestoreBackground(canvas);
}

bool CSprite::Draw(CSprite* canvas) {
  const bool due = myDirtyState != kPainted && !IsEmpty();
  if (due) {
    // What changes from frame to frame is not worth the look.
    if (!myInDirtyList && !mySolidPart) {
      mySolidPart = Gfx::SolidPart(*GetImage());
    }
    SaveBackground(canvas);
    Paint(canvas);
  }
  // Also when there was nothing to paint: a sprite that was empty or off the canvas must report
  // when it appears.
  myDirtyState = kPainted;
  myInDirtyList = false;
  return due;
}

void CSprite::SetVisible(bool visible) {
  if (!visible && myParent != nullptr) {
    MarkChanged();
    myParent->HideChild(this);
  } else if (visible && myHiddenParent != nullptr) {
    myHiddenParent->ShowChild(this);
    MarkChanged();
  }
}

void CSprite::SetSize(int width, int height) {
  const SShownLook::SSize size{std::max(width, 0), std::max(height, 0)};
  if (IsEmpty() || size == SShownLook::SSize{myRect.w, myRect.h}) {
    return;
  }
  MarkChanged();
  mySize = size;
  ShowImage();
}

void CSprite::SetRotation(float degrees) {
  if (IsEmpty() || !std::isfinite(degrees) || std::fabs(degrees - myRotation) <= kSmallestTurn) {
    return;
  }
  MarkChanged();
  myRotation = degrees;
  myIsRotated = true;
  ShowImage();
}

void CSprite::SetAlpha(int alpha) {
  const auto clamped = static_cast<std::uint8_t>(std::clamp(alpha, 0, 255));
  if (clamped == myAlpha) {
    return;
  }
  MarkChanged();
  myAlpha = clamped;
  RenewCopy();  // the size stays, also one that a file has given
}

int CSprite::GetAlpha() const { return myAlpha; }

void CSprite::SetPosition(int x, int y) {
  if (x == myRect.x && y == myRect.y) {
    return;
  }
  MarkChanged();
  myRect.x = x;
  myRect.y = y;
}

void CSprite::PlayAnimation(const std::string&) {}

void CSprite::SetText(const std::string&) {}

void CSprite::SetParent(CSpriteLayer* layer) {
  if (layer == nullptr) {
    LeaveLayer();
  } else {
    layer->AddChild(this);
  }
}

void CSprite::LeaveLayer() {
  if (CSpriteLayer* layer = myParent != nullptr ? myParent : myHiddenParent) {
    layer->RemoveChild(this);
  }
}

void CSprite::SetOwnsBackBuffer(bool owns) {
  if (owns == myOwnsBackBuffer) {
    return;
  }
  MarkChanged();
  myOwnsBackBuffer = owns;
  myBackBuffer.reset();
  mySavedArea = {};
}

void CSprite::MarkChanged() {
  mySolidPart.reset();
  if (myParent != nullptr && !myInDirtyList) {
    myParent->AddDirty(this);
  }
}

void CSprite::SetImage(IPixel* image) {
  if (image == nullptr) {
    image = Gfx::NullImage();
  }
  // A picture of nothing may also be what is shown of another one.
  if (image == myImage && (myCopy == nullptr || !image->IsEmpty())) {
    return;
  }
  MarkChanged();
  mySize.reset();
  myRotation = 0.0F;
  myIsRotated = false;
  myAlpha = 255;
  TakeLoaded(image);
  ShowImage();
}

void CSprite::ReplaceImage(IPixel* image) {
  MarkChanged();
  mySize.reset();
  TakeLoaded(image);
  ShowImage();
}

void CSprite::TakeLoaded(IPixel* image) {
  if (image == myOriginalImage.get()) {
    return;
  }
  const bool borrowed = image->IsStatic() || image == Gfx::GetScreen();
  myOriginalImage = {image, SImageRelease{borrowed}};
}

IPixel* CSprite::LoadedImage() const {
  return myOriginalImage == nullptr ? Gfx::NullImage() : myOriginalImage.get();
}

void CSprite::ImageChanged() {
  MarkChanged();
  ShowImage();
}

void CSprite::RenewCopy() const {
  myIsCopyOld = false;
  SShownLook look{mySize, std::nullopt, myAlpha};
  if (myIsRotated) {
    look.degrees = myRotation;
  }
  myCopy.reset();
  myCopy = MakeShownCopy(*LoadedImage(), look);
  myImage = myCopy != nullptr ? myCopy.get() : LoadedImage();
}

void CSprite::ShowImage() {
  RenewCopy();
  myRect.w = myImage->GetWidth();
  myRect.h = myImage->GetHeight();
}

int CSprite::GetDirtyState() const {
  if (!myInDirtyList) {
    return kUnchanged;
  }
  return myRect == myLastRect ? kChangedInPlace : kMoved;
}

CRect<int> CSprite::GetRectFor(int which) const { return which == 1 ? myLastRect : myRect; }

IPixel* CSprite::GetImage() const {
  if (myIsCopyOld) {
    RenewCopy();
  }
  return myImage;
}

void CSprite::ForgetBackground() {
  mySavedArea = {};
  myBackBuffer.reset();  // its format may be that of a screen of another depth
  myDirtyState = kOffCanvas;
}

}  // namespace vask
