#include "gfx/sprite/sprite.h"

#include "gfx/sprite/guielement.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/sprite/spritetypes.h"
#include "input/buttons.h"
#include "input/mouse.h"
#include "support/files.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <climits>
#include <cmath>
#include <functional>
#include <sstream>

namespace vask::test {
namespace {

const CColor kRed(255, 0, 0);

CSpritePtr Load(const std::string& file) {
  return CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(file));
}
CSpritePtr LoadXmlText(const std::string& type, const std::string& fields) {
  WriteFile("s.xml", "<Sprite type=\"" + type + "\" >" + fields + "</Sprite>");
  return Load("s.xml");
}

struct Sprite : testing::Test {
  Sprite() { ImagePtr(NewPicture(40, 30, kRed))->SaveToFile("a.bmp"); }

  CTestScreen myScreen{80, 60};
  CScreenLayer* myLayer = CScreenLayer::GetSingletonPtr();
};

// Its rectangle, the one outside which it is hidden, its depth and its alpha.
std::string State(const CSprite& sprite) {
  std::ostringstream text;
  for (const Rect& r : {sprite.GetRect(), sprite.GetScrollRect()}) {
    text << r.x << "," << r.y << " " << r.w << "x" << r.h << "; ";
  }
  text << sprite.GetZ() << "; " << sprite.GetAlpha();
  return text.str();
}

TEST_F(Sprite, FileGivesTheFieldsThatItHas) {
  const std::string a = "<ImageFilename>a.bmp</ImageFilename>";
  // As it is read, and as it is written and read again.
  const auto state = [](const std::string& fields) {
    const CSpritePtr sprite = LoadXmlText("sprite_base", fields);
    EXPECT_EQ(sprite->GetName(), "s.xml");
    SaveXml(*sprite, "written.xml");
    EXPECT_EQ(State(*Load("written.xml")), State(*sprite)) << fields;
    return State(*sprite);
  };
  EXPECT_EQ(state(""), "0,0 0x0; 0,0 0x0; 100; 255");
  EXPECT_EQ(state("<ImageFilename>no.bmp</ImageFilename>"), "0,0 0x0; 0,0 0x0; 100; 255");
  EXPECT_EQ(state(a + "<Alpha>300</Alpha>"), "0,0 40x30; 0,0 0x0; 100; 255");
  EXPECT_EQ(state(a + "<Alpha>-5</Alpha>"), "0,0 40x30; 0,0 0x0; 100; 0");
  EXPECT_EQ(state(a + R"(<ImageRect x="7" y="8" />)"), "7,8 40x30; 0,0 0x0; 100; 255");
  EXPECT_EQ(state(a + R"(<ImageRect w="9" /><Z>-3</Z>)"), "0,0 9x30; 0,0 0x0; -3; 255");
  EXPECT_EQ(state(a + R"(<ScrollRect x="5" y="5" />)"), "0,0 40x30; 0,0 0x0; 100; 255");
  EXPECT_EQ(state(a + R"(<ScrollRect w="6" /><Alpha>99</Alpha>)"), "0,0 40x30; 0,0 6x0; 100; 99");
}

TEST_F(Sprite, KindsAreMadeByNumberAndName) {
  const char* const names[] = {"sprite_base", "sprite_layer", "sprite_screenlayer", "sprite_text",
                               "sprite_animated"};
  for (int number = 0; number < 5; ++number) {
    const CSpritePtr sprite = LoadXmlText(names[number], "");
    EXPECT_EQ(sprite->GetTypeId(), number);
    EXPECT_EQ(CSpritePtr(CreateSprite(number))->GetTypeId(), number);
    EXPECT_EQ(sprite.Get() == myLayer, number == kScreenLayerSprite.number);
    SaveXml(*sprite, "written.xml");
    EXPECT_EQ(Load("written.xml")->GetTypeId(), number);
  }
  EXPECT_EQ(LoadXmlText("sprite_none", "")->GetTypeId(), kBaseSprite.number);
  EXPECT_TRUE(Load("none.xml")->IsEmpty());
  EXPECT_EQ(CreateSprite(5), nullptr);
}

TEST_F(Sprite, TellsHowItHasChangedSinceItWasDrawn) {
  ImagePtr(NewPicture(10, 20, kRed))->SaveToFile("door.bmp");
  WriteFile("door.xml", "<Sprite><ImageFilename>door.bmp</ImageFilename></Sprite>");

  CSpritePtr door(CSpriteFactory::GetSingletonPtr()->Load("door.xml"));
  door->SetPosition(0, -10);

  CSpriteLayer signs;
  signs.SetZ(50);
  signs.SetParent(CScreenLayer::GetSingletonPtr());
  signs.AddChild(door.Get());

  myLayer->DrawFrame();
  EXPECT_EQ(ScreenColor(9, 9), 0xFF0000U);
  EXPECT_EQ(ScreenColor(9, 10), 0U);
  EXPECT_EQ(signs.GetDepthMark(), 99) << "the rearmost has been drawn";
  door->SetRotation(0.5F);
  door->SetSize(10, 20);
  door->SetAlpha(255);
  EXPECT_EQ(door->GetDirtyState(), CSprite::kUnchanged) << "it was so before";
  door->SetOwnsBackBuffer(false);
  EXPECT_EQ(door->GetDirtyState(), CSprite::kChangedInPlace);
  door->SetY(7);
  EXPECT_EQ(door->GetDirtyState(), CSprite::kMoved);
  EXPECT_EQ(door->GetRectFor(1), (Rect{0, -10, 10, 20}));
  EXPECT_EQ(door->GetRectFor(0), (Rect{0, 7, 10, 20}));
  EXPECT_EQ(signs.GetDepthMark(), door->GetZ());
}

TEST_F(Sprite, CopyIsMadeFromSizeRotationAndAlphaInAnyOrder) {
  const std::function<void(CSprite&)> changes[] = {[](CSprite& s) { s.SetSize(20, 10); },
                                                   [](CSprite& s) { s.SetRotation(90.0F); },
                                                   [](CSprite& s) { s.SetAlpha(100); }};
  int order[] = {0, 1, 2};
  do {
    const CSpritePtr sprite = Load("a.bmp");
    std::ranges::for_each(order, [&](int i) { changes[i](*sprite); });
    EXPECT_NEAR(sprite->GetRect().w, 10, 4) << "a wide picture, turned, is tall";
    EXPECT_NEAR(sprite->GetRect().h, 20, 4);
    EXPECT_EQ(sprite->GetImage()->GetPixel(5, 10).a, 100);
    IPixel* const loaded = NewPicture(6, 7, kRed);
    sprite->SetImage(loaded);
    EXPECT_EQ(sprite->GetImage(), loaded) << "all three are forgotten";
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
  sprite->SetImage(NewPicture(40, 30, kRed));
  sprite->SetImageRect({30, 20, 90, 90});
  EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 10, 10})) << "cut to the sheet";
  sprite->SetSize(-1, 7);
  EXPECT_EQ(sprite->GetRect(), Rect{}) << "a size of nothing";
  EXPECT_FALSE(sprite->IsEmpty());
  sprite->SetImage(NewPicture(1, 1, kRed));
  sprite->SetSize(4, 7);
  EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 4, 7}));
}

