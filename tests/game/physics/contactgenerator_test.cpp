#include "game/physics/contactgenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <memory>
#include <optional>
#include <random>
#include <sstream>
#include <utility>
#include <vector>

namespace brumble {
namespace {

CPhysicsBody Box(float x, float y, float halfWidth, float halfHeight, float angle = 0.0F) {
  return {.shape = kBox,
          .halfWidth = halfWidth,
          .halfHeight = halfHeight,
          .x = x,
          .y = y,
          .angle = angle,
          .bridge = {}};
}
SOrientedBox BoxOf(const CPhysicsBody& body) {
  return {{body.x, body.y}, {body.halfWidth, body.halfHeight}, Direction(body.angle)};
}
CPhysicsBody Disc(float x, float y, float radius) {
  CPhysicsBody disc = Box(x, y, radius, radius);
  disc.shape = kCircle;
  return disc;
}

// The contacts as text: the points of A and B, and the normal.
std::string Describe(const CContactBuffer& contacts) {
  std::ostringstream text;
  for (const CContact& contact : contacts) {
    for (const SVec2 v : {contact.pointA, contact.pointB, contact.normal}) {
      text << std::round(v.x * 1000) / 1000 + 0.0F << "," << std::round(v.y * 1000) / 1000 + 0.0F
           << " ";
    }
  }
  return text.str();
}

TEST(Geometry, SegmentsMeetPlanesAndAreCutByThem) {
  const auto text = [](SVec2 v) { return std::to_string(v.x) + "," + std::to_string(v.y); };
  EXPECT_EQ(text(ClosestPointOnSegment({0, 0}, {4, 0}, {1, 3})), text({1, 0}));
  EXPECT_EQ(text(*IntersectSegmentPlane({0, 0}, {4, 0}, {1, 3}, {1, 0})), text({1, 0}));
  EXPECT_FALSE(IntersectSegmentPlane({4, 0}, {4, 0}, {4, 3}, {1, 0})) << "a point";
  EXPECT_FALSE(IntersectSegmentPlane({0, 0}, {4, 0}, {5, 3}, {1, 0})) << "it ends before";
  EXPECT_FALSE(IntersectSegmentPlane({0, 0}, {4, 0}, {-1, 3}, {1, 0})) << "it starts behind";
  EXPECT_EQ(text(ClipSegment({0, 0}, {4, 0}, {1, 3}, {1, 0}).b), text({1, 0}));
  EXPECT_EQ(text(ClipSegment({0, 0}, {4, 0}, {1, 3}, {-1, 0}).a), text({1, 0}));
  EXPECT_EQ(CircleBox({3, 0}, 1.1F, {0, 0}, {2, 1}, 0)->normal.x, 1.0F);
  EXPECT_EQ(BoxBox({0, 0}, {2, 2}, 0, {2.5F, 0}, {1, 1}, 0)->count, 2);
}

class ContactTest : public testing::Test {
 protected:
  CContactGenerator myGenerator;  // kept from scene to scene, as in a world
  std::unique_ptr<CContactBuffer> myContacts = std::make_unique<CContactBuffer>();
};

// In the order of these, also: what is kept must not outlive a change of one field.
TEST_F(ContactTest, PairsTouchWhereTheyShould) {
  constexpr float kQuarter = 1.57079633F, kEighth = 0.78539816F;
  const auto contacts = [this](CPhysicsBody a, CPhysicsBody b) {
    std::vector<CPhysicsBody> bodies(2);
    bodies[0] = std::move(a);
    bodies[1] = std::move(b);
    myGenerator.Generate(bodies, *myContacts);
    return Describe(*myContacts);
  };
  EXPECT_EQ(contacts(Disc(0, 0, 5), Disc(9, 0, 5)), "5,0 4,0 -1,0 ");
  EXPECT_EQ(contacts(Disc(0, 0, 5), Disc(10, 0, 5)), "5,0 5,0 -1,0 ") << "rims meet";
  EXPECT_EQ(contacts(Disc(0, 0, 5), Disc(10.001F, 0, 5)), "");
  EXPECT_EQ(contacts(Disc(0, 0, 5), Disc(4.9F, 0, 1)), "") << "a centre inside";
  EXPECT_EQ(contacts(Disc(0, 0, 5), Disc(5, 0, 5)), "5,0 0,0 -1,0 ") << "a centre on the rim";
  EXPECT_EQ(contacts(Disc(13, 20, 1), Box(10, 20, 2, 1)), "12,20 12,20 1,0 ") << "face";
  EXPECT_EQ(contacts(Box(10, 20, 2, 1), Disc(13, 20, 1)), "12,20 12,20 1,0 ") << "the disc is A";
  EXPECT_EQ(contacts(Disc(3, 3, 1.5F), Box(0, 0, 2, 2)), "1.939,1.939 2,2 0.707,0.707 ");
  EXPECT_EQ(contacts(Disc(3, 3, 1.4F), Box(0, 0, 2, 2)), "") << "near two sides";
  EXPECT_EQ(contacts(Disc(10, 17, 2), Box(10, 20, 2, 1, kQuarter)), "10,19 10,18 0,-1 ");
  EXPECT_EQ(contacts(Disc(0.3F, 0.7F, 1), Box(0, 0, 2, 1.9F, 0.4F)), "0.3,0.7 0.3,0.7 0,0 ");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(2.5F, 0, 0.4F, 1)), "");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(2.5F, 0, 1, 1)), "2,-1 1.5,-1 -1,0 2,1 1.5,1 -1,0 ");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(0, 2.8F, 5, 0.5F)), "");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(0, 2.8F, 5, 1)), "-2,2 -2,1.8 0,-1 2,2 2,1.8 0,-1 ");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(3.2F, 0, 1, 1, kEighth)), "2,0 1.786,0 -1,0 ");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(1, 0, 1, 1, kEighth)), "") << "three corners";
}

