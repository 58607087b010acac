#include "gfx/animation/animatedsprite.h"
#include "gfx/animation/animationupdator.h"
#include "gfx/animation/externalanimator.h"
#include "gfx/sprite/spritefactory.h"
#include "gfx/sprite/spritemasker.h"
#include "kernel/taskfactory.h"
#include "support/files.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <sstream>

namespace vask::test {
namespace {

using Times = std::vector<unsigned>;

// Takes the place of the audio task: notes what it is sent, and may do something then.
struct CAudioProbe : CTask {
  static inline std::string sounds;
  static inline std::function<void()> onSound = [] {};
  void Update() override {}
  bool ExecuteCommand(const std::string& line) override {
    sounds += line + "\n";
    onSound();
    return true;
  }
};

std::string Sound(const std::string& file, const std::string& element = "Frame") {
  return "<" + element + " type=\"frame_sound\" sound_file=\"" + file + "\"></" + element + ">";
}
// Shows the part of the sheet at x.
std::string Part(int x, int length, const std::string& wrapped = "") {
  return R"(<Frame type="frame_rect"><Rect w="9" h="99" x=")" + std::to_string(x) +
         "\"/><FrameLength>" + std::to_string(length) + "</FrameLength>" + wrapped + "</Frame>";
}
std::string Named(const char* name, const std::string& frames, bool loop = false) {
  const std::string attributes = std::string(name) + "\" loop=\"" + std::to_string(loop);
  return "<Animation name=\"" + attributes + "\">" + frames + "</Animation>";
}

struct Animation : testing::Test {
  using SpritePtr = std::unique_ptr<CAnimatedSprite>;

  Animation() {
    const CTaskTypeRegistrar<CAudioProbe> registrar("audioprobe");
    CTaskFactory::GetSingletonPtr()->StartTask("audioprobe", "Audio", 1, nullptr);
  }
  ~Animation() override {
    CAnimationUpdator::DeleteSingleton();
    CTaskFactory::DeleteSingleton();
    CAudioProbe::sounds.clear();
    CAudioProbe::onSound = [] {};
  }

  // A sprite file of these fields, written and read again, played from the start of the animation
  // "a".
  static SpritePtr Read(const std::string& fields) {
    WriteFile("a.xml", "<S>" + fields + "</S>");
    CAnimatedSprite first;
    LoadXml(first, "a.xml");
    SaveXml(first, "a.xml");
    auto sprite = std::make_unique<CAnimatedSprite>();
    sprite->SetImage(Gfx::NewBuffer(50, 50));
    LoadXml(*sprite, "a.xml");
    sprite->PlayAnimation("a");
    return sprite;
  }
  static void Update(const Times& times, unsigned start = 0) {
    for (unsigned time : times) {
      time += start;
      CAnimationUpdator& updator = CAnimationUpdator::GetSingleton();
      updator.Update(time);  // once a frame
    }
  }
  // Updates at each time and lists what is shown then.
  static std::string Play(const CAnimatedSprite& sprite, const Times& times, unsigned start = 0) {
    std::string shown;
    for (const unsigned time : times) {
      Update({time}, start);
      shown += std::to_string(sprite.GetImageRect().x);
    }
    return shown;
  }

