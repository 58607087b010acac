#include "gfx/animation/animatedsprite.h"
#include "gfx/animation/animationupdator.h"
#include "gfx/animation/externalanimator.h"
#include "gfx/sprite/spritemasker.h"
#include "kernel/taskfactory.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <fstream>
#include <functional>

namespace vask {
namespace {

using Times = std::vector<unsigned>;

// Stands in for the audio task and hears what it is sent.
struct CAudioProbe : CTask {
  static inline std::vector<std::string> sounds;
  void Update() override {}
  bool ExecuteCommand(const std::string& line) override {
    sounds.push_back(line);
    return true;
  }
};
const CTaskTypeRegistrar<CAudioProbe> kRegistrar("audioprobe");

std::string Sound(const std::string& file, const std::string& element = "Frame") {
  return "<" + element + " type=\"frame_sound\" sound_file=\"" + file + "\" ></" + element + ">";
}
std::string Rect(int x, int length, const std::string& wrapped = "") {
  return "<Frame type=\"frame_rect\" ><Rect x=\"" + std::to_string(x) +
         "\" w=\"9\" h=\"99\" ></Rect><FrameLength>" + std::to_string(length) + "</FrameLength>" +
         wrapped + "</Frame>";
}
std::string Wrapped(int depth, const std::string& inner = "") {
  const std::string text = "<Wrapped type=\"frame_rect\" >" + inner + "</Wrapped>";
  return depth > 1 ? Wrapped(depth - 1, text) : text;
}
std::string Named(const std::string& name, const std::string& frames, bool loop = false) {
  return "<Animation name=\"" + name + "\" loop=\"" + (loop ? "1" : "0") + "\" >" + frames +
         "</Animation>";
}

class Animation : public testing::Test {
 protected:
  using SpritePtr = std::unique_ptr<CAnimatedSprite>;

  Animation() { CTaskFactory::GetSingletonPtr()->StartTask("audioprobe", "Audio", 1, nullptr); }
  ~Animation() override { CAnimationUpdator::DeleteSingleton(); }

  static SpritePtr Load() {
    auto sprite = std::make_unique<CAnimatedSprite>();
    sprite->SetImage(Gfx::NewBuffer(50, 50));
    LoadXml(*sprite, "a.xml");
    return sprite;
  }
  static SpritePtr Read(const std::string& fields) {
    std::ofstream("a.xml") << "<S>" + fields + "</S>";
    return Load();
  }
  static void Update(unsigned time) { CAnimationUpdator::GetSingletonPtr()->Update(time); }
  // Updates at each time and lists what is shown then.
  static std::string Play(CAnimatedSprite& sprite, unsigned start, const Times& times) {
    std::string shown;
    for (const unsigned time : times) {
      sprite.IsPlaying() ? sprite.PlayAnimation("a") : void();  // changes nothing
      Update(start + time);
      shown += std::to_string(sprite.GetImageRect().x);
    }
    return shown;
  }

  test::CTestScreen myScreen{20, 20};
};

TEST_F(Animation, FramesFollowTheirTimes) {
  const std::string pair = Rect(1, 100) + Rect(2, 100);
  // Frames, loop, speed, times, what is shown at each.
  const std::tuple<std::string, bool, float, Times, const char*> cases[] = {
      // clang-format off
      {pair + Rect(3, 100), true, 1, {0, 50, 99, 100, 150, 200, 299, 300, 400}, "111223312"},
      {pair, false, 1, {0, 100, 199, 200, 900}, "12222"},
      // Frames without a length hand over with the next update.
      {Rect(1, 0) + Sound("") + Rect(2, 50, Sound("", "Wrapped")) + Rect(3, 30), true, 1,
       {0, 1, 2, 3, 32, 33, 34}, "1233112"}, {"", true, 1, {0, 250, 500}, "000"},
      {pair, true, 2, {0, 49, 50, 100, 200}, "11212"}, {pair, true, 0.5F, {0, 49, 50, 100, 200}, "11112"},
      {pair, true, 0, {0, 49, 50, 100, 200}, "11111"}, {pair, true, NAN, {0, 49, 50, 100, 200}, "11121"}};
  // clang-format on
  for (const unsigned start : {0U, 5000U, 4294967200U}) {
    for (const auto& [frames, loop, speed, times, shown] : cases) {
      const SpritePtr sprite = Read(Named("b", Rect(9, 1)) + Named("a", frames, loop));
      sprite->PlayAnimation("a");
      sprite->SetTimeMultiply(speed);
      EXPECT_EQ(Play(*sprite, start, times), shown) << frames << start;
      sprite->PlayAnimation("none");
      EXPECT_EQ(Play(*sprite, start + 1000, {0})[0], shown[0]) << "the current one again";
    }
  }
}

TEST_F(Animation, BadFramesAreSkippedWithOneLine) {
  // clang-format off
  const std::pair<std::string, std::size_t> cases[] = {  // frames, lines in the log
      {"<Frame></Frame>", 1}, {"<Frame type=\"frame_circle\" ></Frame>", 1}, {"<Other></Other>", 0},
      {Rect(1, 0, "<Wrapped type=\"no\" ></Wrapped>"), 1}, {Rect(1, 0, Wrapped(16)), 0},
      {Rect(1, 0, Wrapped(17)), 1}, {Rect(1, 0, Wrapped(3000)), 1}, {Sound(""), 0},
      {Sound("a,b"), 1}, {Sound("a;b"), 1}, {Sound("a::b"), 1}, {Sound("a//b"), 1}};
  // clang-format on
  const std::string start = "<CurrentAnimation>a</CurrentAnimation><CurrentFrame>99</CurrentFrame>";
  for (const auto& [frames, lines] : cases) {
    const test::CLogCapture log;
    const SpritePtr sprite = Read(start + Named("a", frames + Rect(5, 0)));
    EXPECT_EQ(log.Lines().size(), lines) << frames << log.Text();
    Play(*sprite, 0, {0, 10, 20, 30});
    EXPECT_EQ(sprite->GetImageRect(), (CRect<int>{5, 0, 9, 50})) << frames;
  }
  EXPECT_TRUE(CAudioProbe::sounds.empty());
}

TEST_F(Animation, WrittenSpriteReadsBackAndPlaysItsSoundsOnce) {
  const std::string frames =
      Sound("a b.wav") + Rect(2, 100) + Rect(3, 10, Sound("c.wav", "Wrapped")) + Rect(4, 100);
  const std::string fields = "<TimeMultiply>2</TimeMultiply><CurrentAnimation>a</CurrentAnimation>";
  SaveXml(*Read(fields + Named("b", "") + Named("a", frames)), "a.xml");
  const test::CLogCapture log;
  const SpritePtr sprite = Load();
  EXPECT_EQ(log.Text(), "") << "the order of reading is the order of writing";
  EXPECT_EQ(Play(*sprite, 0, {0, 1, 25, 50, 51, 52, 60, 200}), "22234444");
  const std::vector<std::string> sounds = {"PlayEffect( \"a b.wav\" )", "PlayEffect( \"c.wav\" )"};
  EXPECT_EQ(std::exchange(CAudioProbe::sounds, {}), sounds);
}

class Animator : public Animation {
 protected:
  using Action = std::function<void(float)>;

