#include "tasks/testtaskgfx.h"

#include "console/consoleparams.h"
#include "kernel/taskfactory.h"

namespace vask {

namespace {

const CTaskTypeRegistrar<CTestTaskGfx> theRegistrar("gfxtest");

constexpr int kSide = 96;
constexpr int kGap = 16;
constexpr float kDegreesPerFrame = 1.5F;

// A soft disc on a transparent ground: every alpha from 0 to 255 along its rim.
IPixel* NewDisc() {
  IPixel* disc = Gfx::NewBuffer(kSide, kSide);
  constexpr int kCentre = kSide / 2;
  constexpr int kRim = 6;
  for (int y = 0; y < kSide; ++y) {
    for (int x = 0; x < kSide; ++x) {
      const int squared = (x - kCentre) * (x - kCentre) + (y - kCentre) * (y - kCentre);
      const int inside = (kCentre * kCentre - squared) / kRim;
      CColor color(static_cast<std::uint8_t>(255 * x / kSide),
                   static_cast<std::uint8_t>(255 * y / kSide), 160);
      color.a = static_cast<std::uint8_t>(inside < 0 ? 0 : inside > 255 ? 255 : inside);
      disc->PutPixel(x, y, color);
    }
  }
  return disc;
}

void Draw(const IPixel& image, int column, int row) {
  const CRect<int> place{kGap + column * (kSide + kGap), kGap + row * (kSide + kGap),
                         image.GetWidth(), image.GetHeight()};
  IPixel* screen = Gfx::GetScreen();
  image.Blit(screen, {0, 0, place.w, place.h}, place);
  screen->AddDirtyRect(place);
}

// Bars of light and dark, so that blending shows.
void DrawGround() {
  IPixel* screen = Gfx::GetScreen();
  screen->ClearRect({0, 0, screen->GetWidth(), screen->GetHeight()});
  const Gfx::ImagePtr bar(Gfx::NewScreenBuffer(kGap, kGap, Gfx::kMagenta));
  for (int y = 0; y < bar->GetHeight(); ++y) {
    for (int x = 0; x < bar->GetWidth(); ++x) {
      bar->PutPixel(x, y, CColor(230, 230, 230));
    }
  }
  for (int y = 0; y < screen->GetHeight(); y += kGap) {
    for (int x = (y / kGap % 2) * kGap; x < screen->GetWidth(); x += 2 * kGap) {
      bar->Blit(screen, {0, 0, kGap, kGap}, {x, y, kGap, kGap});
    }
  }
  screen->AddDirtyRect(screen->GetRect());
}

}  // namespace

bool CTestTaskGfx::Start(CConsoleParams* params) {
  const bool isNamed = params != nullptr && params->Has(0, CVariable::kString);
  myPicture.reset(isNamed ? Gfx::LoadImage(params->GetString(0), Gfx::kMagenta) : NewDisc());
  return true;
}

void CTestTaskGfx::Update() {
  if (myPicture == nullptr || myPicture->IsEmpty() || Gfx::GetScreen()->IsEmpty()) {
    return;
  }
  DrawGround();
  myAngle += kDegreesPerFrame;
  Draw(*myPicture, 0, 0);
  for (int column = 1; column < 4; ++column) {
    const int alpha = 255 - 64 * column;
    Draw(*Gfx::ImagePtr(myPicture->CloneWithAlpha(alpha)), column, 0);
    const int size = kSide * column / 3;
    Draw(*Gfx::ImagePtr(myPicture->Scale(size, size)), column, 1);
  }
  Draw(*Gfx::ImagePtr(myPicture->Rotate(myAngle)), 0, 1);
}

void CTestTaskGfx::Exit() { myPicture.reset(); }

}  // namespace vask
