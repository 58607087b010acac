#include "game/physics/collision.h"

#include <gtest/gtest.h>

#include <vector>

namespace brumble {
namespace {

constexpr float kQuarter = 1.57079633F;
constexpr float kEighth = 0.78539816F;

void ExpectNear(CVec2 actual, CVec2 expected, const char* name) {
  EXPECT_NEAR(actual.x, expected.x, 1.0e-5F) << name;
  EXPECT_NEAR(actual.y, expected.y, 1.0e-5F) << name;
}

// clang-format off

TEST(Collision, CirclesTouchBetweenTheirCentresAndTheirRims) {
  const struct { const char* name; float distance, radiusA, radiusB; bool isTouch; } cases[] = {
      {"overlapping", 9, 5, 5, true},
      {"rims meet", 10, 5, 5, true},
      {"apart", 10.001F, 5, 5, false},
      {"centre of each in the other", 3, 5, 5, false},
      {"centre on the other's rim", 5, 5, 5, true},
      {"only B's centre inside A", 4.9F, 5, 1, false},
      {"only A's centre inside B", 4.9F, 1, 5, false},
      {"two points in one place", 0, 0, 0, true},
  };
  for (const auto& c : cases) {
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
  constexpr float kDiagonal = 0.70710678F;
  // A box of half extents 2 x 1 around (10, 20).
  const struct {
    const char* name; CVec2 circle; float radius, angle; bool isTouch; CVec2 onBox, normal;
  } cases[] = {
      {"face, rim meets", {13, 20}, 1, 0, true, {12, 20}, {1, 0}},
      {"face, apart", {13.01F, 20}, 1, 0, false, {}, {}},
      {"corner", {13, 22}, 1.5F, 0, true, {12, 21}, {kDiagonal, kDiagonal}},
      {"corner, apart though both sides are near", {13, 22}, 1.4F, 0, false, {}, {}},
      {"turned by a quarter", {10, 17}, 1.25F, kQuarter, true, {10, 18}, {0, -1}},
      {"turned the other way", {8, 20}, 1.25F, -kQuarter, true, {9, 20}, {-1, 0}},
      {"centre on the face", {12, 20}, 3, 0, true, {12, 20}, {0, 0}},
  };
  for (const auto& c : cases) {
    const auto touch = CircleBox(c.circle, c.radius, {10, 20}, {2, 1}, c.angle);
    ASSERT_EQ(touch.has_value(), c.isTouch) << c.name;
    if (touch) {
      ExpectNear(touch->points.pointA, c.circle - c.normal * c.radius, c.name);
      ExpectNear(touch->points.pointB, c.onBox, c.name);
      ExpectNear(touch->normal, c.normal, c.name);
    }
  }
  // However the turning rounds: what is left of it must not pass for a direction.
  for (int step = 0; step < 70; ++step) {
    const auto inside =
        CircleBox({0.3F, 0.7F}, 1, {0.1F, -0.2F}, {2, 1.9F}, 0.1F * static_cast<float>(step));
    EXPECT_TRUE(inside && inside->normal.x == 0.0F && inside->normal.y == 0.0F) << step;
  }
}

TEST(Collision, BoxesTouchWithTheCornersBehindTheBestFace) {
  // A stands upright around the origin, 4 wide; every scene is tried with A and B exchanged too.
  const struct {
    const char* name; CVec2 posB, halfB; float angleB; CVec2 normal; std::vector<CPointPair> points;
  } cases[] = {
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
  for (const auto& c : cases) {
    const auto touch = BoxBox({0, 0}, {2, 2}, 0, c.posB, c.halfB, c.angleB);
    const auto exchanged = BoxBox(c.posB, c.halfB, c.angleB, {0, 0}, {2, 2}, 0);
    ASSERT_EQ(touch ? static_cast<std::size_t>(touch->count) : 0, c.points.size()) << c.name;
    ASSERT_EQ(exchanged ? exchanged->count : 0, touch ? touch->count : 0) << c.name;
    for (std::size_t k = 0; k < c.points.size(); ++k) {
      ExpectNear(touch->normal, c.normal, c.name);
      ExpectNear(exchanged->normal, -c.normal, c.name);
      ExpectNear(touch->points[k].pointA, c.points[k].pointA, c.name);
      ExpectNear(touch->points[k].pointB, c.points[k].pointB, c.name);
      ExpectNear(exchanged->points[k].pointA, c.points[k].pointB, c.name);
      ExpectNear(exchanged->points[k].pointB, c.points[k].pointA, c.name);
    }
  }
  // Without a side to prefer, the face is the negative one of A's first axis.
  const auto same = BoxBox({4, 4}, {1, 1}, 0, {4, 4}, {1, 1}, 0);
  ASSERT_TRUE(same && same->count == 2);
  ExpectNear(same->normal, {1, 0}, "in one place");
}

}  // namespace
}  // namespace brumble