  CTestScreen myScreen{20, 20};
};

TEST_F(Animation, FramesFollowTheirTimes) {
  struct SCase {
    const char* name;
    std::string frames = Part(1, 100) + Part(2, 100);
    bool loop = true;
    float speed = 1;
    Times times = {0, 49, 50, 100, 200};
    const char* shown;  // x at each time
  };
  const std::string lazy = Part(1, 0) + Sound("") + Part(2, 50, Sound("", "Wrapped")) + Part(3, 30);
  const SCase cases[] = {
      {.name = "loop", .times = {0, 50, 99, 100, 150, 199, 200, 300}, .shown = "11122212"},
      {.name = "once", .loop = false, .times = {0, 100, 199, 200, 900}, .shown = "12222"},
      // Frames without a length end with the next update.
      {.name = "no length", .frames = lazy, .times = {0, 1, 2, 3, 32, 33, 34}, .shown = "1233112"},
      {.name = "no frames", .frames = "", .shown = "00000"},
      {.name = "twice as fast", .speed = 2, .shown = "11212"},
      {.name = "standing", .speed = 0, .shown = "11111"},
      {.name = "slow", .speed = 0.3F, .times = {0, 1, 333, 334, 335}, .shown = "11122"},
      {.name = "no number", .speed = NAN, .shown = "11121"},
  };
  for (const unsigned start : {0U, 5000U, 4294967200U}) {
    for (const SCase& c : cases) {
      SCOPED_TRACE(testing::Message() << c.name << ", from " << start);
      const SpritePtr sprite = Read(Named("b", Part(9, 1)) + Named("a", c.frames, c.loop));
      sprite->SetTimeMultiply(c.speed);
      EXPECT_EQ(Play(*sprite, c.times, start), c.shown);
      EXPECT_EQ(sprite->IsPlaying(), c.loop);
      sprite->PlayAnimation("none");
      EXPECT_EQ(Play(*sprite, {1000}, start)[0], c.shown[0]) << "the current one again";
    }
  }
}

TEST_F(Animation, BadFramesAreSkippedWithOneLineEach) {
  const std::string unknown = "<Wrapped type=\"no\"/>" + Sound("", "Wrapped");
  const std::string good = "<Other></Other>" + Sound("") + Part(1, 0);
  const std::string bad = "<Frame></Frame><Frame type=\"frame_circle\"></Frame>" + Sound("a,b") +
                          Sound("a;b") + Sound("a::b") + Sound("a//b") + Part(1, 0, unknown);
  // How many lines are logged about frames that come before one that shows something.
  const auto lines = [](const std::string& frames) {
    const CLogCapture log;
    const SpritePtr sprite =
        Read("<CurrentFrame>99</CurrentFrame>" + Named("a", frames + Part(5, 0)));
    Update({0, 1, 2, 3, 4, 5, 6});
    EXPECT_EQ(sprite->GetImageRect(), (CRect<int>{5, 0, 9, 50})) << frames;
    return log.Lines().size();
  };
  EXPECT_EQ(lines(good), 0U);
  EXPECT_EQ(lines(bad), 7U);
  EXPECT_EQ(CAudioProbe::sounds, "");
}

TEST_F(Animation, SoundMayRestartAndDeleteItsSprite) {
  WriteFile("flame.xml", "<S type=\"sprite_animated\">" + Named("burn", Sound("f")) + "</S>");

  const CSpritePtr flame(CSpriteFactory::GetSingletonPtr()->Load("flame.xml"));
  flame->PlayAnimation("burn");

  Update({0});
  EXPECT_EQ(CAudioProbe::sounds, "PlayEffect( \"f\" )\n");
  SpritePtr sprite =
      Read(Named("a", Sound("a") + Part(2, 9)) + Named("b", Part(1, 90) + Part(3, 9)));
  CAudioProbe::onSound = [&] { sprite->PlayAnimation("b"); };
  EXPECT_EQ(Play(*sprite, {1, 2, 91, 92}), "0113");
  CAudioProbe::onSound = [&] { sprite.reset(); };
  sprite->PlayAnimation("a");
  Update({1000});
  EXPECT_EQ(sprite, nullptr);
}

struct Animator : Animation {
  using Action = std::function<void(float)>;

  struct CProbe : ISpriteMasker {
    CProbe(CSprite* sprite, const Action& what) : ISpriteMasker(sprite), action(what) {}
    void Apply(float value) override { Action{action}(value); }  // which may delete the probe
    Action action;
  };
  // Notes its values.
  CExternalAnimator* Start(unsigned duration, const char* expression = "", bool clamp = false) {
    auto* probe = new CProbe(nullptr, [this](float value) { myValues.push_back(value); });
    return new CExternalAnimator(probe, duration, expression, clamp);
  }