TEST_F(Sprite, LeavesTheMarginsOfAnUnchangedPictureAlone) {
  CSprite sprite;
  sprite.SetImage(NewPicture(20, 10, CColor(0, 0, 0, 0)));
  sprite.GetImage()->PutPixel(5, 5, kRed);
  sprite.SetParent(myLayer);
  myLayer->DrawFrame();
  myScreen.Picture().PutPixel(4, 5, CColor(0, 0, 9));
  sprite.SetVisible(false);
  EXPECT_EQ(ScreenColor(4, 5), 9U);
}

TEST_F(Sprite, IsDraggedByItsGuiElementWithTheLeftButton) {
  CSprite sprite;
  sprite.SetRect({10, 20, 30, 40});
  zogui::CGuiElement element(&sprite);
  CMouse& mouse = *CMouse::GetSingletonPtr();
  mouse.OnMouseMove(16, 31);
  mouse.OnMouseButtonDown(kLeftButton);
  mouse.OnMouseMove(26, 51);
  mouse.OnMouseButtonUp(kRightButton);
  mouse.OnMouseMove(27, 50);
  EXPECT_EQ(element.GetRect(), (Rect{21, 39, 30, 40}));
  mouse.OnMouseButtonUp(kLeftButton);
  element.SetDraggable(false);
  mouse.OnMouseButtonDown(kLeftButton);
  mouse.OnMouseMove(50, 60);
  EXPECT_EQ(sprite.GetRect(), (Rect{21, 39, 30, 40})) << "dropped";
  CMouse::DeleteSingleton();
}

}  // namespace
}  // namespace vask::test
