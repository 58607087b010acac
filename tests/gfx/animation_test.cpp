#include "gfx/animation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "gfx/animatedsprite.h"
#include "gfx/animationupdator.h"
#include "gfx/framerect.h"
#include "gfx/framesound.h"
#include "kernel/taskfactory.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

namespace vask {
namespace {

using test::CLogCapture;
using test::CTestScreen;

constexpr unsigned kNearWrap = 4294967200U;

// Stands in for the audio task and keeps the lines that it is sent.
class CAudioProbe : public CTask {
 public:
  void Update() override {}
  bool ExecuteCommand(const std::string& line) override {
    Lines().push_back(line);
    return true;
  }
  static std::vector<std::string>& Lines() {
    static std::vector<std::string> lines;
    return lines;
  }
};
const CTaskTypeRegistrar<CAudioProbe> kRegistrar("audioprobe");

class CProbeFrame : public IFrame {
 public:
  explicit CProbeFrame(std::function<void()> action) : myAction(std::move(action)) {}
  frame_type GetType() const override { return frame_sound; }
  bool Apply(CSprite*, unsigned) override {
    const std::function<void()> action = myAction;
    action();
    return true;
  }
  unsigned GetDelay() const override { return 10; }
  unsigned GetLength() const override { return 10; }
  void Serialize(CXmlContext&) override {}
  void Show(CSprite*) override {}

 private:
  std::function<void()> myAction;
};

std::unique_ptr<IFrame> Rect(int x, unsigned length, std::unique_ptr<IFrame> wrapped = nullptr) {
  return std::make_unique<CFrameRect>(CRect<int>{x, 0, 1, 1}, length, std::move(wrapped));
}
std::unique_ptr<IFrame> Sound(const std::string& file) {
  return std::make_unique<CFrameSound>(file);
}

class Animation : public testing::Test {
 protected:
  Animation() {
    if (CTaskFactory::GetSingletonPtr()->GetTask("Audio") == nullptr) {
      CTaskFactory::GetSingletonPtr()->StartTask("audioprobe", "Audio", 1, nullptr);
    }
    CAudioProbe::Lines().clear();
  }
  ~Animation() override { CAnimationUpdator::DeleteSingleton(); }

  static std::unique_ptr<CAnimatedSprite> NewSheet() {
    auto sprite = std::make_unique<CAnimatedSprite>();
    sprite->SetImage(Gfx::NewBuffer(50, 50));
    return sprite;
  }
  template <typename... Frames>
  static std::unique_ptr<CAnimation> Make(const std::string& name, bool loop, Frames... frames) {
    auto animation = std::make_unique<CAnimation>(name, loop);
    (animation->AddFrame(std::move(frames)), ...);
    return animation;
  }
  static void Update(unsigned time) { CAnimationUpdator::GetSingletonPtr()->Update(time); }
  static int Shown(const CSprite& sprite) { return sprite.GetImageRect().x; }
  // Updates at each time and lists what is shown then.
  static std::string Play(CAnimatedSprite& sprite, unsigned start, std::vector<unsigned> times) {
    std::string shown;
    for (const unsigned time : times) {
      Update(start + time);
      shown += std::to_string(Shown(sprite)) + " ";
    }
    return shown;
  }

