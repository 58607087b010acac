#include "game/physics/geometry.h"

#include <gtest/gtest.h>

namespace brumble {
namespace {

struct CPointCase {
  const char* name;
  CVec2 a, b, p;
  CVec2 expected;
};

TEST(Geometry, ClosestPointStaysOnTheSegment) {
  const CPointCase cases[] = {
      {"before a", {1, 1}, {5, 1}, {-3, 9}, {1, 1}},
      {"beyond b", {1, 1}, {5, 1}, {6, 0}, {5, 1}},
      {"between", {1, 1}, {5, 1}, {2, 7}, {2, 1}},
      {"slanted", {0, 0}, {3, 4}, {4, -3}, {0, 0}},
      {"segment of no length", {2, 3}, {2, 3}, {9, 9}, {2, 3}},
  };
  for (const CPointCase& c : cases) {
    const CVec2 point = ClosestPointOnSegment(c.a, c.b, c.p);
    EXPECT_FLOAT_EQ(point.x, c.expected.x) << c.name;
    EXPECT_FLOAT_EQ(point.y, c.expected.y) << c.name;
  }
}

struct CClipCase {
  const char* name;
  CVec2 a, b;
  CVec2 expectedA, expectedB;
};

TEST(Geometry, ClipByPlaneKeepsTheInnerPart) {
  // The plane x = 2, outside to the right.
  const CClipCase cases[] = {
      {"leaves", {0, 1}, {4, 1}, {0, 1}, {2, 1}},
      {"enters", {4, 1}, {0, 1}, {2, 1}, {0, 1}},
      {"inside", {0, 1}, {1, 5}, {0, 1}, {1, 5}},
      {"wholly outside comes back whole", {3, 1}, {4, 1}, {3, 1}, {4, 1}},
      {"along the plane", {2, 0}, {2, 4}, {2, 0}, {2, 4}},
      {"a point outside", {3, 1}, {3, 1}, {3, 1}, {3, 1}},
      {"starts on the plane, which is outside", {2, 0}, {0, 0}, {2, 0}, {0, 0}},
      {"starts on the plane and goes out", {2, 0}, {4, 0}, {2, 0}, {4, 0}},
  };
  for (const CClipCase& c : cases) {
    const CSegment s = ClipSegment(c.a, c.b, {2, -7}, {1, 0});
    EXPECT_FLOAT_EQ(s.a.x, c.expectedA.x) << c.name;
    EXPECT_FLOAT_EQ(s.a.y, c.expectedA.y) << c.name;
    EXPECT_FLOAT_EQ(s.b.x, c.expectedB.x) << c.name;
    EXPECT_FLOAT_EQ(s.b.y, c.expectedB.y) << c.name;
  }
}

TEST(Geometry, ClipToBoxCutsAtAllFourSides) {
  // A box turned by a quarter: its axis 0 points down, so it reaches 3 in y and 1 in x around (10,
  // 0).
  const CSegment across = ClipSegmentToBox({0, 0.5F}, {20, 0.5F}, {10, 0}, {0, 1}, {-1, 0}, {3, 1});
  EXPECT_FLOAT_EQ(across.a.x, 9.0F);
  EXPECT_FLOAT_EQ(across.b.x, 11.0F);
  const CSegment down = ClipSegmentToBox({10, -8}, {10, 8}, {10, 0}, {0, 1}, {-1, 0}, {3, 1});
  EXPECT_FLOAT_EQ(down.a.y, -3.0F);
  EXPECT_FLOAT_EQ(down.b.y, 3.0F);
}

}  // namespace
}  // namespace brumble
