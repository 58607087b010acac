#include "game/cast.h"

#include "game/game_support.h"
#include "game/gamefiles.h"
#include "game/gameoverpanel.h"
#include "game/gfxfactory.h"
#include "game/physics/physicsgfxbridge.h"
#include "gfx/animation/animatedsprite.h"

namespace brumble {
namespace {

// A kitten that is nobody's body.
class CBridge : public IPhysicsGfxBridge {
 public:
  void Update(float, float, float, float, float, std::int32_t, std::int32_t) override {}
  int SetIndex(int index) override { return index; }
  void OnImpact(float, IPhysicsGfxBridge*) override {}
  int GetIndex() const override { return 8; }
  void SetAngularVelocity(float) override {}
  void OnDamaged() override {}
};

class Cast : public test::GameTest {
 protected:
  // A kitten of that look, its centre at a place of the screen.
  SKittenView Kitten(float x, float y, int hair = 1, float health = 3000.0F) {
    return {&bridge, {x, y}, hair, health};
  }
  // Where sprites of that file are, and what they play.
  static std::string Describe(const std::string& file) {
    std::string text;
    for (vask::CSprite* sprite : test::Shown(file)) {
      const auto* animated = dynamic_cast<vask::CAnimatedSprite*>(sprite);
      text += (text.empty() ? "" : ", ") + std::to_string(sprite->GetX()) + " " +
              std::to_string(sprite->GetY()) +
              (animated != nullptr ? " " + animated->GetAnimationName() : "");
    }
    return text;
  }