  CTestScreen myScreen{20, 20};
};

TEST_F(Animation, FramesFollowTheirTimes) {
  for (const unsigned start : {0U, 5000U, kNearWrap}) {
    const auto loop = NewSheet();
    loop->AddAnimation(Make("a", true, Rect(1, 100), Rect(2, 100), Rect(3, 100)));
    loop->PlayAnimation("a");
    EXPECT_EQ(Play(*loop, start, {0, 50, 99, 100, 150, 200, 299, 300, 400}), "1 1 1 2 2 3 3 1 2 ");
    EXPECT_TRUE(loop->IsPlaying());

    const auto once = NewSheet();
    once->AddAnimation(Make("a", false, Rect(1, 100), Rect(2, 100)));
    once->PlayAnimation("a");
    EXPECT_EQ(Play(*once, start, {0, 100, 199, 200, 900}), "1 2 2 2 2 ");
    EXPECT_FALSE(once->IsPlaying());
    EXPECT_EQ(once->GetCurrentFrame(), 1U);

    const auto mixed = NewSheet();  // frames without a length hand over with the next update
    mixed->AddAnimation(
        Make("a", true, Rect(1, 0), Sound(""), Rect(2, 50, Sound("")), Rect(3, 30)));
    mixed->PlayAnimation("a");
    EXPECT_EQ(Play(*mixed, start, {0, 1, 2, 3, 32, 33, 34}), "1 2 3 3 1 1 2 ");
  }
}

TEST_F(Animation, SpeedScalesTheClock) {
  const std::vector<std::pair<float, std::string>> cases = {{2.0F, "1 1 2 1 2 "},
                                                            {0.5F, "1 1 1 1 2 "},
                                                            {0.0F, "1 1 1 1 1 "},
                                                            {-1.0F, "1 1 1 2 1 "},
                                                            {NAN, "1 1 1 2 1 "}};
  for (const auto& [factor, shown] : cases) {
    const auto sprite = NewSheet();
    sprite->AddAnimation(Make("a", true, Rect(1, 100), Rect(2, 100)));
    sprite->PlayAnimation("a");
    sprite->SetTimeMultiply(factor);
    EXPECT_EQ(Play(*sprite, 7, {0, 49, 50, 100, 200}), shown) << factor;
  }
}

TEST_F(Animation, SpriteIsWokenWhenItIsDueAndOncePerUpdate) {
  int applied = 0;
  const auto sprite = NewSheet();
  sprite->AddAnimation(Make("a", true, std::make_unique<CProbeFrame>([&] { ++applied; })));
  sprite->PlayAnimation("a");
  sprite->PlayAnimation("a");
  for (unsigned time = 1000; time < 1030; ++time) {
    Update(time);
  }
  EXPECT_EQ(applied, 3);
  CAnimatedSprite idle;
  idle.Play();
  EXPECT_LE(idle.GetWait(2000), 0) << "due at once";
  Update(2000);
  EXPECT_EQ(idle.GetWait(2000), 250);
}

TEST_F(Animation, PlayingAgainStartsFromTheFirstFrameWhateverTheClock) {
  const auto sprite = NewSheet();
  sprite->AddAnimation(Make("a", false, Rect(1, 100), Rect(2, 100)));
  sprite->AddAnimation(Make("b", false, Rect(3, 100)));
  sprite->AddAnimation(Make("b", false, Rect(4, 100)));
  sprite->PlayAnimation("nothing yet");
  sprite->PlayAnimation("a");
  Play(*sprite, 0, {0, 100});
  sprite->PlayAnimation("a");
  EXPECT_EQ(Play(*sprite, 0, {101, 199}), "2 2 ") << "it plays on";
  sprite->PlayAnimation("b");
  EXPECT_EQ(Play(*sprite, 0, {199, 298}), "3 3 ");
  EXPECT_TRUE(sprite->IsPlaying());
  sprite->PlayAnimation("a");
  EXPECT_EQ(Play(*sprite, 0, {300, 399, 400, 500}), "1 1 2 2 ");
  sprite->PlayAnimation("unknown");
  EXPECT_EQ(Play(*sprite, 0, {600, 699, 700}), "1 1 2 ");
}

TEST_F(Animation, SoundPlaysOnceThroughTheAudioTask) {
  const auto sprite = NewSheet();
  sprite->AddAnimation(Make("a", false, Sound("data/a b.wav"), Rect(2, 100), Sound(""),
                            Rect(3, 10, Sound("c.wav"))));
  sprite->PlayAnimation("a");
  Play(*sprite, 0, {0, 1, 50, 100, 101, 102, 103, 200});
  ASSERT_EQ(CAudioProbe::Lines().size(), 2U);
  EXPECT_EQ(CAudioProbe::Lines()[0], "PlayEffect( \"data/a b.wav\" )");
  EXPECT_NE(CAudioProbe::Lines()[1].find("c.wav"), std::string::npos);
}

TEST_F(Animation, EmptyAnimationChangesNothing) {
  const auto sprite = NewSheet();
  sprite->AddAnimation(Make("a", true));
  sprite->PlayAnimation("a");
  EXPECT_EQ(Play(*sprite, 0, {0, 250, 500}), "0 0 0 ");
  EXPECT_EQ(sprite->GetImageRect().w, 50);
}

TEST_F(Animation, FramesMayDeleteStopAndStartSprites) {
  std::vector<std::unique_ptr<CAnimatedSprite>> sprites(6);
  std::string log;
  const std::vector<std::function<void()>> actions = {
      [&] { log += "0", sprites[0].reset(); },  // itself
      [&] { log += "1", sprites[2].reset(), sprites[3]->Stop(); },
      [&] { log += "2"; },
      [&] { log += "3"; },
      [&] { log += "4", sprites[4]->PlayAnimation("other"); },
      [&] { log += "5", sprites[3]->Play(); }};
  for (std::size_t i = 0; i < sprites.size(); ++i) {
    sprites[i] = NewSheet();
    sprites[i]->AddAnimation(Make("a", true, std::make_unique<CProbeFrame>(actions[i])));
    sprites[i]->AddAnimation(Make("other", true, Rect(9, 1000)));
    sprites[i]->PlayAnimation("a");
  }
  Update(100);
  EXPECT_EQ(log, "0145");
  EXPECT_EQ(Shown(*sprites[4]), 0);
  Update(101);
  EXPECT_EQ(Shown(*sprites[4]), 9);
  sprites[1].reset();
  Update(111);
  EXPECT_EQ(log, "0145353");
}

std::string Wrapped(int depth) {
  std::string open;
  std::string close;
  for (int i = 0; i < depth; ++i) {
    open += "<Wrapped type=\"frame_rect\" ><FrameLength>" + std::to_string(i) + "</FrameLength>";
    close += "</Wrapped>";
  }
  return open + close;
}

TEST_F(Animation, BadFramesAreSkippedWithOneLine) {
  const std::vector<std::tuple<std::string, std::string, std::size_t>> cases = {
      // frames, what is shown at 0, 10 and 20, lines in the log
      {"<Frame></Frame>", "0 0 0 ", 1},
      {"<Frame type=\"frame_circle\" ></Frame>", "0 0 0 ", 1},
      {"<Other></Other>", "0 0 0 ", 0},
      {"<Frame type=\"frame_rect\" ><Wrapped type=\"no\" ></Wrapped></Frame>", "0 0 0 ", 1},
      {"<Frame type=\"frame_rect\" >" + Wrapped(16) + "</Frame>", "0 0 0 ", 0},
      {"<Frame type=\"frame_rect\" >" + Wrapped(17) + "</Frame>", "0 0 0 ", 1},
      {"<Frame type=\"frame_rect\" >" + Wrapped(3000) + "</Frame>", "0 0 0 ", 1},
      {"<Frame type=\"frame_sound\" ></Frame>", "0 5 5 ", 0},
      {"<Frame type=\"frame_sound\" sound_file=\"a,b\" ></Frame>", "0 5 5 ", 1},
      {"<Frame type=\"frame_sound\" sound_file=\"a;b\" ></Frame>", "0 5 5 ", 1},
      {"<Frame type=\"frame_sound\" sound_file=\"a::b\" ></Frame>", "0 5 5 ", 1},
      {"<Frame type=\"frame_sound\" sound_file=\"a//b\" ></Frame>", "0 5 5 ", 1}};
  for (const auto& [frames, shown, lines] : cases) {
    std::istringstream file(
        "<S><CurrentAnimation>a</CurrentAnimation><CurrentFrame>99</CurrentFrame>"
        "<Animation name=\"a\" loop=\"0\" >" +
        frames +
        "<Frame type=\"frame_rect\" ><Rect x=\"5\" w=\"9\" h=\"99\" ></Rect></Frame></Animation>"
        "</S>");
    const auto root = ReadXml(file);
    const auto sprite = NewSheet();
    CLogCapture log;
    CXmlContext xml(root.get(), CXmlContext::kReading);
    sprite->Serialize(xml);
    EXPECT_EQ(log.Lines().size(), lines) << frames << log.Text();
    Play(*sprite, 0, {0, 10, 20, 30, 40});
    EXPECT_EQ(sprite->GetImageRect(), (CRect<int>{5, 0, 9, 50})) << frames;
    EXPECT_FALSE(sprite->IsPlaying());
  }
  EXPECT_TRUE(CAudioProbe::Lines().empty());
}

TEST_F(Animation, WrittenSpriteReadsBack) {
  const auto write = [](CAnimatedSprite& sprite) {
    CXmlElement root("Sprite");
    CXmlContext xml(&root, CXmlContext::kWriting);
    sprite.Serialize(xml);
    std::ostringstream text;
    WriteXml(root, text);
    return text.str();
  };
  const auto sprite = NewSheet();
  sprite->AddAnimation(Make("a", true, Rect(1, 100, Sound("s.wav")), Sound("t.wav"), Rect(2, 9)));
  sprite->AddAnimation(Make("b", false));
  sprite->SetTimeMultiply(1.5F);
  sprite->PlayAnimation("a");
  const std::string text = write(*sprite);
  std::istringstream file(text);
  const auto root = ReadXml(file);
  CAnimatedSprite read;
  CXmlContext xml(root.get(), CXmlContext::kReading);
  CLogCapture log;
  read.Serialize(xml);
  EXPECT_EQ(write(read), text);
  EXPECT_EQ(log.Text(), "") << "the order of reading is the order of writing";
  EXPECT_TRUE(read.IsPlaying());
}

}  // namespace
}  // namespace vask
