#include "gfx/sprite.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <string>
#include <vector>

#include "gfx/animatedsprite.h"
#include "gfx/guielement.h"
#include "gfx/spritefactory.h"
#include "gfx/textsprite.h"
#include "input/mouse.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

namespace vask {
namespace {

using test::CTestScreen;
using test::NewPicture;
using test::NewSprite;
using Rect = CRect<int>;

const CColor kRed(255, 0, 0);

CSpritePtr Load(const std::string& file) {
  return CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(file));
}

void WriteFile(const std::string& name, const std::string& text) { std::ofstream(name) << text; }

class Sprite : public testing::Test {
 protected:
  Sprite() {
    const Gfx::ImagePtr picture(NewPicture(40, 30, kRed));
    picture->SaveToFile("picture.bmp");
  }

  CTestScreen myScreen{80, 60};
  CScreenLayer* myLayer = CScreenLayer::GetSingletonPtr();
};

TEST_F(Sprite, FileGivesTheFieldsThatItHas) {
  const std::string image = "<ImageFilename>picture.bmp</ImageFilename>";
  const std::vector<std::tuple<std::string, Rect, Rect, int, int>> files = {
      {"", {}, {}, 100, 255},
      {image, {0, 0, 40, 30}, {}, 100, 255},
      {image + "<ImageRect x=\"7\" y=\"8\" ></ImageRect>", {7, 8, 40, 30}, {}, 100, 255},
      {image + "<ImageRect w=\"9\" ></ImageRect><Z>-3</Z>", {0, 0, 9, 30}, {}, -3, 255},
      {image + "<ScrollRect x=\"5\" y=\"5\" w=\"0\" h=\"0\" ></ScrollRect>",
       {0, 0, 40, 30},
       {},
       100,
       255},
      {image + "<ScrollRect w=\"6\" ></ScrollRect>", {0, 0, 40, 30}, {0, 0, 6, 0}, 100, 255},
      {image + "<Alpha>300</Alpha>", {0, 0, 40, 30}, {}, 100, 255},
      {image + "<Alpha>-5</Alpha>", {0, 0, 40, 30}, {}, 100, 0},
      {"<ImageFilename></ImageFilename><Z>1</Z>", {}, {}, 1, 255},
      {"<ImageFilename>none.bmp</ImageFilename>", {}, {}, 100, 255},
  };
  for (const auto& [fields, rect, scroll, z, alpha] : files) {
    WriteFile("sprite.xml", "<Sprite type=\"sprite_base\" >" + fields + "</Sprite>");
    const CSpritePtr sprite = Load("sprite.xml");
    EXPECT_EQ(sprite->GetRect(), rect) << fields;
    EXPECT_EQ(sprite->GetScrollRect(), scroll) << fields;
    EXPECT_EQ(sprite->GetZ(), z) << fields;
    EXPECT_EQ(sprite->GetAlpha(), alpha) << fields;
    EXPECT_EQ(sprite->IsEmpty(), rect.w == 0) << fields;
    EXPECT_EQ(sprite->GetParent(), myLayer);
    EXPECT_EQ(sprite->GetName(), "sprite.xml");
  }
}

TEST_F(Sprite, WrittenFileReadsBack) {
  const CSpritePtr sprite = Load("picture.bmp");
  sprite->SetPosition(-4, 11);
  sprite->SetScrollRect({1, 2, 3, 4});
  sprite->SetZ(7);
  sprite->SetAlpha(99);
  ASSERT_TRUE(SaveXml(*sprite, "written.xml"));
  const CSpritePtr read = Load("written.xml");
  EXPECT_EQ(read->GetRect(), (Rect{-4, 11, 40, 30}));
  EXPECT_EQ(read->GetScrollRect(), (Rect{1, 2, 3, 4}));
  EXPECT_EQ(read->GetZ(), 7);
  EXPECT_EQ(read->GetAlpha(), 99);
  EXPECT_FALSE(read->IsEmpty());
}

TEST_F(Sprite, FactoryMakesTheKindThatTheFileNames) {
  const std::vector<std::pair<std::string, int>> kinds = {
      {"type=\"sprite_layer\" ", CSprite::kLayer},
      {"type=\"sprite_text\" ", CSprite::kText},
      {"type=\"sprite_animated\" ", CSprite::kAnimated},
      {"type=\"nonsense\" ", CSprite::kBase},
      {"", CSprite::kBase}};
  for (const auto& [attribute, kind] : kinds) {
    WriteFile("kind.xml", "<Sprite " + attribute + "></Sprite>");
    EXPECT_EQ(Load("kind.xml")->GetTypeId(), kind) << attribute;
  }
  for (int kind = 0; kind <= CSprite::kAnimated; ++kind) {
    EXPECT_EQ(CSpriteFactory::TypeFromName(CSpriteFactory::NameFromType(kind)), kind);
  }
  EXPECT_EQ(CSpriteFactory::Create(5), nullptr);
  EXPECT_EQ(CSpriteFactory::Create(-1), nullptr);
}

TEST_F(Sprite, WhatCannotBeLoadedIsAnEmptySprite) {
  for (const char* name : {"", "x", "ml", "xml", "none.xml", "none.bmp"}) {
    EXPECT_TRUE(Load(name)->IsEmpty()) << name;
  }
}

TEST_F(Sprite, ScreenLayerFromAFileIsNotDeletedByItsHolder) {
  WriteFile("screen.xml", "<Sprite type=\"sprite_screenlayer\" ></Sprite>");
  const CSpritePtr child = NewSprite(myLayer, {0, 0, 5, 5}, kRed);
  for (int i = 0; i < 2; ++i) {
    const CSpritePtr layer = Load("screen.xml");
    ASSERT_EQ(layer.Get(), myLayer);
    EXPECT_EQ(layer->GetParent(), nullptr);
  }
  EXPECT_EQ(CScreenLayer::PeekSingletonPtr(), myLayer);
  myLayer->DrawFrame();
  EXPECT_EQ(myScreen.At(4, 4), 0xFF0000U);
}

TEST_F(Sprite, CopyIsMadeFromSizeRotationAndAlphaInAnyOrder) {
  const std::vector<std::function<void(CSprite&)>> changes = {
      [](CSprite& sprite) { sprite.SetSize(20, 10); },
      [](CSprite& sprite) { sprite.SetRotation(90.0F); },
      [](CSprite& sprite) { sprite.SetAlpha(100); }};
  std::vector<std::size_t> order = {0, 1, 2};
  do {
    const CSpritePtr sprite = Load("picture.bmp");
    for (const std::size_t i : order) {
      changes[i](*sprite);
    }
    EXPECT_EQ(sprite->GetRect().w, sprite->GetImage()->GetWidth());
    EXPECT_LT(sprite->GetRect().w, sprite->GetRect().h) << "a wide picture, turned, is tall";
    EXPECT_NEAR(sprite->GetRect().h, 20, 2);
    EXPECT_EQ(sprite->GetImage()->GetPixel(5, 10).a, 100);
    sprite->SetSize(40, 30);
    sprite->SetRotation(360.0F);
    sprite->SetAlpha(255);
    EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 40, 30}));
    EXPECT_EQ(sprite->GetImage()->GetFileName(), "picture.bmp") << "the loaded one again";
  } while (std::next_permutation(order.begin(), order.end()));
}

