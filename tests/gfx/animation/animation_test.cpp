#include "gfx/animation/animatedsprite.h"
#include "gfx/animation/animationupdator.h"
#include "gfx/animation/externalanimator.h"
#include "gfx/animation/framerect.h"
#include "gfx/animation/framesound.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/sprite/spritemasker.h"
#include "kernel/taskfactory.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <functional>
#include <utility>

namespace vask {
namespace {

using Times = std::vector<unsigned>;
using Sounds = std::vector<std::string>;

// Takes the place of the audio task: notes what it is sent, and may do something then.
struct CAudioProbe : CTask {
  static inline std::vector<std::string> sounds;
  static inline std::function<void()> onSound;
  void Update() override {}
  bool ExecuteCommand(const std::string& line) override {
    sounds.push_back(line);
    if (onSound) {
      onSound();
    }
    return true;
  }
};
const CTaskTypeRegistrar<CAudioProbe> theRegistrar("audioprobe");

std::string Sound(const std::string& file, const std::string& element = "Frame") {
  return "<" + element + " type=\"frame_sound\" sound_file=\"" + file + "\" ></" + element + ">";
}
// Shows the part of the sheet at x.
std::string Rect(int x, int length, const std::string& wrapped = "") {
  return "<Frame type=\"frame_rect\" ><Rect x=\"" + std::to_string(x) +
         "\" w=\"9\" h=\"99\" ></Rect><FrameLength>" + std::to_string(length) + "</FrameLength>" +
         wrapped + "</Frame>";
}
std::string Wrapped(int depth) {
  std::string text;
  for (; depth > 0; --depth) {
    text = "<Wrapped type=\"frame_rect\" >" + text + "</Wrapped>";
  }
  return text;
}
std::string Named(const std::string& name, const std::string& frames, bool loop = false) {
  return "<Animation name=\"" + name + "\" loop=\"" + (loop ? "1" : "0") + "\" >" + frames +
         "</Animation>";
}

class Animation : public testing::Test {
 protected:
  using SpritePtr = std::unique_ptr<CAnimatedSprite>;

  Animation() { CTaskFactory::GetSingletonPtr()->StartTask("audioprobe", "Audio", 1, nullptr); }
  ~Animation() override {
    CAnimationUpdator::DeleteSingleton();
    CAudioProbe::sounds.clear();
    CAudioProbe::onSound = nullptr;
  }

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
  static std::string Play(const CAnimatedSprite& sprite, unsigned start, const Times& times) {
    std::string shown;
    for (const unsigned time : times) {
      Update(start + time);
      shown += std::to_string(sprite.GetImageRect().x);
    }
    return shown;
  }

