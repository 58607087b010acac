#include "gfx/sprite/sprite.h"

#include "gfx/sprite/spritefactory.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>

namespace vask {
namespace {

using test::NewPicture;
using Rect = CRect<int>;

const CColor kRed(255, 0, 0);

CSpritePtr Load(const std::string& file) {
  return CSpritePtr(CSpriteFactory::GetSingletonPtr()->Load(file));
}
CSpritePtr LoadXmlText(const std::string& type, const std::string& fields) {
  std::ofstream("s.xml") << "<Sprite type=\"sprite_" << type << "\" >" << fields << "</Sprite>";
  return Load("s.xml");
}

class Sprite : public testing::Test {
 protected:
  Sprite() { Gfx::ImagePtr(NewPicture(40, 30, kRed))->SaveToFile("a.bmp"); }

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
  const std::string a = "<ImageFilename>a.bmp</ImageFilename>";
  const std::tuple<std::string, Rect, Rect, int, int> files[] = {
      // the last two: z, alpha
      // clang-format off
      {"", {}, {}, 100, 255}, {a + "<Alpha>300</Alpha>", {0, 0, 40, 30}, {}, 100, 255},
      {a + "<Alpha>-5</Alpha>", {0, 0, 40, 30}, {}, 100, 0},
      {a + "<ImageRect x=\"7\" y=\"8\" />", {7, 8, 40, 30}, {}, 100, 255},
      {a + "<ImageRect w=\"9\" /><Z>-3</Z><Alpha>99</Alpha>", {0, 0, 9, 30}, {}, -3, 99},
      {a + "<ScrollRect x=\"5\" y=\"5\" w=\"0\" h=\"0\" />", {0, 0, 40, 30}, {}, 100, 255},
      {a + "<ScrollRect w=\"6\" />", {0, 0, 40, 30}, {0, 0, 6, 0}, 100, 255},
      {"<ImageFilename>none.bmp</ImageFilename><ImageRect w=\"9\" />", {0, 0, 9, 0}, {}, 100, 255}};
  // clang-format on
  for (const auto& [fields, rect, scroll, z, alpha] : files) {
    CSpritePtr sprite = LoadXmlText("base", fields);
    for (int round = 0; round < 2; ++round) {  // read, then written and read back
      EXPECT_TRUE(sprite->GetRect() == rect && sprite->GetScrollRect() == scroll) << fields;
      EXPECT_TRUE(sprite->GetZ() == z && sprite->GetAlpha() == alpha) << fields << round;
      ASSERT_TRUE(SaveXml(*sprite, "written.xml"));
      sprite = Load("written.xml");
    }
  }
  int kind = 0;
  for (const char* type : {"base", "layer", "screenlayer", "text", "animated"}) {
    EXPECT_EQ(LoadXmlText(type, "")->GetTypeId(), kind++) << type;
  }
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
    EXPECT_EQ(sprite->GetImage()->GetPixel(5, 10).a, 100);
    sprite->SetSize(40, 30), sprite->SetAlpha(255);
    sprite->SetRotation(360.0F), sprite->SetRotation(NAN);
    EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 42, 32})) << "SDL_gfx makes room for the turn";
    changes[order[0]](*sprite);
    IPixel* const loaded = NewPicture(6, 7, kRed);
    sprite->SetImage(loaded);
    EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 6, 7})) << "all three are forgotten";
    EXPECT_EQ(sprite->GetImage()->GetPixel(3, 3).a, 255);
    sprite->SetSize(0, 7);
    EXPECT_TRUE(sprite->GetImage()->IsEmpty()) << "a size of nothing";
    sprite->SetImage(loaded);
    EXPECT_EQ(sprite->GetRect(), (Rect{0, 0, 6, 7})) << "shown again";
  } while (std::next_permutation(std::begin(order), std::end(order)));
}

TEST_F(Sprite, StandsInItsLayerByDepthTheNewestInFrontOfItsEquals) {
  std::vector<CSpritePtr> sprites;
  for (const int z : {50, 100, 50, 7, 100, -2147483647 - 1, 2147483647}) {
    sprites.push_back(Red(z));
    sprites.back()->SetName(std::to_string(sprites.size() - 1));
  }
  const auto order = [&] {
    std::string names;
    std::ranges::for_each(myLayer->GetChildren(), [&](auto* child) { names += child->GetName(); });
    return names;
  };
  EXPECT_EQ(order(), "5320416");
  sprites[1]->SetZ(50);
  EXPECT_EQ(order(), "5312046");
  for (const bool visible : {false, false, true, true}) {
    sprites[2]->SetVisible(visible), sprites[2]->SetZ(100), sprites[2]->SetX(9);
    EXPECT_EQ(order(), visible ? "5310246" : "531046");
  }
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
