#include "game/cast.h"

#include "game/game_support.h"
#include "game/gamefiles.h"
#include "game/gameoverpanel.h"
#include "game/gfxfactory.h"
#include "gfx/animation/animatedsprite.h"
#include "gfx/text/textsprite.h"

#include <numeric>

namespace brumble {
namespace {

using test::Shown;

class Cast : public test::GameTest {
 protected:
  // A kitten of that look, its centre at a place of the screen.
  static SKittenView Kitten(float x, float y, int hair = 1, float health = 3000.0F) {
    return {.bridge = nullptr, .position = {x, y}, .hair = hair, .health = health};
  }
  // Where sprites of that file (numbers have none) are, and what they play or show, in the order of
  // the text.
  static std::string Describe(const std::string& file) {
    std::multiset<std::string> texts;
    for (vask::CSprite* sprite : Shown(file)) {
      const auto* animated = dynamic_cast<vask::CAnimatedSprite*>(sprite);
      const auto* number = dynamic_cast<vask::CTextSprite*>(sprite);
      texts.insert(test::PlaceOf(*sprite) +
                   (animated != nullptr ? " " + animated->GetAnimationName() : "") +
                   (number != nullptr ? " " + number->GetText() : "") + "; ");
    }
    return std::accumulate(texts.begin(), texts.end(), std::string());
  }
  void BeginFace() {
    monster = CGfxFactory::GetSingletonPtr()->LoadSprite("data/gfx/monster.xml");
    face.Begin(story);
    face.Update(nullptr, {}, story);  // as before the first step
  }
  std::string Mood(const SKittenView& kitten) {
    face.Update(monster.Get(), {kitten}, story);
    return dynamic_cast<vask::CAnimatedSprite&>(*monster).GetAnimationName();
  }

