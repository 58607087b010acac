#include <gtest/gtest.h>

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

class CValueProbe : public ISpriteMasker {
 public:
  explicit CValueProbe(std::vector<float>& values) : ISpriteMasker(nullptr), myValues(values) {}
  void Apply(float value) override { myValues.push_back(value); }

 private:
  std::vector<float>& myValues;
};

class CActionAnimator : public IExternalAnimator {
 public:
  CActionAnimator(CSprite* sprite, std::function<void(CActionAnimator*)> action, int* deaths)
      : IExternalAnimator(sprite), myAction(std::move(action)), myDeaths(deaths) {}
  ~CActionAnimator() override { ++*myDeaths; }
  void Update(unsigned) override {
    const std::function<void(CActionAnimator*)> action = myAction;
    action(this);
  }

 private:
  std::function<void(CActionAnimator*)> myAction;
  int* myDeaths;
};

class Animator : public testing::Test {
 protected:
  ~Animator() override { CAnimationUpdator::DeleteSingleton(); }

  CExternalAnimator* Start(unsigned duration, const std::string& expression = "",
                           bool clamp = false) {
    myValues.clear();
    return new CExternalAnimator(new CValueProbe(myValues), duration, expression, clamp);
  }
  void Update(unsigned time) { myUpdator->Update(time); }
  // Updates until the animator has ended and answers when that was.
  unsigned FindEnd(unsigned from) {
    for (unsigned time = from; time - from < 10000; time += 50) {
      const std::size_t before = myValues.size();
      Update(time);
      if (myValues.size() == before) {
        return time - 50;
      }
    }
    return 0;
  }

  std::vector<float> myValues;
  CAnimationUpdator* myUpdator = CAnimationUpdator::GetSingletonPtr();
};

TEST_F(Animator, RunsFromZeroToOneAndEnds) {
  for (const unsigned start : {0U, 5000U, kNearWrap}) {
    for (const unsigned end : {1000U, 1001U, 9000U}) {
      Update(start);
      Start(1000);
      for (const unsigned time : {0U, 500U, 999U, end, end + 1}) {
        Update(start + time);
      }
      EXPECT_EQ(myValues, (std::vector<float>{0.0F, 0.5F, 0.999F, 1.0F})) << start << " " << end;
    }
  }
}

TEST_F(Animator, ExpressionGivesTheValue) {
  const std::vector<std::tuple<std::string, bool, unsigned, float>> cases = {
      {"t", false, 500000, 0.5F},
      {"t*t", false, 500000, 0.25F},
      {"sin(t*3.14)*2", false, 500000, 2},
      {"sin(t*3.14)*2", true, 500000, 1},
      {"t-2", true, 500000, 0},
      {"t-2", false, 500000, -1.5F},
      {"t*2", true, 999999, 1},
      {"cos(t)", false, 0, 1},
      {"t*1000000", false, 12, 12},
      {"1-t", false, 99, 0.999901F}};
  for (const auto& [expression, clamp, time, value] : cases) {
    Update(0);
    const std::unique_ptr<CExternalAnimator> animator(Start(1000000, expression, clamp));
    Update(time);
    ASSERT_EQ(myValues.size(), 1U);
    EXPECT_NEAR(myValues[0], value, 1e-4F + std::fabs(value) * 1e-3F) << expression << " " << time;
  }
}

TEST_F(Animator, PauseDelaysTheEnd) {
  Update(0);
  CExternalAnimator* animator = Start(1000);
  Update(400);
  animator->Pause();
  Update(500);
  Update(700);
  EXPECT_EQ(myValues.size(), 1U);
  animator->Resume();
  Update(800);
  EXPECT_FLOAT_EQ(myValues.back(), 0.5F);
  EXPECT_EQ(FindEnd(850), 1300U);
}

