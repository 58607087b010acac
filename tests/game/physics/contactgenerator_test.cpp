#include "game/physics/contactgenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <memory>
#include <random>

namespace brumble {
namespace {

SVec2 At(const CPhysicsBody& body) { return {body.x, body.y}; }
SVec2 Half(const CPhysicsBody& body) { return {body.halfWidth, body.halfHeight}; }

// What the generator must find, the slow way: every pair, no bounds, nothing kept between pairs.
std::vector<CContact> FindPlainly(std::vector<CPhysicsBody>& bodies) {
  std::vector<CContact> found;
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    for (std::size_t j = i + 1; j < bodies.size(); ++j) {
      const bool isSwapped = bodies[i].shape == kBox && bodies[j].shape == kCircle;
      CPhysicsBody& a = bodies[isSwapped ? j : i];
      CPhysicsBody& b = bodies[isSwapped ? i : j];
      std::optional<SBoxTouch> touch;
      if (a.kind == kStatic && b.kind == kStatic) {
        continue;
      }
      if (a.shape == kBox) {
        touch = BoxBox(At(a), Half(a), a.angle, At(b), Half(b), b.angle);
      } else if (const auto t = b.shape == kBox
                                    ? CircleBox(At(a), a.halfWidth, At(b), Half(b), b.angle)
                                    : CircleCircle(At(a), a.halfWidth, At(b), b.halfWidth)) {
        touch = {{t->points}, t->normal, 1};
      }
      for (std::size_t k = 0; touch && k < static_cast<std::size_t>(touch->count); ++k) {
        const auto& [p, q] = touch->points[k];
        found.push_back({&a, &b, p, q, touch->normal, p * 0.5F + q * 0.5F});
      }
    }
  }
  return found;
}

class CContactTest : public testing::Test {
 protected:
  float Uniform(float low, float high) {
    return std::uniform_real_distribution<float>(low, high)(myNumbers);
  }
  bool OneIn(unsigned n) { return myNumbers() % n == 0; }
  // Some values on a grid, so that sides and rims meet exactly; one in `oddity` extreme.
  float Odd(unsigned oddity, float value) {
    constexpr float kOdd[] = {0.0F, -0.0F, -1.0F, 1e-23F, 1e-40F, 1e9F};
    const float snapped = OneIn(2) ? std::round(value) : value;
    return OneIn(oddity) ? kOdd[myNumbers() % std::size(kOdd)] : snapped;
  }
  CPhysicsBody MakeBody(unsigned oddity) {
    CPhysicsBody body;
    body.shape = OneIn(3) ? kCircle : kBox;
    body.kind = OneIn(4) ? kStatic : kDynamic;
    body.halfWidth = Odd(oddity, Uniform(1.0F, 5.0F));
    body.halfHeight = Odd(oddity, OneIn(5) ? 60.0F : Uniform(1.0F, 5.0F));
    body.x = Odd(oddity, Uniform(-20.0F, 20.0F));
    body.y = Odd(oddity, Uniform(-20.0F, 20.0F));
    body.angle = Odd(oddity, Uniform(-10.0F, 10.0F));
    return body;
  }

  std::mt19937 myNumbers{20};
  CContactGenerator myGenerator;  // kept from scene to scene, as in a world
  std::unique_ptr<CContactBuffer> myContacts = std::make_unique<CContactBuffer>();
};

// What is kept from step to step must not outlive a change of any one field: of six scenes, five
// change one field of each body.
TEST_F(CContactTest, TheGeneratorFindsWhatThePlainLoopFinds) {
  using Body = CPhysicsBody;
  constexpr float Body::*kFields[] = {&Body::x, &Body::y, &Body::halfWidth, &Body::halfHeight,
                                      &Body::angle};
  std::vector<Body> bodies;
  std::size_t contacts = 0;
  for (std::size_t scene = 0; scene < 1800; ++scene) {
    const unsigned oddity = scene < 600 ? 1000 : scene < 1200 ? 25 : 5;
    for (Body& body : bodies) {
      body.*kFields[scene % 5] = MakeBody(oddity).*kFields[scene % 5];
    }
    if (scene % 6 == 0) {
      bodies.clear();
      std::generate_n(std::back_inserter(bodies), 2 + scene % 38, [&] { return MakeBody(oddity); });
    }
    myGenerator.Generate(bodies, *myContacts);
    const std::vector<CContact> expected = FindPlainly(bodies);
    ASSERT_TRUE(std::equal(
        myContacts->begin(), myContacts->end(), expected.begin(), expected.end(),
        [](const CContact& a, const CContact& b) { return std::memcmp(&a, &b, sizeof a) == 0; }));
    contacts += expected.size();
  }
  EXPECT_GT(contacts, 10000U);
}

struct SShape {
  EBodyShape shape;
  float x, y, halfWidth, halfHeight, angle = 0.0F;