  SGameStory story;
  CMonsterFace face;
  vask::CSpritePtr monster;
};

TEST_F(Cast, MarkersShowWhereKittensAreAboveTheScreen) {
  CAboveMarkers markers;
  const auto markerAt = [&](float y) {
    markers.Update({Kitten(400, y)});
    return Describe(AboveMarkerFile(1));
  };
  EXPECT_EQ(markerAt(-20), "");
  EXPECT_EQ(markerAt(-24), "382,0 size_1; ");
  EXPECT_EQ(markerAt(-226), "382,0 size_2; ");
  EXPECT_EQ(markerAt(-833), "382,0 size_4; ");
  markers.Update({Kitten(400, -500, 3)});
  EXPECT_EQ(Describe(AboveMarkerFile(1)) + Describe(AboveMarkerFile(3)), "382,0 size_3; ");
  markers.Update({Kitten(100, -100), Kitten(200, -100)});
  EXPECT_EQ(Describe(AboveMarkerFile(1)), "182,0 size_1; 82,0 size_1; ");
  markers.Update({});
  EXPECT_EQ(Describe(AboveMarkerFile(1)), "");
}

TEST_F(Cast, TheOvenTellsHowNearTheWorstKittenIsToBald) {
  COvenLights lights;
  lights.Begin();
  const auto lampsAt = [&](float health) {
    lights.Update({Kitten(0, 0), Kitten(0, 0, 1, health), Kitten(0, 0)}, story);
    return Describe(kLampsFile);
  };
  EXPECT_EQ(lampsAt(2251), "50,281 lit_0; ");
  EXPECT_EQ(lampsAt(2250), "50,281 lit_1; ");
  EXPECT_EQ(lampsAt(1500), "50,281 lit_2; ");
  EXPECT_EQ(lampsAt(750), "50,281 lit_3; ");
  EXPECT_EQ(lampsAt(0), "50,281 lit_3; ");
  EXPECT_EQ(lampsAt(-1), "50,281 lit_4; ");
  EXPECT_TRUE(Shown(kOvenBreathFile).empty());
  story.isDoorOpen = true;
  lights.Update({}, story);
  EXPECT_EQ(Shown(kOvenBreathFile).size(), 1U) << "it breathes while its door is open";
  EXPECT_EQ(Describe(kLampsFile), "50,281 lit_0; ") << "no kitten";
  lights.Begin();
  EXPECT_EQ(lampsAt(2250), "50,281 lit_1; ") << "the next game begins without";
}

TEST_F(Cast, AKittenSpeaksForAWhileWhenItLosesHair) {
  CSpeech speech;
  const auto said = [&](unsigned time, int hair, float y = 5) {
    speech.Update({Kitten(10, y, hair)}, time);
    return Describe(SayingFile(1)) + Describe(SayingFile(7));
  };
  EXPECT_EQ(said(0, 1), "");
  EXPECT_EQ(said(10, 2), "0,0; ") << "inside the screen";
  EXPECT_EQ(said(1209, 2), "0,0; ");
  EXPECT_EQ(said(1210, 2), "");
  EXPECT_EQ(said(2000, 3, -50), "0,36; ") << "bald kittens say other things; below its mark";
  speech.Update({}, 2010);
  EXPECT_EQ(Describe(SayingFile(7)), "") << "it has gone";
}

TEST_F(Cast, TheMonsterMindsWhatHappens) {
  BeginFace();
  EXPECT_EQ(Mood(Kitten(400, 300)), "idle");
  story.fates = {EFate::kServed};
  EXPECT_EQ(Mood(Kitten(400, -100)), "up");
  ++story.doorOpenings;
  EXPECT_EQ(Mood(Kitten(400, 300)), "lick");
  EXPECT_EQ(Mood(Kitten(400, -100)), "lick") << "to its end";
  story.fates.push_back(EFate::kBurnt);
  EXPECT_EQ(Mood(Kitten(400, 300)), "wince");
  EXPECT_TRUE(Shown(kMonsterPupilFile).empty()) << "its eyes are shut";
  for (int i = 0; i < 30; ++i) {
    Pass(100);
  }
  EXPECT_EQ(Mood(Kitten(400, 300)), "idle");
}

TEST_F(Cast, PupilsLookAtTheNearestKitten) {
  BeginFace();
  monster->SetPosition(100, 100);  // its middle is at 138, 138
  const auto pupilsFor = [this](float x, float y) {
    face.Update(monster.Get(), {Kitten(-2000, 138), Kitten(x, y)}, story);
    return Describe(kMonsterPupilFile);
  };
  EXPECT_EQ(pupilsFor(500, 138), "129,128; 147,126; ") << "to the right";
  EXPECT_EQ(pupilsFor(138, 500), "125,132; 145,128; ") << "down";
  EXPECT_EQ(pupilsFor(138, 138), "125,128; 145,126; ") << "straight on";
}

TEST_F(Cast, HintsAreShownUntilAKittenIsServed) {
  CHints hints;
  story.isDoorOpen = true;
  const auto shown = [&](const SKittenView& kitten) {
    hints.Update({kitten}, story);
    return Describe(kHintSpinFile) + Describe(kHintLampsFile) + Describe(kHintDoorFile);
  };
  const std::string door = "62,216 nudge; ";
  hints.Begin(true);
  EXPECT_EQ(shown(Kitten(400, 300, 2, 0)), "355,255 turn; 78,345 nudge; " + door);
  EXPECT_EQ(shown(Kitten(400, 300, 3, -1)), door) << "a bald kitten need not spin";
  story.fates = {EFate::kServed};
  EXPECT_EQ(shown(Kitten(400, 300)), "");
}

TEST_F(Cast, ThePanelTellsPlaceOrShortageAndRank) {
  SGameResult result;
  result.story.banked = {.spins = 2300, .walls = 190, .oven = 7, .bonuses = 3};
  result.bestBefore = 2501;
  const auto shown = [&](int place) {
    result.place = place;
    CGameOverPanel panel;
    panel.Show(result);
    EXPECT_EQ(Describe(kPanelScoreFile), "204,159; ");
    return Describe(kPanelShortFile) + Describe(kPanelNewBestFile) + Describe(RankFile(3)) +
           Describe("");
  };
  // The words and the verdict; then the score, the spins, the oven, how much is missing to the
  // best, the walls, the bonuses and the place.
  EXPECT_EQ(shown(2),
            "311,184; 290,213 over; 274,159 2500; 274,256 2300; 274,283 7; 289,184 1; 506,256 190; "
            "506,283 3; 532,159 2; ");
  EXPECT_EQ(shown(1),
            "280,184; 290,213 best; 274,159 2500; 274,256 2300; 274,283 7; 506,256 190; 506,283 3; "
            "532,159 1; ");
}

TEST(Results, HaveARankAndAreABestOnlyWithPoints) {
  EXPECT_EQ(RankOf(-5), 1);
  EXPECT_EQ(RankOf(80000), 8);
  const SGameResult nothing{.story = {}, .place = 1};
  EXPECT_FALSE(nothing.IsNewBest());
}

}  // namespace
}  // namespace brumble