  std::vector<float> myValues;
};

TEST_F(Animator, ExpressionGivesTheValue) {
  const auto valueAt = [this](unsigned time, const char* expression, bool clamp = false) {
    Start(1000000, expression, clamp);
    Update({time});
    CAnimationUpdator::DeleteSingleton();  // and the animator with it
    return myValues.back();
  };
  EXPECT_FLOAT_EQ(valueAt(500000, "t*t"), 0.25F);
  EXPECT_NEAR(valueAt(500000, "sin(t*3.14)*2"), 2, 1e-3);
  EXPECT_EQ(valueAt(500000, "sin(t*3.14)*2", true), 1);
  EXPECT_EQ(valueAt(500000, "t-2", true), 0);
  EXPECT_FLOAT_EQ(valueAt(12, "t*1000000"), 12) << "no 1.2e-05: nothing reads that";
}

// What is done at 500 of 1000 ms keeps the value of that moment and moves the end.
TEST_F(Animator, SpeedMovesTheEnd) {
  for (const unsigned start : {0U, 4294967000U}) {
    const auto endAfter = [&](const std::vector<float>& factors) {
      Update({start});
      CExternalAnimator* animator = Start(1000);
      Update({500}, start);
      for (const float factor : factors) {
        animator->SetTimeMultiplier(factor);
      }
      unsigned time = 500;
      while (myValues.back() < 1.0F && time < 9999) {
        Update({++time}, start);
      }
      myValues.clear();
      Update({time + 1}, start);
      EXPECT_TRUE(myValues.empty()) << "it is gone";
      return time;
    };
    EXPECT_EQ(endAfter({2}), 750U);
    EXPECT_EQ(endAfter({0.5F}), 1500U);
    EXPECT_EQ(endAfter({4, 0.5F}), 1500U) << "the last one counts";
    EXPECT_EQ(endAfter({2, 1, 1}), 1000U);
    EXPECT_EQ(endAfter({1e30F}), 501U);
    for (const float none : {-2.0F, NAN, INFINITY, 1e-40F}) {
      EXPECT_EQ(endAfter({none}), 1000U) << none << " is no factor";
    }
  }
}

TEST_F(Animator, PauseDelaysTheEndAndNoDurationIsNone) {
  Start(0)->SetTimeMultiplier(2);
  CExternalAnimator* animator = Start(1000);
  Update({400});
  animator->Pause();
  Update({700});
  animator->Resume();
  Update({1200, 9000});
  EXPECT_EQ(myValues, (std::vector{0.4F, 0.9F, 1.0F}));
}

TEST_F(Animator, MaskersMoveAndFade) {
  CSprite sprite;
  sprite.SetRect({10, -20, 7, 8});

  auto* move = new CSpriteMoveToUpdator(&sprite, 400, 125);
  new CExternalAnimator(move, 2000, "sin(t*3.14)", true);

  CSpriteMoveToUpdator fall(&sprite, 21, -31);
  sprite.SetAlpha(200);
  CSpriteSetAlphaUpdator fade(&sprite, 0, 2);  // every other time
  std::ostringstream shown;
  for (const float value : {0.1F, 0.5F, 2.0F, NAN, 1e9F}) {
    fade.Apply(value);
    fall.Apply(value);
    shown << sprite.GetX() << "," << sprite.GetY() << " " << sprite.GetAlpha() << "; ";
  }
  EXPECT_EQ(shown.str(), "11,-21 200; 15,-25 100; 32,-42 100; 10,-20 200; 1000010,-1000020 200; ");
}

TEST_F(Animator, UpdatesMayDeleteAnimatorsAndSprites) {
  auto first = std::make_unique<CSprite>(), second = std::make_unique<CSprite>();
  CExternalAnimator* self = nullptr;
  const auto add = [](CSprite* sprite, const Action& action) {
    return new CExternalAnimator(new CProbe(sprite, action), 9, "", false);
  };
  add(nullptr, [&](float) { second.reset(); });
  add(second.get(), [](float) { ADD_FAILURE() << "its sprite is dead"; });
  add(first.get(), [&](float) { first.reset(); });  // and with it its own place in the list
  self = add(nullptr, [&](float) { delete self; });
  Start(9);
  Update({1, 2, 3});
  EXPECT_EQ(myValues.size(), 2U) << "who deletes itself ends the walk";
}

}  // namespace
}  // namespace vask::test