  CBridge bridge;
  SGameStory story;
};

TEST_F(Cast, MarkerShowsWhereAKittenIsAboveTheScreen) {
  CAboveMarkers markers;
  const struct {
    const char* name;
    float y;
    int hair;
    std::string shown;
  } rows[] = {
      {"half above", -20, 1, ""},
      {"just above", -24, 1, "382 0 size_1"},
      {"a quarter of the way", -226, 1, "382 0 size_2"},
      {"at the ceiling", -833, 2, "382 0 size_4"},
      {"bald", -500, 3, "382 0 size_3"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.name);
    markers.Update({Kitten(400, row.y, row.hair)});
    EXPECT_EQ(Describe(AboveMarkerFile(row.hair)), row.shown);
  }
  EXPECT_EQ(Describe(AboveMarkerFile(1)), "") << "only the bald one is left";
  markers.Update({Kitten(100, -100), Kitten(200, -100)});
  EXPECT_EQ(Describe(AboveMarkerFile(1)), "182 0 size_1, 82 0 size_1");
  markers.Update({});
  EXPECT_EQ(Describe(AboveMarkerFile(1)), "");
}

TEST_F(Cast, LampsTellHowNearTheWorstKittenIsToBald) {
  COvenLights lights;
  lights.Begin();
  const struct {
    std::vector<float> healths;
    std::string lit;
  } rows[] = {
      {{3000}, "lit_0"}, {{2251}, "lit_0"}, {{2250}, "lit_1"}, {{1500}, "lit_2"},
      {{750}, "lit_3"},  {{0}, "lit_3"},    {{-1}, "lit_4"},   {{2900, 1500, 2000}, "lit_2"},
      {{}, "lit_0"},
  };
  for (const auto& row : rows) {
    SCOPED_TRACE(row.healths.empty() ? 0 : row.healths[0]);
    std::vector<SKittenView> kittens;
    for (const float health : row.healths) {
      kittens.push_back(Kitten(0, 0, 1, health));
    }
    lights.Update(kittens, story);
    EXPECT_EQ(Describe(kLampsFile), "50 281 " + row.lit);
  }
}

TEST_F(Cast, OvenBreathesWhileItsDoorIsOpen) {
  COvenLights lights;
  story.isDoorOpen = true;
  lights.Update({}, story);
  EXPECT_EQ(test::Shown(kOvenBreathFile).size(), 1U);
  story.isDoorOpen = false;
  lights.Update({}, story);
  EXPECT_EQ(test::Shown(kOvenBreathFile).size(), 0U);
}

TEST_F(Cast, KittenSpeaksForAWhileWhenItLosesHair) {
  CSpeech speech;
  speech.Begin();
  speech.Update({Kitten(400, 300, 1)}, 0);
  EXPECT_EQ(Describe(SayingFile(1)), "") << "it has lost nothing";
  speech.Update({Kitten(400, 300, 2)}, 10);
  EXPECT_EQ(test::Shown(SayingFile(1)).size(), 1U);
  speech.Update({Kitten(10, 5, 2)}, 1209);
  EXPECT_EQ(Describe(SayingFile(1)), "0 0") << "within the screen";
  speech.Update({Kitten(400, 300, 2)}, 1210);
  EXPECT_EQ(Describe(SayingFile(1)), "");
  speech.Update({Kitten(400, 300, 3)}, 2000);
  EXPECT_EQ(test::Shown(SayingFile(7)).size(), 1U) << "bald kittens say other things";
  speech.Update({}, 2010);
  EXPECT_EQ(Describe(SayingFile(7)), "") << "it has gone";
}

TEST_F(Cast, MonsterMindsWhatHappens) {
  CMonsterFace face;
  vask::CSpritePtr monster = CGfxFactory::GetSingletonPtr()->LoadSprite("data/gfx/monster.xml");
  face.Begin(story);
  const auto mood = [&](const SKittenView& kitten) {
    face.Update(monster.Get(), {kitten}, story);
    return dynamic_cast<vask::CAnimatedSprite&>(*monster).GetAnimationName();
  };
  EXPECT_EQ(mood(Kitten(400, 300)), "idle");
  EXPECT_EQ(mood(Kitten(400, -100)), "up");
  story.fates = {EFate::kServed};
  EXPECT_EQ(mood(Kitten(400, -100)), "up") << "nothing to wince at";
  ++story.doorOpenings;
  EXPECT_EQ(mood(Kitten(400, 300)), "lick");
  EXPECT_EQ(mood(Kitten(400, -100)), "lick") << "to its end";
  story.fates.push_back(EFate::kBurnt);
  EXPECT_EQ(mood(Kitten(400, 300)), "wince");
  EXPECT_TRUE(test::Shown(kMonsterPupilFile).empty()) << "its eyes are shut";
  for (int i = 0; i < 30; ++i) {
    Pass(100);
  }
  EXPECT_EQ(mood(Kitten(400, 300)), "idle");
}

TEST_F(Cast, PupilsLookAtTheNearestKitten) {
  CMonsterFace face;
  vask::CSpritePtr monster = CGfxFactory::GetSingletonPtr()->LoadSprite("data/gfx/monster.xml");
  monster->SetPosition(100, 100);  // its middle is at 138, 138
  face.Begin(story);
  face.Update(nullptr, {}, story);  // as before the first step
  const struct {
    float x, y;
    std::string pupils;
  } rows[] = {
      {500, 138, "129 128, 147 126"},
      {138, 500, "125 132, 145 128"},
      {138, 138, "125 128, 145 126"},
  };
  for (const auto& row : rows) {
    face.Update(monster.Get(), {Kitten(-2000, 138), Kitten(row.x, row.y)}, story);
    std::string pupils = Describe(kMonsterPupilFile);
    EXPECT_TRUE(pupils == row.pupils ||
                pupils == row.pupils.substr(9) + ", " + row.pupils.substr(0, 7))
        << pupils;
  }
}

TEST_F(Cast, HintsAreForWhoHasNeverServedAKitten) {
  CHints hints;
  hints.Begin(true);
  story.isDoorOpen = true;
  hints.Update({Kitten(400, 300)}, story);
  EXPECT_EQ(Describe(kHintSpinFile), "355 255 turn");
  EXPECT_EQ(test::Shown(kHintLampsFile).size(), 1U);
  EXPECT_EQ(test::Shown(kHintDoorFile).size(), 1U);
  hints.Update({Kitten(400, 300, 3, -1)}, story);
  EXPECT_EQ(Describe(kHintSpinFile), "") << "a bald kitten need not spin";
  story.fates = {EFate::kServed};
  hints.Update({Kitten(400, 300)}, story);
  EXPECT_EQ(Describe(kHintDoorFile), "");
  story.fates.clear();
  hints.Begin(false);
  hints.Update({Kitten(400, 300)}, story);
  EXPECT_EQ(Describe(kHintSpinFile), "");
}

TEST_F(Cast, RanksFollowTheScore) {
  const struct {
    int score;
    int rank;
  } rows[] = {{-5, 1}, {0, 1}, {1, 2}, {2499, 2}, {2500, 3}, {79999, 7}, {80000, 8}};
  for (const auto& row : rows) {
    EXPECT_EQ(RankOf(row.score), row.rank) << row.score;
  }
}

TEST_F(Cast, PanelTellsPlaceOrShortage) {
  SGameResult result;
  result.story.banked = {.spins = 100, .walls = 20, .oven = 3, .bonuses = 1};
  result.story.fates = {EFate::kBurnt, EFate::kServed, EFate::kBurnt};
  result.place = 2;
  result.bestBefore = 1124;
  {
    CGameOverPanel panel;
    panel.Show(result);
    EXPECT_EQ(test::Shown(kPanelPlaceFile).size(), 1U);
    EXPECT_EQ(test::Shown(kPanelShortFile).size(), 1U);
    EXPECT_EQ(test::Shown(RankFile(2)).size(), 1U);
    EXPECT_EQ(test::Shown(kFateGhostFile).size(), 2U);
    EXPECT_EQ(Describe(kGhostFile), "270 430 rise, 180 430 rise");
    Pass(4500);
    EXPECT_EQ(Describe(kGhostFile), "270 -60 rise, 180 -60 rise");
  }
  EXPECT_TRUE(test::Shown(kPanelShortFile).empty());
  CGameOverPanel panel;
  result.place = 1;
  panel.Show(result);
  EXPECT_EQ(test::Shown(kPanelNewBestFile).size(), 1U);
  EXPECT_TRUE(test::Shown(kPanelShortFile).empty());
}

}  // namespace
}  // namespace brumble