TEST_F(Sprite, SmallAndMeaninglessChangesAreIgnored) {
  const CSpritePtr sprite = Load("picture.bmp");
  const IPixel* image = sprite->GetImage();
  for (const float degrees : {0.5F, -0.5F, NAN, INFINITY}) {
    sprite->SetRotation(degrees);
    EXPECT_EQ(sprite->GetRotation(), 0.0F);
  }
  sprite->SetSize(40, 30);
  sprite->SetAlpha(400);
  EXPECT_EQ(sprite->GetImage(), image);
  EXPECT_EQ(sprite->GetDirtyState(), 0);
}

TEST_F(Sprite, NewPictureIsShownPlain) {
  const CSpritePtr sprite = Load("picture.bmp");
  sprite->SetSize(20, 20);
  sprite->SetRotation(45.0F);
  sprite->SetAlpha(10);
  sprite->SetImage(NewPicture(6, 7, kRed));
  EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 6, 7}));
  EXPECT_EQ(sprite->GetAlpha(), 255);
  EXPECT_EQ(sprite->GetRotation(), 0.0F);
  sprite->SetAlpha(10);
  EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 6, 7})) << "the size is forgotten";
  sprite->SetImage(nullptr);
  EXPECT_TRUE(sprite->IsEmpty());
  sprite->SetSize(5, 5);
  EXPECT_EQ(sprite->GetRect(), Rect{});
}