  CPhysicsBody MakeBody() const {
    return {shape, halfWidth, halfHeight, x, y, angle, 0, 0, 0, 0, 0, kDynamic, 0, nullptr};
  }
};

void ExpectNear(SVec2 actual, SVec2 expected) { EXPECT_LT(Length(actual - expected), 1.0e-5F); }

TEST_F(CContactTest, PairsTouchWhereTheyShould) {
  constexpr float kQuarter = 1.57079633F, kEighth = 0.78539816F, kSlant = 0.70710678F;
  constexpr SShape kDisc = {kCircle, 0, 0, 5, 5}, kBlock = {kBox, 0, 0, 2, 2};
  // clang-format off
  const struct { const char* name; SShape a, b; SVec2 normal; std::vector<SPointPair> points; } cases[] = {
      {"discs overlap", kDisc, {kCircle, 9, 0, 5, 5}, {-1, 0}, {{{5, 0}, {4, 0}}}},
      {"rims meet", kDisc, {kCircle, 10, 0, 5, 5}, {-1, 0}, {{{5, 0}, {5, 0}}}},
      {"discs apart", kDisc, {kCircle, 10.001F, 0, 5, 5}, {}, {}},
      {"one centre inside the other", kDisc, {kCircle, 4.9F, 0, 1, 1}, {}, {}},
      {"centre on the rim", kDisc, {kCircle, 5, 0, 5, 5}, {-1, 0}, {{{5, 0}, {0, 0}}}},
      {"face", {kCircle, 13, 20, 1, 1}, {kBox, 10, 20, 2, 1}, {1, 0}, {{{12, 20}, {12, 20}}}},
      {"face apart", {kCircle, 13.01F, 20, 1, 1}, {kBox, 10, 20, 2, 1}, {}, {}},
      {"corner", {kCircle, 3, 3, 1.5F, 1.5F}, kBlock, {kSlant, kSlant}, {{{1.93934F, 1.93934F}, {2, 2}}}},
      {"near both sides only", {kCircle, 3, 3, 1.4F, 1.4F}, kBlock, {}, {}},
      {"turned", {kCircle, 10, 17, 2, 2}, {kBox, 10, 20, 2, 1, kQuarter}, {0, -1}, {{{10, 19}, {10, 18}}}},
      {"no corner behind", kBlock, {kBox, 3, 0, 1, 1}, {}, {}},
      {"on +x", kBlock, {kBox, 2.5F, 0, 1, 1}, {-1, 0}, {{{2, -1}, {1.5F, -1}}, {{2, 1}, {1.5F, 1}}}},
      {"on -y", kBlock, {kBox, 0, -2.5F, 1, 1}, {0, 1}, {{{-1, -2}, {-1, -1.5F}}, {{1, -2}, {1, -1.5F}}}},
      {"clipped", kBlock, {kBox, 0, 2.8F, 5, 1}, {0, -1}, {{{-2, 2}, {-2, 1.8F}}, {{2, 2}, {2, 1.8F}}}},
      {"one corner", kBlock, {kBox, 3.2F, 0, 1, 1, kEighth}, {-1, 0}, {{{2, 0}, {1.7857864F, 0}}}},
      {"three corners", kBlock, {kBox, 1, 0, 1, 1, kEighth}, {}, {}},
  };
  // clang-format on
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    std::vector<CPhysicsBody> bodies(2);
    bodies[0] = c.a.MakeBody();
    bodies[1] = c.b.MakeBody();
    myGenerator.Generate(bodies, *myContacts);
    ASSERT_EQ(myContacts->GetCount(), c.points.size());
    for (std::size_t k = 0; k < c.points.size(); ++k) {
      const CContact& found = myContacts->begin()[k];
      ExpectNear(found.pointA, c.points[k].pointA);
      ExpectNear(found.pointB, c.points[k].pointB);
      ExpectNear(found.normal, c.normal);
    }
  }
  // The middle of a box gives no direction, however the turning rounds.
  for (float angle = 0.0F; angle < 7.0F; angle += 0.1F) {
    ExpectNear(CircleBox({0.3F, 0.7F}, 1, {0.1F, -0.2F}, {2, 1.9F}, angle).value().normal, {});
  }
}

}  // namespace
}  // namespace brumble