using Point = std::complex<double>;

double Along(Point p, Point direction) { return (p * std::conj(direction)).real(); }

std::array<Point, 4> CornersOf(const CPhysicsBody& box) {
  const Point axis = std::polar(1.0, double{box.angle}), centre(box.x, box.y);
  const Point w = axis * Point(box.halfWidth, 0), h = axis * Point(0, box.halfHeight);
  return {centre - w - h, centre + w - h, centre - w + h, centre + w + h};
}

// How far the corners reach in that direction.
double Reach(const std::array<Point, 4>& corners, Point direction) {
  const auto along = [=](Point corner) { return Along(corner, direction); };
  return along(std::ranges::max(corners, {}, along));
}

// The same question put to the corners, in doubles.
TEST(BoxBox, TouchesWhereTheCornersSaySo) {
  std::minstd_rand random;
  const auto upTo = [&](float range) { return static_cast<float>(random() % 1000) * range / 1000; };
  int touches = 0;
  for (int pair = 0; pair < 5000; ++pair) {
    SCOPED_TRACE(pair);
    const CPhysicsBody boxA = Box(0, 0, 1 + upTo(4), 1 + upTo(4), upTo(6));
    const CPhysicsBody boxB = Box(upTo(9), upTo(9), 1 + upTo(4), 1 + upTo(4), upTo(6));
    const std::array<Point, 4> a = CornersOf(boxA), b = CornersOf(boxB);
    // How far A has to go in that direction to leave B.
    const auto depth = [&](Point direction) { return Reach(b, direction) + Reach(a, -direction); };
    std::vector<Point> normals;  // of A's faces, then of B's
    for (int side = 0; side < 8; ++side) {
      normals.push_back(std::polar(1.0, (side < 4 ? boxA : boxB).angle + side * std::acos(0.0)));
    }
    const auto best = std::ranges::min_element(normals, {}, depth);
    const Point toA = *best;
    const bool isFaceOfA = best - normals.begin() < 4;
    const Point out = isFaceOfA ? -toA : toA;  // of the face
    const double face = Reach(isFaceOfA ? a : b, out);
    const auto isInside = [=](Point corner) { return Along(corner, out) < face; };
    const auto inside = std::ranges::count_if(isFaceOfA ? b : a, isInside);
    const bool isTouch = depth(toA) > 0 && inside < 3;
    const std::optional<SBoxTouch> touch = BoxBox(BoxOf(boxA), BoxOf(boxB));
    ASSERT_EQ(touch ? touch->count : 0, isTouch ? inside : 0);
    for (int k = 0; touch && k < touch->count; ++k) {
      const SPointPair& points = touch->points[static_cast<std::size_t>(k)];
      const Point onA(points.pointA.x, points.pointA.y), onB(points.pointB.x, points.pointB.y);
      ASSERT_NEAR(std::abs(Point(touch->normal.x, touch->normal.y) - toA), 0, 1e-3);
      ASSERT_NEAR(Along(isFaceOfA ? onA : onB, out), face, 1e-3);
      ASSERT_NEAR(Along(onB - onA, toA), depth(toA) / 2, depth(toA) / 2 + 1e-3);
      ++touches;
    }
  }
  EXPECT_GT(touches, 500);
}

// Boxes that move now and then, come and go, some of them far outside the arena.
TEST_F(ContactTest, BoxesTouchInEveryStepAsAPlainLoopFindsThem) {
  std::minstd_rand random;
  const auto upTo = [&](float range) { return static_cast<float>(random() % 1000) * range / 1000; };
  std::vector<CPhysicsBody> bodies;
  for (int step = 0; step < 100; ++step) {
    const float left = step % 10 == 0 ? -500.0F : -30.0F;
    bodies.push_back(Box(left + upTo(60), upTo(60), 1 + upTo(4), 1 + upTo(4), upTo(6)));
    bodies.erase(bodies.begin(), bodies.begin() + (step % 7 == 6 ? 1 : 0));
    for (CPhysicsBody& body : bodies) {
      body.x += step % 5 == 0 ? upTo(2) - 1 : 0;
    }
    std::ostringstream expected, found;  // of each contact the bodies' numbers, and a place
    for (std::size_t i = 0; i < bodies.size(); ++i) {
      for (std::size_t j = i + 1; j < bodies.size(); ++j) {
        const auto touch = BoxBox(BoxOf(bodies[i]), BoxOf(bodies[j]));
        for (int k = 0; touch && k < touch->count; ++k) {
          expected << i << "-" << j << " " << touch->points[static_cast<std::size_t>(k)].pointB.x
                   << " ";
        }
      }
    }
    myGenerator.Generate(bodies, *myContacts);
    for (const CContact& contact : *myContacts) {
      found << contact.bodyA - bodies.data() << "-" << contact.bodyB - bodies.data() << " "
            << contact.pointB.x << " ";
    }
    ASSERT_EQ(found.str(), expected.str()) << "step " << step;
  }
  EXPECT_GT(myContacts->GetCount(), 0U);
}

// Each of 150 discs lies in each of 150 boxes.
TEST_F(ContactTest, NoPairIsExaminedOnceTheBufferIsFull) {
  std::vector<CPhysicsBody> bodies(300);
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    bodies[i] = i % 2 == 0 ? Disc(0, 0, 1) : Box(0, 0, 1, 1);
    bodies[i].kind = i % 2 == 0 ? kDynamic : kStatic;
  }
  myGenerator.Generate(bodies, *myContacts);
  EXPECT_EQ(myContacts->GetCount(), kMaxContacts);
}

}  // namespace
}  // namespace brumble