  struct CProbe : ISpriteMasker {
    CProbe(CSprite* sprite, const Action& what) : ISpriteMasker(sprite), action(what) {}
    void Apply(float value) override { Action{action}(value); }  // which may delete the probe
    Action action;
  };
  static CExternalAnimator* Start(const Action& action, CSprite* sprite, unsigned duration,
                                  const char* expression = "", bool clamp = false) {
    return new CExternalAnimator(new CProbe(sprite, action), duration, expression, clamp);
  }
};

TEST_F(Animator, ExpressionGivesTheValue) {
  // clang-format off
  const std::tuple<const char*, bool, unsigned, float> cases[] = {  // clamped, time of 1000000, value
      {"t*t", false, 500000, 0.25F}, {"sin(t*3.14)*2", false, 500000, 2}, {"sin(t*3.14)*2", true, 500000, 1},
      {"t-2", true, 500000, 0}, {"t*1000000", false, 12, 12}};  // not 1.2e-05, which no calculator reads
  // clang-format on
  for (const auto& [expression, clamp, time, value] : cases) {
    float got = NAN;
    Start([&got](float applied) { got = applied; }, nullptr, 1000000, expression, clamp);
    Update(time);
    EXPECT_NEAR(got, value, 1e-3F) << expression << clamp;
    CAnimationUpdator::DeleteSingleton();  // and the animator with it
  }
}

// What is done at 500 of 1000 ms keeps the value of that moment and moves the end.
TEST_F(Animator, SpeedMovesTheEnd) {
  // clang-format off
  const std::pair<std::vector<float>, unsigned> cases[] = {  // factors, end
      {{2}, 750}, {{0.5F}, 1500}, {{4, 0.5F}, 1500}, {{2, 1}, 1000}, {{2, 1, 1}, 1000}, {{0}, 1000},
      {{-2}, 1000}, {{NAN}, 1000}, {{INFINITY}, 1000}, {{1e30F}, 501}, {{1e-40F}, 1000}};
  // clang-format on
  for (const unsigned start : {0U, 4294967000U}) {
    for (const auto& [factors, end] : cases) {
      Update(start);
      std::vector<float> values;
      const auto note = [&](float value) { values.push_back(value); };
      CExternalAnimator* animator = Start(note, nullptr, 1000);
      Update(start + 500);
      std::ranges::for_each(factors, [=](float factor) { animator->SetTimeMultiplier(factor); });
      Update(start + end - 1), Update(start + end), Update(start + end + 1);
      ASSERT_EQ(values.size(), 3U) << "it is gone at its end, " << end;
      EXPECT_TRUE(values[0] == 0.5F && values[1] < 1.0F && values[2] == 1.0F) << end;
    }
  }
}

TEST_F(Animator, MaskersMoveAndFade) {
  CSprite sprite;
  sprite.SetRect({10, -20, 7, 8});
  CSpriteMoveToUpdator move(&sprite, 21, -31);
  move.Apply(0.5F);
  EXPECT_EQ(sprite.GetRect(), (CRect<int>{15, -25, 7, 8}));
  move.Apply(2.0F);
  EXPECT_EQ(sprite.GetRect(), (CRect<int>{32, -42, 7, 8}));
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
  auto first = std::make_unique<CSprite>(), second = std::make_unique<CSprite>();
  std::string log;
  const auto add = [&](CSprite* sprite, char name, const std::function<void()>& action) {
    return Start([&log, name, action](float) { log += name, action(); }, sprite, 9);
  };
  CExternalAnimator* self = nullptr;
  add(nullptr, 'a', [&] { second.reset(); });
  add(second.get(), 'x', [] {});
  add(first.get(), 'b', [&] { first.reset(); });  // and with it its own place in the list
  self = add(nullptr, 'c', [&] { delete self; });
  add(nullptr, 'd', [] {});
  Update(1);
  EXPECT_EQ(log, "abc") << "who deletes itself ends the walk";
  Update(2);
  EXPECT_EQ(log, "abcad");
}

}  // namespace
}  // namespace vask
