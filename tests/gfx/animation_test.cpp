#include "gfx/animation.h"

#include <gtest/gtest.h>

#include <cmath>
#include <fstream>
#include <functional>

#include "gfx/animatedsprite.h"
#include "gfx/animationupdator.h"
#include "kernel/taskfactory.h"
#include "support/logcapture.h"
#include "support/testpicture.h"
#include "utils/xml/xml.h"

namespace vask {
namespace {

using Texts = std::vector<std::string>;

// Stands in for the audio task and hears what it is sent.
struct CAudioProbe : CTask {
  static inline Texts sounds;
  static inline std::function<void(char)> onSound;
  void Update() override {}
  bool ExecuteCommand(const std::string& line) override {
    sounds.push_back(line);
    onSound ? onSound(line[line.find('"') + 1]) : void();
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
  ~Animation() override {
    CAnimationUpdator::DeleteSingleton();
    CAudioProbe::sounds.clear();
    CAudioProbe::onSound = nullptr;
  }

  static SpritePtr Load(const char* file) {
    auto sprite = std::make_unique<CAnimatedSprite>();
    sprite->SetImage(Gfx::NewBuffer(50, 50));
    LoadXml(*sprite, file);
    return sprite;
  }
  static SpritePtr Read(const std::string& fields) {
    std::ofstream("a.xml") << "<S>" + fields + "</S>";
    return Load("a.xml");
  }
  static void Update(unsigned time) { CAnimationUpdator::GetSingletonPtr()->Update(time); }
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
    bool loop;
    float factor;
    std::vector<unsigned> times;
    std::string shown;
  } cases[] = {
      // clang-format off
      {pair + Rect(3, 100), true, 1, {0, 50, 99, 100, 150, 200, 299, 300, 400}, "111223312"},
      {pair, false, 1, {0, 100, 199, 200, 900}, "12222"},
      // Frames without a length hand over with the next update.
      {Rect(1, 0) + Sound("") + Rect(2, 50, Sound("", "Wrapped")) + Rect(3, 30), true, 1, {0, 1, 2, 3, 32, 33, 34}, "1233112"},
      {"", true, 1, {0, 250, 500}, "000"},
      {pair, true, 2, {0, 49, 50, 100, 200}, "11212"}, {pair, true, 0.5F, {0, 49, 50, 100, 200}, "11112"},
      {pair, true, 0, {0, 49, 50, 100, 200}, "11111"}, {pair, true, NAN, {0, 49, 50, 100, 200}, "11121"},
      // clang-format on
  };
  for (const unsigned start : {0U, 5000U, 4294967200U}) {
    for (const auto& row : cases) {
      const SpritePtr sprite = Read(Named("a", row.frames, row.loop));
      sprite->PlayAnimation("a");
      sprite->SetTimeMultiply(row.factor);
      EXPECT_EQ(Play(*sprite, start, row.times), row.shown) << row.frames << start;
      EXPECT_EQ(sprite->IsPlaying(), row.loop);
    }
  }
}

TEST_F(Animation, PlayingAgainStartsFromTheFirstFrameWhateverTheClock) {
  const SpritePtr sprite = Read(Named("a", Rect(1, 100) + Rect(2, 100)) + Named("b", Rect(3, 100)));
  const std::tuple<const char*, std::vector<unsigned>, const char*> steps[] = {
      // clang-format off
      {"none", {0}, "0"}, {"a", {0, 100}, "12"}, {"a", {101, 199}, "22"}, {"b", {199, 298}, "33"},
      {"a", {300, 399, 400, 500}, "1122"}, {"none", {600, 699, 700}, "112"},
      // clang-format on
  };
  for (const auto& [name, times, shown] : steps) {
    sprite->PlayAnimation(name);
    EXPECT_EQ(Play(*sprite, 0, times), shown) << name << times[0];
  }
}

TEST_F(Animation, FramesMayDeleteStopAndStartSprites) {
  std::vector<SpritePtr> sprites(6);
  std::string heard;
  CAudioProbe::onSound = [&](char name) {
    heard += name;
    switch (name) {
      case '0':
        return sprites[0].reset();  // itself
      case '1':
        return sprites[2].reset(), sprites[3]->Stop();
      case '4':
        return sprites[4]->PlayAnimation("other");
      case '5':
        return sprites[3]->Play();
    }
  };
  for (std::size_t i = 0; i < sprites.size(); ++i) {
    sprites[i] = Read(Named("a", Sound(std::to_string(i)), true) + Named("other", Rect(9, 1000)));
    sprites[i]->PlayAnimation("a");
  }
  Update(100);
  EXPECT_EQ(heard, "0145");
  sprites[1].reset();
  Update(101);
  EXPECT_EQ(heard, "014535") << "each once in a pass";
  EXPECT_EQ(sprites[4]->GetImageRect().x, 9);
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
  EXPECT_EQ(CAudioProbe::sounds, Texts{});
}

TEST_F(Animation, WrittenSpriteReadsBackAndPlaysItsSoundsOnce) {
  const std::string frames =
      Sound("a b.wav") + Rect(2, 100) + Rect(3, 10, Sound("c.wav", "Wrapped")) + Rect(4, 100);
  SaveXml(*Read("<TimeMultiply>2</TimeMultiply><CurrentAnimation>a</CurrentAnimation>" +
                Named("b", "") + Named("a", frames)),
          "written.xml");
  const test::CLogCapture log;
  const SpritePtr sprite = Load("written.xml");
  EXPECT_EQ(log.Text(), "") << "the order of reading is the order of writing";
  EXPECT_EQ(Play(*sprite, 0, {0, 1, 25, 50, 51, 52, 60, 200}), "22234444");
  EXPECT_EQ(CAudioProbe::sounds, (Texts{"PlayEffect( \"a b.wav\" )", "PlayEffect( \"c.wav\" )"}));
}

}  // namespace
}  // namespace vask
