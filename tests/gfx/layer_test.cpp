#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "gfx/screenlayer.h"
#include "support/logcapture.h"
#include "support/testpicture.h"

namespace vask {
namespace {

using test::NewSprite;

const CColor kRed(255, 0, 0);

class CCountingSprite : public CSprite {
 public:
  void Paint(CSprite* canvas) override {
    ++painted;
    CSprite::Paint(canvas);
  }
  int painted = 0;
};

class Layer : public testing::Test {
 protected:
  void Draw() { myLayer->DrawFrame(); }
  CSpritePtr Red(int z = 100) { return NewSprite<CCountingSprite>(myLayer, {0, 0, 5, 5}, kRed, z); }

  test::CTestScreen myScreen{40, 30};
  CScreenLayer* myLayer = CScreenLayer::GetSingletonPtr();
};

TEST_F(Layer, SortsByDepthWithTheNewestInFrontOfItsEquals) {
  std::vector<CSpritePtr> sprites;
  for (const int z : {50, 100, 50, 7, 100, -2147483647 - 1, 2147483647}) {
    sprites.push_back(Red(z));
  }
  const auto order = [&] {
    std::string text;
    for (const CSprite* child : myLayer->GetChildren()) {
      for (std::size_t i = 0; i < sprites.size(); ++i) {
        text += sprites[i].Get() == child ? std::to_string(i) : "";
      }
    }
    return text;
  };
  EXPECT_EQ(order(), "5320416");
  sprites[1]->SetZ(50);
  EXPECT_EQ(order(), "5312046");
  sprites[2]->SetVisible(false);
  EXPECT_EQ(order(), "531046");
  sprites[2]->SetZ(100);
  sprites[2]->SetVisible(true);
  EXPECT_EQ(order(), "5310246");
  Draw();
}

TEST_F(Layer, HidingTwiceIsHidingOnceAndRemembersTheLayer) {
  const CSpritePtr sprite = Red();
  for (const bool visible : {false, false, true, true}) {
    sprite->SetVisible(visible);
    EXPECT_EQ(sprite->GetParent() == myLayer, visible);
    EXPECT_EQ(myLayer->GetChildren().size(), visible ? 1U : 0U);
    Draw();
    EXPECT_EQ(myScreen.At(2, 2), visible ? 0xFF0000U : 0U);
  }
}

TEST_F(Layer, SpritesAndLayersDieInAnyOrder) {
  auto inner = std::make_unique<CSpriteLayer>();
  inner->SetParent(myLayer);
  CSpriteLayer innermost;
  innermost.SetParent(inner.get());
  innermost.SetVisible(false);
  inner->SetParent(&innermost);
  inner->SetParent(inner.get());
  EXPECT_EQ(inner->GetParent(), myLayer) << "no layer can be put into itself";
  const CSpritePtr shown = Red();
  const CSpritePtr hidden = Red();
  shown->SetParent(inner.get());
  hidden->SetParent(inner.get());
  hidden->SetVisible(false);
  CSpritePtr dead = Red();
  dead->SetVisible(false);
  dead.Reset();
  Draw();
  inner.reset();
  hidden->SetVisible(true);
  EXPECT_EQ(shown->GetParent(), nullptr);
  EXPECT_EQ(hidden->GetParent(), nullptr);
  CSpritePtr late = Red();
  Draw();
  Gfx::SetScreen(nullptr);
  late->SetX(9);
  Draw();
  late.Reset();
  Gfx::SetScreen(&myScreen.Picture());
  Draw();
  EXPECT_EQ(myScreen.At(2, 2), 0U) << "nobody draws them any more";
}

TEST_F(Layer, DrawsAllOnceForEachReason) {
  const CSpritePtr sprite = Red();
  test::CLogCapture log;
  const auto frames = [&] {
    log.Clear();
    Draw();
    Draw();
    return log.Count("drawing all");
  };
  EXPECT_EQ(frames(), 1U) << "the first frame";
  sprite->SetAlpha(254);
  EXPECT_EQ(sprite->GetDirtyState(), 1) << "changed";
  sprite->SetX(3);
  EXPECT_EQ(sprite->GetDirtyState(), 2) << "moved";
  EXPECT_EQ(frames(), 0U);
  EXPECT_EQ(sprite->GetDirtyState(), 0);
  myLayer->RefreshAll();
  EXPECT_EQ(frames(), 1U);
  myScreen.Resize(50, 30);
  EXPECT_EQ(frames(), 1U);
  sprite->SetX(0);
  Draw();
  EXPECT_EQ(myScreen.At(6, 2), 0U) << "the background is known after drawing all";
}

TEST_F(Layer, PaintsOnlyWhatChangedAndWhatIsInFrontOfIt) {
  std::vector<CSpritePtr> sprites;
  for (const int z : {1, 2, 2, 3}) {
    sprites.push_back(Red(z));
  }
  const struct {
    std::size_t moved;
    int x;
    const char* painted;
  } steps[] = {{0, 0, "1111"}, {0, 0, "0000"}, {2, 3, "1010"},   {3, 100, "1111"},
               {0, 1, "1000"}, {1, 1, "1110"}, {0, 100, "1000"}, {1, 2, "0110"}};
  for (const auto& step : steps) {
    sprites[step.moved]->SetX(step.x);
    Draw();
    std::string painted;
    for (const CSpritePtr& sprite : sprites) {
      painted += std::to_string(std::exchange(dynamic_cast<CCountingSprite&>(*sprite).painted, 0));
    }
    EXPECT_EQ(painted, step.painted) << step.moved << " to " << step.x;
  }
}

}  // namespace
}  // namespace vask