TEST_F(Sprite, ImageRectIsCutToTheSheetAndTheCopyMadeAgain) {
  const std::vector<std::pair<Rect, Rect>> cases = {{{10, 5, 20, 10}, {10, 5, 20, 10}},
                                                    {{30, 20, 40, 40}, {30, 20, 10, 10}},
                                                    {{-5, -5, 10, 10}, {0, 0, 5, 5}},
                                                    {{0, 0, 0, 0}, {}},
                                                    {{50, 50, 9, 9}, {}},
                                                    {{5, 5, -3, 4}, {}},
                                                    {{2147483647, 0, 2147483647, 9}, {}},
                                                    {{0, 0, 2147483647, 9}, {0, 0, 40, 9}}};
  for (const auto& [wanted, shown] : cases) {
    for (const int alpha : {255, 128}) {
      const CSpritePtr sprite = Load("picture.bmp");
      sprite->SetAlpha(alpha);
      sprite->SetImageRect(wanted);
      EXPECT_EQ(sprite->GetImageRect(), shown);
      EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, shown.w, shown.h}));
      sprite->SetRotation(30.0F);
      sprite->SetSize(0, 12);
      sprite->SetSize(8, 8);
      myLayer->DrawFrame();
    }
  }
}

TEST_F(Sprite, PaintsOnlyInsideItsRectAndItsClips) {
  const Rect all{0, 0, 80, 60};
  const std::vector<std::tuple<Rect, Rect, Rect>> cases = {
      // rect, scroll rect, what is red then
      {{10, 10, 8, 8}, all, {10, 10, 8, 8}},
      {{10, 10, 90, 90}, all, {10, 10, 40, 30}},
      {{10, 10, 40, 30}, {20, 0, 5, 15}, {20, 10, 5, 5}},
      {{-8, -8, 10, 10}, all, {0, 0, 2, 2}},
      {{75, 55, 40, 30}, all, {75, 55, 5, 5}},
      {{10, 10, 40, 30}, {0, 0, 5, 5}, {}}};
  for (const auto& [rect, scroll, red] : cases) {
    const CSpritePtr sprite = Load("picture.bmp");
    sprite->SetRect(rect);
    sprite->SetScrollRect(scroll);
    myLayer->DrawFrame();
    for (int y = 0; y < 60; ++y) {
      for (int x = 0; x < 80; ++x) {
        ASSERT_EQ(myScreen.At(x, y) == 0xFF0000U, red.Contains(x, y))
            << rect.x << " " << rect.w << ": " << x << "," << y;
      }
    }
  }
}

TEST_F(Sprite, PaintPartKeepsToTheClip) {
  CSprite canvas;
  canvas.SetImage(&myScreen.Picture());
  CSprite sprite;
  sprite.SetImage(NewPicture(20, 20, kRed));
  sprite.SetPosition(10, 10);
  sprite.PaintPart(&canvas, {5, 15, 10, 90});
  EXPECT_EQ(myScreen.At(14, 15), 0xFF0000U);
  EXPECT_EQ(myScreen.At(15, 15), 0U);
  EXPECT_EQ(myScreen.At(14, 14), 0U);
  sprite.PaintPart(nullptr, {0, 0, 9, 9});
}

