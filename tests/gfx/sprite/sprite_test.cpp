#include "gfx/sprite/sprite.h"

#include "gfx/sprite/guielement.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/sprite/spritetypes.h"
#include "input/mouse.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>
#include <limits>

namespace vask {
namespace {

using test::NewPicture;
using Rect = CRect<int>;

const CColor kRed(255, 0, 0);

CSpritePtr Load(const std::string& file) {
  return CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(file));
}
CSpritePtr LoadXmlText(const std::string& type, const std::string& fields) {
  std::ofstream("s.xml") << "<Sprite type=\"" << type << "\" >" << fields << "</Sprite>";
  return Load("s.xml");
}

class Sprite : public testing::Test {
 protected:
  Sprite() { Gfx::ImagePtr(NewPicture(40, 30, kRed))->SaveToFile("a.bmp"); }

  // A red square at the upper left corner of the screen.
  CSpritePtr Red(int z = 100) {
    CSpritePtr sprite(new CSprite);
    sprite->SetImage(NewPicture(5, 5, kRed));
    sprite->SetZ(z);
    sprite->SetParent(myLayer);
    return sprite;
  }

  test::CTestScreen myScreen{80, 60};
  CScreenLayer* myLayer = CScreenLayer::GetSingletonPtr();
};

TEST_F(Sprite, FileGivesTheFieldsThatItHas) {
  struct SCase {
    std::string fields;
    Rect rect = {0, 0, 40, 30};
    Rect scroll = {};
    int z = 100;
    int alpha = 255;
  };
  const std::string a = "<ImageFilename>a.bmp</ImageFilename>";
  const SCase cases[] = {
      {.fields = "", .rect = {}},
      {.fields = a + "<Alpha>300</Alpha>"},
      {.fields = a + "<Alpha>-5</Alpha>", .alpha = 0},
      {.fields = a + "<ImageRect x=\"7\" y=\"8\" />", .rect = {7, 8, 40, 30}},
      {.fields = a + "<ImageRect w=\"9\" /><Z>-3</Z>", .rect = {0, 0, 9, 30}, .z = -3},
      {.fields = a + "<ScrollRect x=\"5\" y=\"5\" w=\"0\" h=\"0\" />"},
      {.fields = a + "<ScrollRect w=\"6\" /><Alpha>99</Alpha>",
       .scroll = {0, 0, 6, 0},
       .alpha = 99},
      {.fields = "<ImageFilename>no.bmp</ImageFilename>", .rect = {}},
  };
  for (const SCase& c : cases) {
    SCOPED_TRACE(c.fields);
    CSpritePtr sprite = LoadXmlText("sprite_base", c.fields);
    for (const char* file : {"s.xml", "written.xml"}) {
      EXPECT_EQ(sprite->GetName(), file);
      EXPECT_EQ(sprite->GetParent(), myLayer);
      EXPECT_EQ(sprite->GetRect(), c.rect);
      EXPECT_EQ(sprite->GetScrollRect(), c.scroll);
      EXPECT_EQ(sprite->GetZ(), c.z);
      EXPECT_EQ(sprite->GetAlpha(), c.alpha);
      ASSERT_TRUE(SaveXml(*sprite, "written.xml"));
      sprite = Load("written.xml");
    }
  }
}

TEST_F(Sprite, KindsAreMadeByNumberAndName) {
  int number = 0;
  for (const char* name :
       {"sprite_base", "sprite_layer", "sprite_screenlayer", "sprite_text", "sprite_animated"}) {
    const CSpritePtr sprite = LoadXmlText(name, "");
    EXPECT_EQ(sprite->GetTypeId(), number) << name;
    EXPECT_EQ(sprite.Get() == myLayer, number == kScreenLayerSprite.number);
    SaveXml(*sprite, "written.xml");
    EXPECT_EQ(Load("written.xml")->GetTypeId(), number++);
  }
  EXPECT_EQ(LoadXmlText("sprite_none", "")->GetTypeId(), kBaseSprite.number);
  EXPECT_TRUE(Load("none.xml")->IsEmpty());
  EXPECT_TRUE(Load("")->IsEmpty());
  EXPECT_EQ(CreateSprite(5), nullptr);
  EXPECT_STREQ(SpriteTypeName(5), kBaseSprite.name);
}

TEST_F(Sprite, LoadedOneIsDrawnWithTheNextFrame) {
  Gfx::ImagePtr(NewPicture(10, 20, kRed))->SaveToFile("door.bmp");
  std::ofstream("door.xml") << "<Sprite><ImageFilename>door.bmp</ImageFilename></Sprite>";

  CSpritePtr door(CSpriteFactory::GetSingletonPtr()->Load("door.xml"));
  door->SetPosition(0, -10);

  CSpriteLayer signs;
  signs.SetZ(50);
  signs.SetParent(CScreenLayer::GetSingletonPtr());
  signs.AddChild(door.Get());

  EXPECT_EQ(door->GetParent(), &signs);
  myLayer->DrawFrame();
  EXPECT_EQ(myScreen.At(9, 9), 0xFF0000U);
  EXPECT_EQ(myScreen.At(9, 10), 0U);
}

TEST_F(Sprite, CopyIsMadeFromSizeRotationAndAlphaInAnyOrder) {
  const std::function<void(CSprite&)> changes[] = {[](CSprite& s) { s.SetSize(20, 10); },
                                                   [](CSprite& s) { s.SetRotation(90.0F); },
                                                   [](CSprite& s) { s.SetAlpha(100); }};
  int order[] = {0, 1, 2};
  do {
    const CSpritePtr sprite = Load("a.bmp");
    for (const int i : order) {
      changes[i](*sprite);
    }
    EXPECT_LT(sprite->GetRect().w, sprite->GetRect().h) << "a wide picture, turned, is tall";
    EXPECT_NEAR(sprite->GetRect().h, 20, 4);
    EXPECT_EQ(sprite->GetImage()->GetPixel(5, 10).a, 100);
    IPixel* const loaded = NewPicture(6, 7, kRed);
    sprite->SetImage(loaded);
    EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 6, 7})) << "all three are forgotten";
    EXPECT_EQ(sprite->GetImage(), loaded);
  } while (std::next_permutation(std::begin(order), std::end(order)));
}