  test::CTestScreen myScreen{20, 20};
};

TEST_F(Animation, FramesFollowTheirTimes) {
  struct SCase {
    std::string frames;
    bool loop = true;
    float speed = 1;
    Times times;
    const char* shown;  // x at each time
  };
  const std::string pair = Rect(1, 100) + Rect(2, 100);
  const std::string noLength = Rect(1, 0) + Sound("") + Rect(2, 50, Sound("", "Wrapped"));
  const Times fiveTimes = {0, 49, 50, 100, 200};
  const SCase cases[] = {
      {.frames = pair, .times = {0, 50, 99, 100, 150, 199, 200, 300}, .shown = "11122212"},
      {.frames = pair, .loop = false, .times = {0, 100, 199, 200, 900}, .shown = "12222"},
      // Frames without a length end with the next update.
      {.frames = noLength + Rect(3, 30), .times = {0, 1, 2, 3, 32, 33, 34}, .shown = "1233112"},
      {.frames = "", .times = {0, 250, 500}, .shown = "000"},
      {.frames = pair, .speed = 2, .times = fiveTimes, .shown = "11212"},
      {.frames = pair, .speed = 0, .times = fiveTimes, .shown = "11111"},
      {.frames = pair, .speed = 0.3F, .times = {0, 1, 333, 334, 335}, .shown = "11122"},
      {.frames = pair, .speed = NAN, .times = fiveTimes, .shown = "11121"},
  };
  for (const unsigned start : {0U, 5000U, 4294967200U}) {
    for (const SCase& c : cases) {
      SCOPED_TRACE(testing::Message() << c.frames << start << " at " << c.speed);
      const SpritePtr sprite = Read(Named("b", Rect(9, 1)) + Named("a", c.frames, c.loop));
      sprite->PlayAnimation("a");
      sprite->SetTimeMultiply(c.speed);
      EXPECT_EQ(Play(*sprite, start, c.times), c.shown);
      EXPECT_EQ(sprite->IsPlaying(), c.loop);
      sprite->PlayAnimation("none");
      EXPECT_EQ(Play(*sprite, start + 1000, {0})[0], c.shown[0]) << "the current one again";
    }
  }
}

// Two sprites that change places in the order of due times, and the sounds of both.
TEST_F(Animation, SpritesAreWokenInTheOrderOfTheirTimes) {
  CAnimatedSprite idle;
  idle.Play();
  const SpritePtr slow = Read(Named("a", Rect(1, 50) + Sound("slow") + Rect(2, 90)));
  slow->PlayAnimation("a");
  const SpritePtr quick = Read(Named("a", Rect(1, 20) + Rect(2, 20) + Sound("quick") + Rect(3, 9)));
  quick->PlayAnimation("a");
  EXPECT_EQ(Play(*quick, 0, {0, 20}), "12");
  quick->PlayAnimation("a");  // goes on
  EXPECT_EQ(quick->GetCurrentFrame(), 1U);
  EXPECT_EQ(Play(*quick, 0, {40}), "2");
  EXPECT_EQ(Play(*slow, 0, {41, 49, 50, 51}), "1112");
  EXPECT_EQ(idle.GetWait(100), 150) << "every 250 ms without an animation";
  EXPECT_EQ(CAudioProbe::sounds, (Sounds{"PlayEffect( \"quick\" )", "PlayEffect( \"slow\" )"}));
}

TEST_F(Animation, BadFramesAreSkippedWithOneLine) {
  const std::pair<std::string, std::size_t> cases[] = {
      // frames, lines in the log
      {"<Frame></Frame>", 1},
      {"<Other></Other>", 0},
      {"<Frame type=\"frame_circle\" ></Frame>", 1},
      {Sound(""), 0},
      {Sound("a,b"), 1},
      {Sound("a;b"), 1},
      {Sound("a::b"), 1},
      {Sound("a//b"), 1},
      {Rect(1, 0, Wrapped(16)), 0},
      {Rect(1, 0, Wrapped(17)), 1},
      {Rect(1, 0, "<Wrapped type=\"no\" ></Wrapped>"), 1}};
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
  EXPECT_EQ(CAudioProbe::sounds, (Sounds{"PlayEffect( \"a b.wav\" )", "PlayEffect( \"c.wav\" )"}));
  const CFrameSound wrapping("", std::make_unique<CFrameRect>(CRect<int>{}, 70));
  EXPECT_EQ(wrapping.GetDelay() + wrapping.GetLength(), 140U);
}

TEST_F(Animation, SoundMayRestartAndDeleteItsSprite) {
  std::ofstream("flame.xml") << "<S type=\"sprite_animated\" >" << Named("burn", Sound("f"))
                             << "</S>";

  const CSpritePtr flame(CSpriteFactory::GetSingletonPtr()->Load("flame.xml"));
  flame->PlayAnimation("burn");

  Update(0);
  EXPECT_EQ(CAudioProbe::sounds, (Sounds{"PlayEffect( \"f\" )"}));
  SpritePtr sprite =
      Read(Named("a", Sound("a") + Rect(2, 9)) + Named("b", Rect(1, 90) + Rect(3, 9)));
  sprite->PlayAnimation("a");
  CAudioProbe::onSound = [&] { sprite->PlayAnimation("b"); };
  EXPECT_EQ(Play(*sprite, 1, {0, 1, 90, 91}), "0113");
  sprite->PlayAnimation("a");
  CAudioProbe::onSound = [&] { sprite.reset(); };
  Update(1000);
  EXPECT_EQ(sprite, nullptr);
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
  struct SCase {
    const char* expression;
    bool clamp = false;
    unsigned time = 500000;  // of 1000000
    float value;
  };
  const SCase cases[] = {
      {.expression = "t*t", .value = 0.25F},
      {.expression = "sin(t*3.14)*2", .value = 2},
      {.expression = "sin(t*3.14)*2", .clamp = true, .value = 1},
      {.expression = "t-2", .clamp = true, .value = 0},
      {.expression = "t*1000000", .time = 12, .value = 12},  // no 1.2e-05: nothing reads that
  };
  for (const SCase& c : cases) {
    float got = NAN;
    Start([&got](float value) { got = value; }, nullptr, 1000000, c.expression, c.clamp);
    Update(c.time);
    EXPECT_NEAR(got, c.value, 1e-3F) << c.expression << c.clamp;
    CAnimationUpdator::DeleteSingleton();  // and the animator with it
  }
}

// What is done at 500 of 1000 ms keeps the value of that moment and moves the end.
TEST_F(Animator, SpeedMovesTheEnd) {
  const std::pair<std::vector<float>, unsigned> cases[] = {
      // factors, end
      {{2}, 750},         {{0.5F}, 1500}, {{4, 0.5F}, 1500}, {{2, 1}, 1000},
      {{2, 1, 1}, 1000},  {{0}, 1000},    {{-2}, 1000},      {{NAN}, 1000},
      {{INFINITY}, 1000}, {{1e30F}, 501}, {{1e-40F}, 1000}};
  for (const unsigned start : {0U, 4294967000U}) {
    for (const auto& [factors, end] : cases) {
      Update(start);
      std::vector<float> values;
      CExternalAnimator* animator =
          Start([&](float value) { values.push_back(value); }, nullptr, 1000);
      Update(start + 500);
      for (const float factor : factors) {
        animator->SetTimeMultiplier(factor);
      }
      for (const unsigned time : {end - 1, end, end + 1}) {
        Update(start + time);
      }
      ASSERT_EQ(values.size(), 3U) << "it is gone at its end, " << end;
      EXPECT_EQ(values[0], 0.5F);
      EXPECT_LT(values[1], 1.0F) << end;
      EXPECT_EQ(values[2], 1.0F) << end;
    }
  }
}

TEST_F(Animator, PauseDelaysTheEndAndNoDurationIsNone) {
  std::vector<float> values;
  const auto note = [&](float value) { values.push_back(value); };
  Start(note, nullptr, 0);
  CExternalAnimator* animator = Start(note, nullptr, 1000);
  Update(400);
  animator->Pause();
  Update(700);
  animator->Resume();
  Update(1200);
  EXPECT_EQ(values, (std::vector<float>{0.4F, 0.9F}));
}

TEST_F(Animator, MaskersMoveAndFade) {
  CSprite sprite;
  sprite.SetRect({10, -20, 7, 8});

  new CExternalAnimator(new CSpriteMoveToUpdator(&sprite, 400, 125), 2000, "sin(t*3.14)", true);

  CSpriteMoveToUpdator move(&sprite, 21, -31);
  const std::pair<float, CRect<int>> places[] = {{0.5F, {15, -25, 7, 8}},
                                                 {2.0F, {32, -42, 7, 8}},
                                                 {NAN, {10, -20, 7, 8}},
                                                 {1e9F, {1000010, -1000020, 7, 8}}};
  for (const auto& [value, rect] : places) {
    move.Apply(value);
    EXPECT_EQ(sprite.GetRect(), rect) << value;
  }
  sprite.SetAlpha(200);
  CSpriteSetAlphaUpdator fade(&sprite, 0, 2);
  std::vector<int> alphas;
  for (const float value : {0.1F, 0.25F, 0.5F, 0.75F, 1.0F, 1.0F}) {
    fade.Apply(value);
    alphas.push_back(sprite.GetAlpha());
  }
  EXPECT_EQ(alphas, (std::vector<int>{200, 150, 150, 50, 50, 0}));
  CSpriteMoveToUpdator(nullptr, 1, 1).Apply(1);
  CSpriteSetAlphaUpdator(nullptr, 1, 1).Apply(1);
}

TEST_F(Animator, UpdatesMayDeleteAnimatorsAndSprites) {
  auto first = std::make_unique<CSprite>();
  auto second = std::make_unique<CSprite>();
  std::string log;
  const auto add = [&](CSprite* sprite, char name, const std::function<void()>& action) {
    const auto note = [&log, name, action](float) {
      log += name;
      action();
    };
    return Start(note, sprite, 9);
  };
  CExternalAnimator* self = nullptr;
  add(nullptr, 'a', [&] { second.reset(); });
  add(second.get(), 'x', [] {});
  add(first.get(), 'b', [&] { first.reset(); });  // and with it its own place in the list
  self = add(nullptr, 'c', [&] { delete self; });
  add(nullptr, 'd', [] {});

  for (const unsigned time : {1U, 2U}) {
    CAnimationUpdator& updator = CAnimationUpdator::GetSingleton();
    updator.Update(time);  // once a frame
  }
  EXPECT_EQ(log, "abcad") << "who deletes itself ends the walk";
}

}  // namespace
}  // namespace vask
