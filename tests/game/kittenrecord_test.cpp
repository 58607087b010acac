#include "game/kittenrecord.h"

#include "gtest/gtest.h"

namespace brumble {
namespace {

TEST(WallHitPoints, FollowTheCubeBetweenTheLimits) {
  const std::vector<std::pair<float, int>> cases = {
      {1.0F, 5},        {3100.0F, 60},  // n = 11: 5 * 121 / 100 = 6
      {4225.0F, 100},                   // n = 13: an odd n is halved downward
      {15625.0F, 750},  {19600.0F, 1000},
      {40000.0F, 1000}, {1e20F, 1000},  // would not fit into an int
  };
  for (const auto& [impulseSquared, points] : cases) {
    EXPECT_EQ(WallHitPoints(impulseSquared), points) << impulseSquared;
  }
}

TEST(ReadTouches, JudgesOneTouchAndWallBounceApart) {
  const struct {
    std::vector<int> touches;
    int count;
    bool isOneTouch, isWallBounce;
  } cases[] = {
      {{}, 0, false, false},        {{3, 1, 0}, 0, false, true},  {{7, 7, 0}, 2, true, false},
      {{7, 1, 2}, 1, true, true},   {{7, 1, 7}, 2, false, false}, {{3, 7, 1}, 1, false, true},
      {{1, 7, 0}, 1, false, false},
  };
  for (const auto& c : cases) {
    const CTouchStory story = ReadTouches(c.touches);
    const std::string name = ::testing::PrintToString(c.touches);
    EXPECT_EQ(story.monsterTouches, c.count) << name;
    EXPECT_EQ(story.isOneTouch, c.isOneTouch) << name;
    EXPECT_EQ(story.isWallBounce, c.isWallBounce) << name;
  }
}

TEST(CKittenRecord, PaysEachHealthThresholdOnce) {
  CKittenRecord record;
  const std::vector<std::pair<float, int>> falls = {{3000.0F, 0}, {1501.0F, 0}, {1500.0F, 5},
                                                    {1400.0F, 0}, {0.0F, 5},    {-50.0F, 0}};
  for (const auto& [health, points] : falls) {
    EXPECT_EQ(record.PassThresholds(health), points) << health;
  }
  EXPECT_EQ(CKittenRecord().PassThresholds(-1.0F), 10) << "both in one fall";
}

}  // namespace
}  // namespace brumble