TEST_F(Sprite, ShownPictureFollowsPartTurnAndSize) {
  const CSpritePtr sprite = Load("a.bmp");
  for (const float degrees : {0.5F, -0.5F, NAN, INFINITY}) {
    sprite->SetRotation(degrees);
    EXPECT_EQ(sprite->GetRotation(), 0.0F) << degrees << " is no turn";
  }
  sprite->SetRotation(360.0F);
  EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 42, 32})) << "SDL_gfx makes room for the turn";
  sprite->SetRotation(359.4F);
  EXPECT_EQ(sprite->GetRotation(), 359.4F);
  IPixel* const loaded = NewPicture(40, 30, kRed);
  sprite->SetImage(loaded);
  sprite->SetImageRect({30, 20, 90, 90});
  EXPECT_EQ(sprite->GetImageRect(), (Rect{30, 20, 10, 10})) << "cut to the sheet";
  EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 10, 10}));
  for (const auto& [width, height] : {std::pair{-1, 7}, {7, -1}}) {
    sprite->SetSize(width, height);
    EXPECT_EQ(sprite->GetRect(), Rect{}) << "a size of nothing";
  }
  EXPECT_FALSE(sprite->IsEmpty());
  sprite->SetImage(loaded);
  EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 10, 10}));
}

TEST_F(Sprite, IsInItsLayerByDepthTheNewestInFrontOfItsEquals) {
  std::vector<CSpritePtr> sprites;
  for (const int z :
       {50, 100, 50, 7, 100, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
    sprites.push_back(Red(z));
    sprites.back()->SetName(std::to_string(sprites.size() - 1));
  }
  const auto order = [&] {
    std::string names;
    std::ranges::for_each(myLayer->GetChildren(), [&](auto* child) { names += child->GetName(); });
    return names;
  };
  EXPECT_EQ(order(), "5320416");
  sprites[0]->SetZ(50);  // as before, which changes nothing
  sprites[1]->SetZ(50);
  EXPECT_EQ(order(), "5312046");
  for (const bool visible : {false, false, true, true}) {
    SCOPED_TRACE(visible);
    sprites[2]->SetVisible(visible);
    sprites[2]->SetZ(100);
    sprites[2]->SetX(9);
    EXPECT_EQ(sprites[2]->GetParent(), visible ? myLayer : nullptr);
    EXPECT_EQ(order(), visible ? "5310246" : "531046");
  }
}

TEST_F(Sprite, TellsWhatHasChangedSinceItWasDrawn) {
  const CSpritePtr sprite = Red();
  myLayer->DrawFrame();
  myScreen.Picture().Flip();
  EXPECT_EQ(sprite->GetDirtyState(), CSprite::kUnchanged);
  sprite->SetAlpha(99);
  EXPECT_EQ(sprite->GetDirtyState(), CSprite::kChangedInPlace);
  EXPECT_EQ(myLayer->GetDepthMark(), 100);
  sprite->SetY(7);
  EXPECT_EQ(sprite->GetDirtyState(), CSprite::kMoved);
  EXPECT_EQ(sprite->GetRectFor(1), (Rect{0, 0, 5, 5}));
  EXPECT_EQ(sprite->GetRectFor(0), (Rect{0, 7, 5, 5}));
  EXPECT_EQ(myScreen.Picture().GetDirtyCount(), 1U) << "the restored background";
  myLayer->DrawFrame();
  EXPECT_EQ(sprite->GetDirtyState(), CSprite::kUnchanged);
  EXPECT_EQ(myScreen.Picture().GetDirtyCount(), 2U) << "and the painted sprite";
}

TEST_F(Sprite, WithoutABackBufferLeavesATrail) {
  const CSpritePtr sprite = Red();
  sprite->SetOwnsBackBuffer(false);
  myLayer->DrawFrame();
  sprite->SetX(20);
  sprite->SetOwnsBackBuffer(true);
  myLayer->DrawFrame();
  EXPECT_EQ(myScreen.At(2, 2), 0xFF0000U);
  sprite->SetX(40);
  myLayer->DrawFrame();
  EXPECT_EQ(myScreen.At(22, 2), 0U);
}

TEST_F(Sprite, IsDraggedByItsGuiElementWithTheLeftButton) {
  CSprite sprite;
  sprite.SetRect({10, 20, 30, 40});
  zogui::CGuiElement element(&sprite);
  EXPECT_EQ(element.GetZ(), 100);
  EXPECT_EQ(element.GetRect(), sprite.GetRect());
  const int left = 1;
  const int right = 3;
  CMouse& mouse = *CMouse::GetSingletonPtr();
  mouse.OnMouseMove(17, 30);
  mouse.OnMouseButtonDown(right);
  mouse.OnMouseMove(16, 31);
  mouse.OnMouseButtonDown(left);
  mouse.OnMouseMove(26, 51);
  mouse.OnMouseButtonDown(left);
  mouse.OnMouseButtonUp(right);
  mouse.OnMouseMove(27, 50);
  EXPECT_EQ(sprite.GetRect(), (Rect{21, 39, 30, 40}));
  mouse.OnMouseButtonUp(left);
  element.SetDraggable(false);
  mouse.OnMouseButtonDown(left);
  mouse.OnMouseMove(50, 60);
  EXPECT_EQ(sprite.GetRect(), (Rect{21, 39, 30, 40})) << "dropped";
  EXPECT_EQ(zogui::CGuiElement(nullptr).GetZ(), 0);
  CMouse::DeleteSingleton();
}

TEST_F(Sprite, MayChangeAndDieAfterItsScreen) {
  CSpritePtr sprite = Red();
  Gfx::SetScreen(nullptr);
  sprite->SetX(9);
  myLayer->DrawFrame();
  sprite.Reset();
  Gfx::SetScreen(&myScreen.Picture());
  myLayer->DrawFrame();
  EXPECT_EQ(myScreen.At(2, 2), 0U) << "nobody draws it any more";
}

}  // namespace
}  // namespace vask