TEST_F(Sprite, DirtyStateTellsChangesFromMoves) {
  const CSpritePtr sprite = NewSprite(myLayer, {5, 5, 9, 9}, kRed);
  myLayer->DrawFrame();
  EXPECT_EQ(sprite->GetDirtyState(), 0);
  sprite->SetAlpha(9);
  EXPECT_EQ(sprite->GetDirtyState(), 1);
  sprite->SetX(6);
  EXPECT_EQ(sprite->GetDirtyState(), 2);
  EXPECT_EQ(sprite->GetRectFor(1), (Rect{5, 5, 9, 9}));
  EXPECT_EQ(sprite->GetRectFor(0), (Rect{6, 5, 9, 9}));
  myLayer->DrawFrame();
  EXPECT_EQ(sprite->GetDirtyState(), 0);
}

// What a frame may not do over and over: make back buffers, and decode the picture.
class CCountingFactory : public CGfxFactorySDL {
 public:
  IPixel* NewBuffer(int width, int height, const CColor& key) override {
    ++buffers;
    return CGfxFactorySDL::NewBuffer(width, height, key);
  }
  IPixel* LoadImage(const std::string& file, const CColor& key) override {
    ++loads;
    return CGfxFactorySDL::LoadImage(file, key);
  }
  using CGfxFactorySDL::NewBuffer;
  int buffers = 0;
  int loads = 0;
};

TEST_F(Sprite, SpinningKeepsItsBackBuffer) {
  CCountingFactory factory;
  CGfxFactory* usual = Gfx::GetFactory();
  Gfx::SetFactory(&factory);
  {
    const CSpritePtr sprite = Load("picture.bmp");
    sprite->SetSize(40, 40);
    const auto spin = [&] {
      for (int degrees = 0; degrees < 360; degrees += 7) {
        sprite->SetRotation(static_cast<float>(degrees));
        sprite->SetAlpha(100 + degrees % 2);
        myLayer->DrawFrame();
      }
      return factory.buffers;
    };
    const int first = spin();
    EXPECT_EQ(spin(), first);
    EXPECT_EQ(factory.loads, 1);
    sprite->SetRotation(0.0F);
    sprite->SetSize(10, 10);
    myLayer->DrawFrame();
    EXPECT_EQ(factory.buffers, first + 1) << "far too large now";
  }
  Gfx::SetFactory(usual);
}

TEST_F(Sprite, GuiElementDragsTheSpriteThatItWraps) {
  const CSpritePtr sprite = NewSprite(myLayer, {10, 10, 20, 20}, kRed, 7);
  CMouse& mouse = CMouse::GetSingleton();
  {
    zogui::CGuiElement element(sprite.Get());
    EXPECT_EQ(element.GetRect(), sprite->GetRect());
    EXPECT_EQ(element.GetZ(), 7);
    mouse.OnMouseMove(15, 12);
    mouse.OnMouseButtonDown(4);
    mouse.OnMouseMove(16, 13);
    EXPECT_EQ(sprite->GetX(), 10) << "the right button does not drag";
    mouse.OnMouseButtonDown(1);
    mouse.OnMouseButtonDown(1);
    mouse.OnMouseMove(70, 50);
    EXPECT_EQ(sprite->GetRect(), (Rect{64, 47, 20, 20}));
    mouse.OnMouseButtonUp(4);
    EXPECT_TRUE(element.IsDragging());
    mouse.OnMouseButtonUp(1);
    mouse.OnMouseMove(0, 0);
    EXPECT_EQ(sprite->GetRect(), (Rect{64, 47, 20, 20}));
    element.SetDraggable(false);
    mouse.OnMouseMove(70, 50);
    mouse.OnMouseButtonDown(1);
    EXPECT_FALSE(element.IsDragging());
  }
  zogui::CGuiElement nothing(nullptr);
  nothing.OnMouseButtonDown(1);
  nothing.OnMouseMove(3, 3);
  EXPECT_EQ(nothing.GetRect(), Rect{});
  EXPECT_EQ(nothing.GetZ(), 0);
}

}  // namespace
}  // namespace vask
