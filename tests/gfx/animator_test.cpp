#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <memory>
#include <vector>

#include "gfx/animationupdator.h"
#include "gfx/externalanimator.h"
#include "gfx/sprite.h"
#include "gfx/spritemasker.h"

namespace vask {
namespace {

struct CProbe : ISpriteMasker {
  CProbe(CSprite* sprite, std::function<void(float)> what)
      : ISpriteMasker(sprite), action(std::move(what)) {}
  void Apply(float value) override { std::function(action)(value); }  // which may delete the probe
  std::function<void(float)> action;
};

class Animator : public testing::Test {
 protected:
  ~Animator() override { CAnimationUpdator::DeleteSingleton(); }

  CExternalAnimator* Start(unsigned duration, const char* expression = "", bool clamp = false) {
    myValues.clear();
    const auto note = [this](float value) { myValues.push_back(value); };
    return new CExternalAnimator(new CProbe(nullptr, note), duration, expression, clamp);
  }
  void Update(unsigned time) { myUpdator->Update(time); }

  std::vector<float> myValues;
  CAnimationUpdator* myUpdator = CAnimationUpdator::GetSingletonPtr();
};

TEST_F(Animator, ExpressionGivesTheValue) {
  // clang-format off
  const std::tuple<const char*, bool, unsigned, float> cases[] = {  // clamped, time of 1000000, value
      {"t*t", false, 500000, 0.25F}, {"sin(t*3.14)*2", false, 500000, 2}, {"sin(t*3.14)*2", true, 500000, 1},
      {"t-2", true, 500000, 0}, {"t*1000000", false, 12, 12}};  // not 1.2e-05, which no calculator reads
  // clang-format on
  for (const auto& [expression, clamp, time, value] : cases) {
    Update(0);
    const std::unique_ptr<CExternalAnimator> animator(Start(1000000, expression, clamp));
    Update(time);
    EXPECT_NEAR(myValues.back(), value, 1e-3F) << expression << clamp;
  }
}

// What is done at 500 of 1000 ms keeps the value of that moment and moves the end.
TEST_F(Animator, SpeedAndPauseMoveTheEnd) {
  // clang-format off
  const std::pair<std::vector<float>, unsigned> cases[] = {  // factors (none: a pause of 300 ms), end
      {{2}, 750}, {{0.5F}, 1500}, {{4, 0.5F}, 1500}, {{2, 1}, 1000}, {{2, 1, 1}, 1000}, {{0}, 1000},
      {{-2}, 1000}, {{NAN}, 1000}, {{INFINITY}, 1000}, {{1e30F}, 550}, {{1e-40F}, 1000}, {{}, 1300}};
  // clang-format on
  for (const unsigned start : {0U, 4294967000U}) {
    for (const auto& [factors, end] : cases) {
      Update(start);
      CExternalAnimator* animator = Start(1000);
      Update(start + 500);
      for (const float factor : factors) {
        animator->SetTimeMultiplier(factor);
      }
      if (factors.empty()) {
        animator->Pause();
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
}

TEST_F(Animator, MaskersMoveAndFade) {
  CSprite sprite;
  sprite.SetRect({10, -20, 7, 8});
  CSpriteMoveToUpdator move(&sprite, 21, -31);
  const std::tuple<float, int, int> places[] = {
      {0.0F, 10, -20}, {0.5F, 15, -25}, {1.0F, 21, -31}, {2.0F, 32, -42}, {NAN, 10, -20}};
  for (const auto& [value, x, y] : places) {
    move.Apply(value);
    EXPECT_EQ(sprite.GetRect(), (CRect<int>{x, y, 7, 8})) << value;
  }
  sprite.SetAlpha(200);
  CSpriteSetAlphaUpdator fade(&sprite, 0, 2);
  std::vector<int> alphas;
  for (const float value : {0.1F, 0.25F, 0.5F, 0.75F, 1.0F, 1.0F}) {
    fade.Apply(value);
    alphas.push_back(sprite.GetAlpha());
  }
  EXPECT_EQ(alphas, (std::vector<int>{200, 150, 150, 50, 50, 0}));
}

TEST_F(Animator, UpdatesMayDeleteAnimatorsAndSprites) {
  auto first = std::make_unique<CSprite>();
  auto second = std::make_unique<CSprite>();
  std::string log;
  const auto add = [&](CSprite* sprite, char name, const std::function<void()>& action = nullptr) {
    const auto note = [&log, name, action](float) {
      log += name;
      action ? action() : void();
    };
    return new CExternalAnimator(new CProbe(sprite, note), name == 'c' ? 1 : 9, "", false);
  };
  CExternalAnimator* victim = nullptr;
  CExternalAnimator* self = nullptr;
  add(nullptr, 'a', [&] { second.reset(); });
  add(second.get(), 'x');
  add(first.get(), 'b', [&] { first.reset(); });  // and with it its own place in the list
  add(nullptr, 'c', [&] { add(nullptr, 'n'); });
  victim = add(nullptr, 'v');
  add(nullptr, 'd', [&] { delete std::exchange(victim, nullptr); });
  self = add(nullptr, 'e', [&] { delete self; });
  add(nullptr, 'f');
  Update(1);
  EXPECT_EQ(log, "abcvde") << "who deletes itself ends the walk";
  Update(2);
  EXPECT_EQ(log, "abcvdeadfn");
}

}  // namespace
}  // namespace vask
