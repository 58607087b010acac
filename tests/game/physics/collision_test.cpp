#include "game/physics/collision.h"

#include <gtest/gtest.h>

#include <optional>
#include <vector>

namespace brumble {
namespace {

constexpr float kQuarter = 1.57079633F;
constexpr float kEighth = 0.78539816F;
constexpr float kNear = 1.0e-5F;

void ExpectNear(CVec2 actual, CVec2 expected, const char* name) {
  EXPECT_NEAR(actual.x, expected.x, kNear) << name;
  EXPECT_NEAR(actual.y, expected.y, kNear) << name;
}

TEST(Collision, CirclesTouchBetweenTheirCentresAndTheirRims) {
  struct CCase {
    const char* name;
    float distance, radiusA, radiusB;
    bool isTouch;
  };
  const CCase cases[] = {
      {"overlapping", 9.0F, 5.0F, 5.0F, true},
      {"rims meet", 10.0F, 5.0F, 5.0F, true},
      {"apart", 10.001F, 5.0F, 5.0F, false},
      {"centre of each in the other", 3.0F, 5.0F, 5.0F, false},
      {"centre on the other's rim", 5.0F, 5.0F, 5.0F, true},
      {"only B's centre inside A", 4.9F, 5.0F, 1.0F, false},
      {"only A's centre inside B", 4.9F, 1.0F, 5.0F, false},
      {"two points in one place", 0.0F, 0.0F, 0.0F, true},
  };
  for (const CCase& c : cases) {
    const auto touch = CircleCircle({0, 0}, c.radiusA, {c.distance, 0}, c.radiusB);
    ASSERT_EQ(touch.has_value(), c.isTouch) << c.name;
    if (touch) {
      ExpectNear(touch->normal, {c.distance > 0 ? -1.0F : 0.0F, 0}, c.name);
      ExpectNear(touch->points.pointA, {c.radiusA, 0}, c.name);
      ExpectNear(touch->points.pointB, {c.distance - c.radiusB, 0}, c.name);
    }
  }
}

TEST(Collision, CircleTouchesTheNearestPointOfTheBox) {
  struct CCase {
    const char* name;
    CVec2 circle;
    float radius, angle;
    std::optional<CVec2> onBox;
    CVec2 normal;
  };
  constexpr float kDiagonal = 0.70710678F;
  // A box of half extents 2 x 1 around (10, 20).
  const CCase cases[] = {
      {"face, rim meets", {13, 20}, 1, 0, {{12, 20}}, {1, 0}},
      {"face, apart", {13.01F, 20}, 1, 0, {}, {}},
      {"corner", {13, 22}, 1.5F, 0, {{12, 21}}, {kDiagonal, kDiagonal}},
      {"corner, apart though both sides are near", {13, 22}, 1.4F, 0, {}, {}},
      {"turned by a quarter", {10, 17}, 1.25F, kQuarter, {{10, 18}}, {0, -1}},
      {"turned the other way", {8, 20}, 1.25F, -kQuarter, {{9, 20}}, {-1, 0}},
      {"slanted", {9, 20}, 9, kEighth, {{9, 20}}, {0, 0}},
      {"centre on the face", {12, 20}, 3, 0, {{12, 20}}, {0, 0}},
  };
  for (const CCase& c : cases) {
    const auto touch = CircleBox(c.circle, c.radius, {10, 20}, {2, 1}, c.angle);
    ASSERT_EQ(touch.has_value(), c.onBox.has_value()) << c.name;
    if (touch) {
      ExpectNear(touch->points.pointA, c.circle - c.normal * c.radius, c.name);
      ExpectNear(touch->points.pointB, *c.onBox, c.name);
      ExpectNear(touch->normal, c.normal, c.name);
    }
  }
}

// However the turning rounds: what is left of it must not pass for a direction.
TEST(Collision, ACentreInsideTheBoxHasNoNormal) {
  for (int step = 0; step < 70; ++step) {
    const float angle = 0.1F * static_cast<float>(step);
    const auto touch = CircleBox({0.3F, 0.7F}, 1, {0.1F, -0.2F}, {2, 1.9F}, angle);
    ASSERT_TRUE(touch.has_value()) << angle;
    EXPECT_TRUE(touch->normal.x == 0.0F && touch->normal.y == 0.0F) << angle;
    EXPECT_TRUE(touch->points.pointB.x == 0.3F && touch->points.pointB.y == 0.7F) << angle;
  }
}

TEST(Collision, BoxesTouchWithTheCornersBehindTheBestFace) {
  struct CCase {
    const char* name;
    CVec2 posB, halfB;
    float angleB;
    CVec2 normal;
    std::vector<CPointPair> points;
  };
  // A stands upright around the origin, 4 wide; every scene is tried with A and B exchanged too.
  const CCase cases[] = {
      {"apart", {3.01F, 0}, {1, 1}, 0, {}, {}},
      {"sides meet, no corner behind", {3, 0}, {1, 1}, 0, {}, {}},
      {"edge on +x", {2.5F, 0}, {1, 1}, 0, {-1, 0}, {{{2, -1}, {1.5F, -1}}, {{2, 1}, {1.5F, 1}}}},
      {"on -x", {-2.5F, 0}, {1, 1}, 0, {1, 0}, {{{-2, -1}, {-1.5F, -1}}, {{-2, 1}, {-1.5F, 1}}}},
      {"on -y", {0, -2.5F}, {1, 1}, 0, {0, 1}, {{{-1, -2}, {-1, -1.5F}}, {{1, -2}, {1, -1.5F}}}},
      {"clipped", {0, 2.8F}, {5, 1}, 0, {0, -1}, {{{-2, 2}, {-2, 1.8F}}, {{2, 2}, {2, 1.8F}}}},
      {"tie", {2.5F, 2.5F}, {1, 1}, 0, {-1, 0}, {{{2, 1.5F}, {1.5F, 1.5F}}, {{2, 2}, {1.5F, 2}}}},
      {"one corner", {3.2F, 0.5F}, {1, 1}, kEighth, {-1, 0}, {{{2, 0.5F}, {1.7857864F, 0.5F}}}},
      {"three corners", {1, 0}, {1, 1}, kEighth, {}, {}},
  };
  for (const CCase& c : cases) {
    const auto touch = BoxBox({0, 0}, {2, 2}, 0, c.posB, c.halfB, c.angleB);
    const auto exchanged = BoxBox(c.posB, c.halfB, c.angleB, {0, 0}, {2, 2}, 0);
    ASSERT_EQ(touch.has_value(), !c.points.empty()) << c.name;
    ASSERT_EQ(exchanged.has_value(), !c.points.empty()) << c.name;
    if (!touch) {
      continue;
    }
    ASSERT_EQ(touch->count, static_cast<int>(c.points.size())) << c.name;
    ASSERT_EQ(exchanged->count, touch->count) << c.name;
    ExpectNear(touch->normal, c.normal, c.name);
    ExpectNear(exchanged->normal, -c.normal, c.name);
    for (std::size_t k = 0; k < c.points.size(); ++k) {
      ExpectNear(touch->points[k].pointA, c.points[k].pointA, c.name);
      ExpectNear(touch->points[k].pointB, c.points[k].pointB, c.name);
      ExpectNear(exchanged->points[k].pointA, c.points[k].pointB, c.name);
      ExpectNear(exchanged->points[k].pointB, c.points[k].pointA, c.name);
    }
  }
}

// Without a side to prefer, the face is the negative one of A's first axis.
TEST(Collision, BoxesInOnePlaceTouchAtTheNegativeFace) {
  const auto touch = BoxBox({4, 4}, {1, 1}, 0, {4, 4}, {1, 1}, 0);
  ASSERT_TRUE(touch.has_value());
  EXPECT_EQ(touch->count, 2);
  ExpectNear(touch->normal, {1, 0}, "normal");
}

}  // namespace
}  // namespace brumble
