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
#include "kernel/taskfactory.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

namespace vask {
namespace {

// The lines that the audio task, for which the probe stands in, was sent.
std::vector<std::string> sounds;
class CAudioProbe : public CTask {
 public:
  void Update() override {}
  bool ExecuteCommand(const std::string& line) override {
    sounds.push_back(line);
    return true;
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

std::string Sound(const std::string& file, const std::string& element = "Frame") {
  const std::string name = file.empty() ? "" : " sound_file=\"" + file + "\"";
  return "<" + element + " type=\"frame_sound\"" + name + " ></" + element + ">";
}
std::string Rect(int x, int length, const std::string& wrapped = "") {
  return "<Frame type=\"frame_rect\" ><Rect x=\"" + std::to_string(x) +
         "\" w=\"9\" h=\"99\" ></Rect><FrameLength>" + std::to_string(length) + "</FrameLength>" +
         wrapped + "</Frame>";
}
std::string Wrapped(int depth) {
  std::string text;
  for (int i = 0; i < depth; ++i) {
    text = "<Wrapped type=\"frame_rect\" >" + text + "</Wrapped>";
  }
  return text;
}
std::string Named(const std::string& name, const std::string& frames, int loop = 0) {
  return "<Animation name=\"" + name + "\" loop=\"" + std::to_string(loop) + "\" >" + frames +
         "</Animation>";
}

void Update(unsigned time) { CAnimationUpdator::GetSingletonPtr()->Update(time); }

class Animation : public testing::Test {
 protected:
  Animation() {
    CTaskFactory::GetSingletonPtr()->StartTask("audioprobe", "Audio", 1, nullptr);
    sounds.clear();
  }
  ~Animation() override { CAnimationUpdator::DeleteSingleton(); }

  static std::unique_ptr<CAnimatedSprite> Read(const std::string& fields) {
    auto sprite = std::make_unique<CAnimatedSprite>();
    sprite->SetImage(Gfx::NewBuffer(50, 50));
    std::istringstream file("<S>" + fields + "</S>");
    const auto root = ReadXml(file);
    CXmlContext xml(root.get(), CXmlContext::kReading);
    sprite->Serialize(xml);
    return sprite;
  }
  static std::string Write(CAnimatedSprite& sprite) {
    CXmlElement root("S");
    CXmlContext xml(&root, CXmlContext::kWriting);
    sprite.Serialize(xml);
    std::ostringstream text;
    WriteXml(root, text);
    return text.str();
  }
  // Updates at each time and lists what is shown then.
  static std::string Play(CAnimatedSprite& sprite, unsigned start,
                          const std::vector<unsigned>& times) {
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
  const std::string pair = Rect(1, 100) + Rect(2, 100);
  const struct {
    std::string frames;
    int loop;
    float factor;
    std::vector<unsigned> times;
    std::string shown;
  } cases[] = {
      // clang-format off
      {pair + Rect(3, 100), 1, 1, {0, 50, 99, 100, 150, 200, 299, 300, 400}, "111223312"},
      {pair, 0, 1, {0, 100, 199, 200, 900}, "12222"},
      // Frames without a length hand over with the next update.
      {Rect(1, 0) + Sound("") + Rect(2, 50, Sound("", "Wrapped")) + Rect(3, 30), 1, 1,
       {0, 1, 2, 3, 32, 33, 34}, "1233112"},
      {"", 1, 1, {0, 250, 500}, "000"},
      {pair, 1, 2, {0, 49, 50, 100, 200}, "11212"},
      {pair, 1, 0.5F, {0, 49, 50, 100, 200}, "11112"},
      {pair, 1, 0, {0, 49, 50, 100, 200}, "11111"},
      {pair, 1, NAN, {0, 49, 50, 100, 200}, "11121"},
      // clang-format on
  };
  for (const unsigned start : {0U, 5000U, 4294967200U}) {
    for (const auto& row : cases) {
      const auto sprite = Read(Named("a", row.frames, row.loop));
      sprite->PlayAnimation("a");
      sprite->SetTimeMultiply(row.factor);
      EXPECT_EQ(Play(*sprite, start, row.times), row.shown) << row.frames << start;
      EXPECT_EQ(sprite->IsPlaying(), row.loop == 1);
    }
  }
  CAnimatedSprite idle;
  idle.Play();
  EXPECT_LE(idle.GetWait(2000), 0) << "due at once";
  Update(2000);
  EXPECT_EQ(idle.GetWait(2000), 250);
}

TEST_F(Animation, PlayingAgainStartsFromTheFirstFrameWhateverTheClock) {
  const auto sprite = Read(Named("a", Rect(1, 100) + Rect(2, 100)) + Named("b", Rect(3, 100)) +
                           Named("b", Rect(4, 100)));
  const struct {
    const char* name;
    std::vector<unsigned> times;
    std::string shown;
  } steps[] = {{"none", {0}, "0"},
               {"a", {0, 100}, "12"},
               {"a", {101, 199}, "22"},
               {"b", {199, 298}, "33"},
               {"a", {300, 399, 400, 500}, "1122"},
               {"none", {600, 699, 700}, "112"}};
  for (const auto& step : steps) {
    sprite->PlayAnimation(step.name);
    EXPECT_EQ(Play(*sprite, 0, step.times), step.shown) << step.name << step.times[0];
  }
}

TEST_F(Animation, SoundPlaysOnceThroughTheAudioTask) {
  const auto sprite = Read(Named("a", Sound("data/a b.wav") + Rect(2, 100) + Sound("") +
                                          Rect(3, 10, Sound("c.wav", "Wrapped"))));
  sprite->PlayAnimation("a");
  EXPECT_EQ(Play(*sprite, 0, {0, 1, 50, 100, 101, 102, 103, 200}), "22223333");
  EXPECT_EQ(sounds, (std::vector<std::string>{"PlayEffect( \"data/a b.wav\" )",
                                              "PlayEffect( \"c.wav\" )"}));
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
    sprites[i] = Read(Named("other", Rect(9, 1000)));
    auto animation = std::make_unique<CAnimation>("a", true);
    animation->AddFrame(std::make_unique<CProbeFrame>(actions[i]));
    sprites[i]->AddAnimation(std::move(animation));
    sprites[i]->PlayAnimation("a");
  }
  Update(100);
  EXPECT_EQ(log, "0145");
  EXPECT_EQ(Play(*sprites[4], 0, {100, 101}), "99");
  sprites[1].reset();
  Update(111);
  EXPECT_EQ(log, "0145353");
}

TEST_F(Animation, BadFramesAreSkippedWithOneLine) {
  const std::pair<std::string, std::size_t> cases[] = {
      // frames, lines in the log
      {"<Frame></Frame>", 1},
      {"<Frame type=\"frame_circle\" ></Frame>", 1},
      {"<Other></Other>", 0},
      {Rect(1, 0, "<Wrapped type=\"no\" ></Wrapped>"), 1},
      {Rect(1, 0, Wrapped(16)), 0},
      {Rect(1, 0, Wrapped(17)), 1},
      {Rect(1, 0, Wrapped(3000)), 1},
      {Sound(""), 0},
      {Sound("a,b"), 1},
      {Sound("a;b"), 1},
      {Sound("a::b"), 1},
      {Sound("a//b"), 1}};
  for (const auto& [frames, lines] : cases) {
    test::CLogCapture log;
    const auto sprite =
        Read("<CurrentAnimation>a</CurrentAnimation><CurrentFrame>99</CurrentFrame>" +
             Named("a", frames + Rect(5, 0)));
    EXPECT_EQ(log.Lines().size(), lines) << frames << log.Text();
    Play(*sprite, 0, {0, 10, 20, 30});
    EXPECT_EQ(sprite->GetImageRect(), (CRect<int>{5, 0, 9, 50})) << frames;
    EXPECT_FALSE(sprite->IsPlaying());
  }
  EXPECT_TRUE(sounds.empty());
}

TEST_F(Animation, WrittenSpriteReadsBack) {
  const auto sprite = Read("<TimeMultiply>1.5</TimeMultiply>" + Named("b", "") +
                           Named("a", Rect(1, 100, Sound("s.wav", "Wrapped")) + Sound("t.wav"), 1));
  sprite->PlayAnimation("a");
  std::string text = Write(*sprite);
  test::CLogCapture log;
  const auto read = Read(text.substr(text.find('>') + 1, text.rfind('<') - text.find('>') - 1));
  EXPECT_EQ(Write(*read), text);
  EXPECT_NE(text.find("s.wav"), std::string::npos);
  EXPECT_EQ(log.Text(), "") << "the order of reading is the order of writing";
  EXPECT_TRUE(read->IsPlaying());
}

}  // namespace
}  // namespace vask
