#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "gfx/animationupdator.h"
#include "gfx/externalanimator.h"
#include "gfx/sprite.h"
#include "gfx/spritemasker.h"

namespace vask {
namespace {

constexpr unsigned kNearWrap = 4294967000U;

struct CProbe : ISpriteMasker {
  CProbe(CSprite* sprite, std::function<void(float)> what)
      : ISpriteMasker(sprite), action(std::move(what)) {}
  void Apply(float value) override {
    const auto copy = action;  // which may delete the probe
    copy(value);
  }
  std::function<void(float)> action;
};

class Animator : public testing::Test {
 protected:
  ~Animator() override { CAnimationUpdator::DeleteSingleton(); }

  CExternalAnimator* Start(unsigned duration, const std::string& expression = "",
                           bool clamp = false) {
    myValues.clear();
    const auto note = [this](float value) { myValues.push_back(value); };
    return new CExternalAnimator(new CProbe(nullptr, note), duration, expression, clamp);
  }
  void Update(unsigned time) { myUpdator->Update(time); }

  std::vector<float> myValues;
  CAnimationUpdator* myUpdator = CAnimationUpdator::GetSingletonPtr();
};

TEST_F(Animator, ExpressionGivesTheValue) {
  const struct {
    std::string expression;
    bool clamp;
    unsigned time;  // of 1000000
    float value;
  } cases[] = {{"t*t", false, 500000, 0.25F},
               {"sin(t*3.14)*2", false, 500000, 2},
               {"sin(t*3.14)*2", true, 500000, 1},
               {"t-2", true, 500000, 0},
               {"t-2", false, 500000, -1.5F},
               {"t*1000000", false, 12, 12},  // not 1.2e-05, which no calculator reads
               {"1-t", false, 99, 0.999901F}};
  for (const auto& row : cases) {
    Update(0);
    const std::unique_ptr<CExternalAnimator> animator(Start(1000000, row.expression, row.clamp));
    Update(row.time);
    EXPECT_NEAR(myValues.back(), row.value, 1e-3F) << row.expression << " " << row.clamp;
  }
}

// What is done at 500 of 1000 ms keeps the value of that moment and moves the end.
TEST_F(Animator, SpeedAndPauseMoveTheEnd) {
  const struct {
    std::vector<float> factors;  // none: a pause of 300 ms
    unsigned end;
  } cases[] = {{{2}, 750},        {{0.5F}, 1500},    {{4, 0.5F}, 1500}, {{2, 1}, 1000},
               {{1}, 1000},       {{0}, 1000},       {{-2}, 1000},      {{NAN}, 1000},
               {{}, 1300},        {{2, 1, 1}, 1000}, {{1e30F}, 550},    {{1e-40F}, 1000},
               {{INFINITY}, 1000}};
  for (const unsigned start : {0U, kNearWrap}) {
    for (const auto& [factors, end] : cases) {
      Update(start);
      CExternalAnimator* animator = Start(1000);
      Update(start + 500);
      for (const float factor : factors) {
        animator->SetTimeMultiplier(factor);
      }
      if (factors.empty()) {
        animator->Pause();
        Update(start + 700);
        Update(start + 800);
        animator->Resume();
      }
      EXPECT_EQ(myValues, (std::vector<float>{0.5F}));
      unsigned time = myUpdator->GetTime();
      while (myValues.back() < 1.0F && time - start < 9000) {
        Update(time += 50);
      }
      Update(time + 1);
      EXPECT_EQ(std::count(myValues.begin(), myValues.end(), 1.0F), 1) << "it is gone";
      EXPECT_EQ(time - start, end) << (factors.empty() ? 0 : factors[0]);
    }
  }
  const std::unique_ptr<CExternalAnimator> still(Start(0));
  still->SetTimeMultiplier(0.5F);
  Update(100000);
  EXPECT_TRUE(myValues.empty()) << "without a duration it never ends";
}

TEST_F(Animator, MaskersMoveAndFade) {
  CSprite sprite;
  sprite.SetRect({10, -20, 7, 8});
  CSpriteMoveToUpdator move(&sprite, 21, -31);
  const std::tuple<float, int, int> places[] = {{0.0F, 10, -20}, {0.5F, 15, -25}, {1.0F, 21, -31},
                                                {2.0F, 32, -42}, {-0.5F, 5, -15}, {NAN, 10, -20}};
  for (const auto& [value, x, y] : places) {
    move.Apply(value);
    EXPECT_EQ(sprite.GetRect(), (CRect<int>{x, y, 7, 8})) << value;
  }
  move.Apply(1e30F);  // far away, and no overflow
  EXPECT_GT(sprite.GetX(), 10000);
  sprite.SetAlpha(200);
  CSpriteSetAlphaUpdator fade(&sprite, 0, 2);
  std::string alphas;
  for (const float value : {0.1F, 0.25F, 0.5F, 0.75F, 1.0F, 1.0F}) {
    fade.Apply(value);
    alphas += std::to_string(sprite.GetAlpha()) + " ";
  }
  EXPECT_EQ(alphas, "200 150 150 50 50 0 ");
}

TEST_F(Animator, UpdatesMayDeleteAnimatorsAndSprites) {
  auto first = std::make_unique<CSprite>();
  auto second = std::make_unique<CSprite>();
  const auto living = std::make_shared<int>();  // each animator holds it
  std::string log;
  const auto add = [&, living](CSprite* sprite, char name, unsigned duration,
                               const std::function<void()>& action) {
    const auto note = [&log, living, name, action](float) {
      log += name;
      action();
    };
    return new CExternalAnimator(new CProbe(sprite, note), duration, "", false);
  };
  CExternalAnimator* victim = nullptr;
  CExternalAnimator* self = nullptr;
  const auto nothing = [] {};
  add(nullptr, 'a', 9, [&] { second.reset(); });
  add(second.get(), 'x', 9, nothing);
  add(first.get(), 'b', 9, [&] { first.reset(); });  // and with it its own place in the list
  add(nullptr, 'c', 1, [&] { add(nullptr, 'n', 9, nothing); });
  victim = add(nullptr, 'v', 9, nothing);
  add(nullptr, 'd', 9, [&] { delete std::exchange(victim, nullptr); });
  self = add(nullptr, 'e', 9, [&] { delete self; });
  add(nullptr, 'f', 9, nothing);
  Update(1);
  EXPECT_EQ(log, "abcvde") << "who deletes itself ends the walk";
  Update(2);
  EXPECT_EQ(log, "abcvdeadfn");
  const auto holders = living.use_count();
  CAnimationUpdator::DeleteSingleton();
  EXPECT_EQ(holders - living.use_count(), 4) << "the scheduler owns its animators";
}

}  // namespace
}  // namespace vask