TEST_F(Animator, ChangeOfSpeedKeepsTheValueAndMovesTheEnd) {
  const float denormal = 1e-40F;
  const std::vector<std::pair<std::vector<float>, unsigned>> cases = {
      {{2.0F}, 750},        {{0.5F}, 1500},     {{4.0F, 0.5F}, 1500},
      {{2.0F, 1.0F}, 1000}, {{1.0F}, 1000},     {{2.0F, 1.0F, 1.0F}, 1000},
      {{0.0F}, 1000},       {{-2.0F}, 1000},    {{NAN}, 1000},
      {{INFINITY}, 1000},   {{denormal}, 1000}, {{1e30F}, 550}};
  for (const unsigned start : {0U, kNearWrap}) {
    for (const auto& [factors, end] : cases) {
      Update(start);
      CExternalAnimator* animator = Start(1000);
      Update(start + 500);
      for (const float factor : factors) {
        animator->SetTimeMultiplier(factor);
      }
      EXPECT_EQ(FindEnd(start + 550), start + end) << factors.front();
      EXPECT_EQ(myValues.back(), 1.0F);
    }
  }
  const std::unique_ptr<CExternalAnimator> slow(Start(1000));
  slow->SetTimeMultiplier(1e-30F);  // for ever
  Update(myUpdator->GetTime() + 1000000);
  EXPECT_LT(myValues.back(), 0.1F);
}

TEST_F(Animator, WithoutADurationItNeverEnds) {
  Update(0);
  const std::unique_ptr<CExternalAnimator> animator(Start(0));
  animator->SetTimeMultiplier(0.5F);
  Update(100000);
  EXPECT_TRUE(myValues.empty());
  EXPECT_FALSE(animator->IsFinished());
}

TEST_F(Animator, MaskersMoveAndFade) {
  CSprite sprite;
  sprite.SetPosition(10, -20);
  CSpriteMoveToUpdator move(&sprite, 21, -31);
  const std::vector<std::tuple<float, int, int>> places = {
      {0.0F, 10, -20}, {0.5F, 15, -25}, {1.0F, 21, -31}, {2.0F, 32, -42}, {-0.5F, 5, -15}};
  for (const auto& [value, x, y] : places) {
    move.Apply(value);
    EXPECT_EQ(sprite.GetX(), x) << value;
    EXPECT_EQ(sprite.GetY(), y) << value;
  }
  move.Apply(NAN);
  EXPECT_EQ(sprite.GetX(), 10);
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

TEST_F(Animator, DiesWithItsSprite) {
  auto sprite = std::make_unique<CSprite>();
  CSprite other;
  int deaths = 0;
  const auto nothing = [](CActionAnimator*) {};
  for (CSprite* target : {sprite.get(), &other, sprite.get()}) {
    new CActionAnimator(target, nothing, &deaths);
  }
  sprite.reset();
  EXPECT_EQ(deaths, 2);
  CAnimationUpdator::DeleteSingleton();
  EXPECT_EQ(deaths, 3) << "the scheduler owns its animators";
}

TEST_F(Animator, UpdatesMayDeleteAnimatorsAndSprites) {
  auto first = std::make_unique<CSprite>();
  auto second = std::make_unique<CSprite>();
  int deaths = 0;
  std::string log;
  const auto add = [&](CSprite* sprite, const char* name,
                       std::function<void(CActionAnimator*)> do_) {
    return new CActionAnimator(
        sprite,
        [&log, name, do_](CActionAnimator* self) {
          log += name;
          do_(self);
        },
        &deaths);
  };
  const auto nothing = [](CActionAnimator*) {};
  add(nullptr, "a", [&](CActionAnimator*) { second.reset(); });
  add(second.get(), "x", nothing);
  // It still uses itself after its sprite, and with it its place in the list, has gone.
  add(first.get(), "b", [&](CActionAnimator* self) { first.reset(), self->SetFinished(false); });
  add(nullptr, "c",
      [&](CActionAnimator* self) { add(nullptr, "n", nothing), self->SetFinished(true); });
  CActionAnimator* victim = add(nullptr, "v", nothing);
  add(nullptr, "d", [&](CActionAnimator*) { delete std::exchange(victim, nullptr); });
  add(nullptr, "e", [](CActionAnimator* self) { delete self; });
  add(nullptr, "f", nothing);
  Update(1);
  EXPECT_EQ(log, "abcvde") << "who deletes itself ends the walk";
  EXPECT_EQ(deaths, 5);
  log.clear();
  Update(2);
  EXPECT_EQ(log, "adfn");
}

}  // namespace
}  // namespace vask
