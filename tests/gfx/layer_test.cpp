#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "gfx/screenlayer.h"
#include "support/logcapture.h"
#include "support/testpicture.h"

namespace vask {
namespace {

using test::CLogCapture;
using test::CTestScreen;
using test::NewSprite;

const CColor kRed(255, 0, 0);
const CColor kGreen(0, 255, 0);
const CColor kMagenta(255, 0, 255);

class Layer : public testing::Test {
 protected:
  void Draw() { myLayer->DrawFrame(); }

  CTestScreen myScreen{40, 30};
  CScreenLayer* myLayer = CScreenLayer::GetSingletonPtr();
};

TEST_F(Layer, SortsByDepthWithTheNewestInFrontOfItsEquals) {
  std::vector<std::unique_ptr<CSprite>> sprites;
  for (const int z : {50, 100, 50, 7, 100, -2147483647 - 1, 2147483647}) {
    sprites.push_back(std::make_unique<CSprite>());
    sprites.back()->SetZ(z);
    sprites.back()->SetParent(myLayer);
  }
  const auto order = [&] {
    std::string text;
    for (const CSprite* child : myLayer->GetChildren()) {
      for (std::size_t i = 0; i < sprites.size(); ++i) {
        text += sprites[i].get() == child ? std::to_string(i) : "";
      }
    }
    return text;
  };
  EXPECT_EQ(order(), "5320416");
  sprites[0]->SetZ(100);
  EXPECT_EQ(order(), "5320416") << "in front of the others at 100";
  sprites[2]->SetVisible(false);
  EXPECT_EQ(order(), "530416");
  sprites[2]->SetZ(100);
  sprites[2]->SetVisible(true);
  EXPECT_EQ(order(), "5320416");
  sprites[6]->SetParent(myLayer);
  EXPECT_EQ(order(), "5320416");
  Draw();
}

TEST_F(Layer, HidingTwiceIsHidingOnce) {
  const CSpritePtr sprite = NewSprite(myLayer, {0, 0, 5, 5}, kRed);
  for (int i = 0; i < 2; ++i) {
    sprite->SetVisible(false);
    EXPECT_EQ(sprite->GetParent(), nullptr);
    EXPECT_EQ(sprite->GetDirtyState(), 0);
  }
  Draw();
  EXPECT_EQ(myScreen.At(2, 2), 0U);
  for (int i = 0; i < 2; ++i) {
    sprite->SetVisible(true);
    EXPECT_EQ(myLayer->GetChildren().size(), 1U);
  }
  Draw();
  EXPECT_EQ(myScreen.At(2, 2), 0xFF0000U);
}

TEST_F(Layer, HiddenSpriteForgetsALayerThatItLeaves) {
  CSpriteLayer other;
  CSpritePtr moved = NewSprite(myLayer, {0, 0, 5, 5}, kRed);
  moved->SetVisible(false);
  moved->SetParent(&other);
  moved->SetVisible(true);
  EXPECT_EQ(moved->GetParent(), &other);
  CSpritePtr dead = NewSprite(myLayer, {0, 0, 5, 5}, kRed);
  dead->SetVisible(false);
  dead.Reset();
  myLayer->ShowChild(moved.Get());
  EXPECT_TRUE(myLayer->GetChildren().empty());
}

TEST_F(Layer, DyingLayerLeavesItsChildrenWithoutOne) {
  auto layer = std::make_unique<CSpriteLayer>();
  layer->SetParent(myLayer);
  const CSpritePtr shown = NewSprite(layer.get(), {0, 0, 5, 5}, kRed);
  const CSpritePtr hidden = NewSprite(layer.get(), {9, 0, 5, 5}, kRed);
  hidden->SetVisible(false);
  Draw();
  layer.reset();
  EXPECT_EQ(shown->GetParent(), nullptr);
  hidden->SetVisible(true);
  EXPECT_EQ(hidden->GetParent(), nullptr);
  Draw();
  EXPECT_EQ(myScreen.At(2, 2), 0U) << "nobody draws them any more";
}

TEST_F(Layer, CannotBePutIntoItself) {
  CSpriteLayer outer;
  CSpriteLayer inner;
  outer.SetParent(myLayer);
  inner.SetParent(&outer);
  outer.SetParent(&inner);
  outer.SetParent(&outer);
  EXPECT_EQ(outer.GetParent(), myLayer);
  inner.SetVisible(false);
  outer.SetParent(&inner);
  EXPECT_EQ(outer.GetParent(), myLayer);
}

TEST_F(Layer, DrawsAllOnceForEachReason) {
  const CSpritePtr sprite = NewSprite(myLayer, {0, 0, 5, 5}, kRed);
  CLogCapture log;
  const auto frames = [&] {
    log.Clear();
    Draw();
    Draw();
    return log.Count("drawing all");
  };
  EXPECT_EQ(frames(), 1U) << "the first frame";
  sprite->SetX(3);
  EXPECT_EQ(frames(), 0U);
  myLayer->RefreshAll();
  EXPECT_EQ(frames(), 1U);
  myScreen.Resize(50, 30);
  EXPECT_EQ(frames(), 1U);
  sprite->SetX(0);
  Draw();
  EXPECT_EQ(myScreen.At(6, 2), 0U) << "the background is known after drawing all";
}

TEST_F(Layer, RestoresMagentaExactly) {
  const CSpritePtr back = NewSprite(myLayer, {0, 0, 40, 30}, kMagenta, 9);
  const CSpritePtr front = NewSprite(myLayer, {5, 5, 9, 9}, kGreen, 1);
  Draw();
  front->SetX(20);
  Draw();
  EXPECT_EQ(myScreen.At(7, 7), 0xFF00FFU);
  EXPECT_EQ(myScreen.At(22, 7), 0x00FF00U);
}

TEST_F(Layer, SpriteWithoutABackBufferLeavesATrail) {
  const CSpritePtr sprite = NewSprite(myLayer, {0, 0, 5, 5}, kRed);
  sprite->SetOwnsBackBuffer(false);
  Draw();
  sprite->SetX(20);
  Draw();
  EXPECT_EQ(myScreen.At(2, 2), 0xFF0000U);
  sprite->SetOwnsBackBuffer(true);
  for (const int x : {10, 30}) {
    sprite->SetX(x);
    Draw();
  }
  EXPECT_EQ(myScreen.At(12, 2), 0U);
}

class CCountingSprite : public CSprite {
 public:
  void Paint(CSprite* canvas) override {
    ++painted;
    CSprite::Paint(canvas);
  }
  int painted = 0;
};

TEST_F(Layer, PaintsOnlyWhatChangedAndWhatIsInFrontOfIt) {
  std::vector<CSpritePtr> sprites;
  for (const int z : {1, 2, 2, 3}) {
    sprites.push_back(NewSprite<CCountingSprite>(myLayer, {0, 0, 5, 5}, kRed, z));
  }
  Draw();
  const auto painted = [&] {
    std::string text;
    for (const CSpritePtr& sprite : sprites) {
      int& count = dynamic_cast<CCountingSprite&>(*sprite).painted;
      text += std::to_string(std::exchange(count, 0));
    }
    return text;
  };
  EXPECT_EQ(painted(), "1111");
  Draw();
  EXPECT_EQ(painted(), "0000");
  sprites[2]->SetX(2);
  sprites[2]->SetX(3);
  Draw();
  EXPECT_EQ(painted(), "1010") << "the third lies in front of the second";
  sprites[3]->SetX(100);
  Draw();
  painted();
  sprites[0]->SetX(1);
  Draw();
  EXPECT_EQ(painted(), "1000");
  sprites[0]->SetX(100);
  Draw();
  painted();
  sprites[1]->SetX(1);
  Draw();
  EXPECT_EQ(painted(), "0110") << "what is off the screen waits there";
}

TEST_F(Layer, SpritesMayChangeAndDieAfterTheScreen) {
  CSpritePtr sprite = NewSprite(myLayer, {0, 0, 5, 5}, kRed);
  Draw();
  Gfx::SetScreen(nullptr);
  sprite->SetX(9);
  Draw();
  sprite.Reset();
  Gfx::SetScreen(&myScreen.Picture());
  Draw();
  EXPECT_EQ(myScreen.At(2, 2), 0U);
}

}  // namespace
}  // namespace vask
