#include "game/physics/contactgenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <random>
#include <sstream>

namespace brumble {
namespace {

CPhysicsBody Box(float x, float y, float halfWidth, float halfHeight, float angle = 0.0F) {
  return {kBox, halfWidth, halfHeight, x, y, angle, 0, 0, 0, 0, 0, kDynamic, 0, nullptr};
}
CPhysicsBody Disc(float x, float y, float radius) {
  CPhysicsBody disc = Box(x, y, radius, radius);
  disc.shape = kCircle;
  return disc;
}

// Whether the point lies in the body, in its own frame and in double.
bool Holds(const CPhysicsBody& body, SVec2 point) {
  constexpr double kSlack = 1.0e-3;
  const double x = point.x - body.x, y = point.y - body.y;
  if (body.shape == kCircle) {
    return std::hypot(x, y) <= body.halfWidth + kSlack;
  }
  const double c = std::cos(body.angle), s = std::sin(body.angle);
  return std::abs(c * x + s * y) <= body.halfWidth + kSlack &&
         std::abs(c * y - s * x) <= body.halfHeight + kSlack;
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

TEST(Geometry, SegmentsAreMetCutAndLeft) {
  const auto text = [](SVec2 v) { return std::to_string(v.x) + "," + std::to_string(v.y); };
  EXPECT_EQ(text(ClosestPointOnSegment({0, 0}, {4, 0}, {1, 3})), text({1, 0}));
  EXPECT_EQ(text(*IntersectSegmentPlane({0, 0}, {4, 0}, {1, 3}, {1, 0})), text({1, 0}));
  EXPECT_FALSE(IntersectSegmentPlane({4, 0}, {4, 0}, {4, 3}, {1, 0})) << "a point";
  EXPECT_FALSE(IntersectSegmentPlane({0, 0}, {4, 0}, {5, 3}, {1, 0})) << "it ends before";
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
  EXPECT_EQ(contacts(Disc(13.01F, 20, 1), Box(10, 20, 2, 1)), "");
  EXPECT_EQ(contacts(Disc(3, 3, 1.5F), Box(0, 0, 2, 2)), "1.939,1.939 2,2 0.707,0.707 ");
  EXPECT_EQ(contacts(Disc(3, 3, 1.4F), Box(0, 0, 2, 2)), "") << "near two sides";
  EXPECT_EQ(contacts(Disc(10, 17, 2), Box(10, 20, 2, 1, kQuarter)), "10,19 10,18 0,-1 ");
  EXPECT_EQ(contacts(Disc(0.3F, 0.7F, 1), Box(0, 0, 2, 1.9F, 0.4F)), "0.3,0.7 0.3,0.7 0,0 ");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(3, 0, 1, 1)), "") << "no corner";
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(2.5F, 0, 1, 1)), "2,-1 1.5,-1 -1,0 2,1 1.5,1 -1,0 ");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(0, -2.5F, 1, 1)), "-1,-2 -1,-1.5 0,1 1,-2 1,-1.5 0,1 ");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(0, 2.8F, 5, 1)), "-2,2 -2,1.8 0,-1 2,2 2,1.8 0,-1 ");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(3.2F, 0, 1, 1, kEighth)), "2,0 1.786,0 -1,0 ");
  EXPECT_EQ(contacts(Box(0, 0, 2, 2), Box(1, 0, 1, 1, kEighth)), "") << "three corners";
}

// What is kept from step to step must not outlive a change of any one field: of six scenes, five
// change one field of each body. Contact points lie in both bodies, as far apart as they overlap.
TEST_F(ContactTest, NothingOldIsFoundAndNothingOutsideTheBodies) {
  std::mt19937 numbers{20};
  const auto between = [&](float low, float high) {
    return std::round(std::uniform_real_distribution<float>(low, high)(numbers) * 8.0F) / 8.0F;
  };
  const auto random = [&] {
    const bool isDisc = numbers() % 3 == 0;
    const float x = between(-20, 20), y = between(-20, 20), size = between(1, 5);
    CPhysicsBody body = isDisc ? Disc(x, y, size) : Box(x, y, size, between(1, 50), between(-9, 9));
    body.kind = numbers() % 4 == 0 ? kStatic : kDynamic;
    return body;
  };
  using Body = CPhysicsBody;
  constexpr float Body::*kFields[] = {&Body::x, &Body::y, &Body::halfWidth, &Body::halfHeight,
                                      &Body::angle};
  const auto expected = std::make_unique<CContactBuffer>();
  std::vector<Body> bodies;
  for (std::size_t scene = 0; scene < 600; ++scene) {
    for (Body& body : bodies) {
      body.*kFields[scene % 5] = random().*kFields[scene % 5];
    }
    if (scene % 6 == 0) {
      bodies.clear();
      std::generate_n(std::back_inserter(bodies), 2 + scene % 38, random);
    }
    myGenerator.Generate(bodies, *myContacts);
    CContactGenerator().Generate(bodies, *expected);
    ASSERT_EQ(myContacts->GetCount(), expected->GetCount());
    for (std::size_t i = 0; i < expected->GetCount(); ++i) {
      const CContact& contact = expected->begin()[i];
      EXPECT_EQ(std::memcmp(&contact, &myContacts->begin()[i], sizeof contact), 0) << scene;
      if (Length(contact.normal) > 0.5F) {
        EXPECT_TRUE(Holds(*contact.bodyA, contact.pointA));
        EXPECT_TRUE(Holds(*contact.bodyB, contact.pointB));
        EXPECT_LT(Dot(contact.normal, contact.pointA - contact.pointB), 1.0e-3F);
      }
    }
  }
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
