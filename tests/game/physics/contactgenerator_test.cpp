#include "game/physics/contactgenerator.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <memory>
#include <random>
#include <utility>
#include <vector>

namespace brumble {
namespace {

// What the generator must find, the slow way: every pair, no bounds, nothing kept between pairs.
std::vector<CContact> FindPlainly(std::vector<CPhysicsBody>& bodies) {
  std::vector<CContact> found;
  const auto add = [&found](CPhysicsBody& a, CPhysicsBody& b, const CPointPair& p, CVec2 normal) {
    found.push_back({&a, &b, p.pointA, p.pointB, normal, p.pointA * 0.5F + p.pointB * 0.5F});
  };
  for (std::size_t i = 0; i < bodies.size(); ++i) {
    for (std::size_t j = i + 1; j < bodies.size() && found.size() < kMaxContacts; ++j) {
      CPhysicsBody* a = &bodies[i];
      CPhysicsBody* b = &bodies[j];
      if (a->kind == kStatic && b->kind == kStatic) {
        continue;
      }
      if (a->shape == kBox && b->shape == kCircle) {
        std::swap(a, b);
      }
      const CVec2 posA{a->x, a->y}, posB{b->x, b->y};
      const CVec2 halfA{a->halfWidth, a->halfHeight}, halfB{b->halfWidth, b->halfHeight};
      if (a->shape == kBox) {
        if (const auto t = BoxBox(posA, halfA, a->angle, posB, halfB, b->angle)) {
          for (std::size_t k = 0; k < static_cast<std::size_t>(t->count); ++k) {
            add(*a, *b, t->points[k], t->normal);
          }
        }
      } else if (const auto t = b->shape == kBox
                                    ? CircleBox(posA, a->halfWidth, posB, halfB, b->angle)
                                    : CircleCircle(posA, a->halfWidth, posB, b->halfWidth)) {
        add(*a, *b, t->points, t->normal);
      }
    }
  }
  return found;
}

// Bit for bit, but for the sign and payload of a NaN, which are the compiler's choice.
bool IsSame(const CContact& a, const CContact& b) {
  for (const CVec2 CContact::*v :
       {&CContact::pointA, &CContact::pointB, &CContact::normal, &CContact::point}) {
    for (const float CVec2::*f : {&CVec2::x, &CVec2::y}) {
      const float p = a.*v.*f, q = b.*v.*f;
      if (std::bit_cast<int>(p) != std::bit_cast<int>(q) && !(std::isnan(p) && std::isnan(q))) {
        return false;
      }
    }
  }
  return a.bodyA == b.bodyA && a.bodyB == b.bodyB;
}

class CGeneratorTest : public testing::Test {
 protected:
  // Answers the number of contacts; the generator is kept from scene to scene, as in a world.
  std::size_t Compare(std::vector<CPhysicsBody>& bodies) {
    myGenerator.Generate(bodies, *myContacts);
    const std::vector<CContact> expected = FindPlainly(bodies);
    EXPECT_TRUE(std::equal(myContacts->begin(), myContacts->end(), expected.begin(), expected.end(),
                           IsSame));
    return expected.size();
  }

  CContactGenerator myGenerator;
  std::unique_ptr<CContactBuffer> myContacts = std::make_unique<CContactBuffer>();
};

class CSceneMaker {
 public:
  float Uniform(float low, float high) {
    return low + (high - low) * static_cast<float>(myNumbers() >> 8U) / 16777216.0F;
  }
  bool OneIn(unsigned n) { return myNumbers() % n == 0; }

  // `scale` is the size of a body; one value in `oddity` is replaced by an extreme one.
  CPhysicsBody MakeBody(float scale, unsigned oddity) {
    CPhysicsBody body;
    body.shape = OneIn(3) ? kCircle : kBox;
    body.kind = OneIn(4) ? kStatic : kDynamic;
    body.halfWidth = Odd(oddity, Uniform(0.2F, 1.0F) * scale);
    body.halfHeight = Odd(oddity, OneIn(5) ? 12.0F * scale : Uniform(0.2F, 1.0F) * scale);
    body.x = Odd(oddity, Snap(Uniform(-4.0F, 4.0F)) * scale);
    body.y = Odd(oddity, Snap(Uniform(-4.0F, 4.0F)) * scale);
    body.angle = Odd(oddity, OneIn(2) ? Snap(Uniform(-1.0F, 1.0F)) : Uniform(-10.0F, 10.0F));
    return body;
  }

 private:
  // Some values on a grid, so that sides and rims meet exactly.
  float Snap(float value) { return OneIn(2) ? std::round(value) : value; }
  float Odd(unsigned oddity, float value) {
    constexpr float kInf = std::numeric_limits<float>::infinity();
    // clang-format off
    constexpr float kOdd[] = {0.0F, -0.0F, -1.0F, 1.0e-23F, 1.0e-40F, 1.85e19F, 3.0e38F, -3.0e38F,
                              kInf, -kInf, std::numeric_limits<float>::quiet_NaN()};
    // clang-format on
    return oddity != 0 && OneIn(oddity) ? kOdd[myNumbers() % std::size(kOdd)] : value;
  }

  std::mt19937 myNumbers{20};
};

TEST_F(CGeneratorTest, FindsWhatThePlainLoopFinds) {
  // The game's sizes, some and many odd values, tiny, huge.
  const std::pair<float, unsigned> cases[] = {
      {5.0F, 0}, {5.0F, 25}, {1.0F, 5}, {1.0e-22F, 0}, {1.0e18F, 40}};
  CSceneMaker maker;
  for (const auto& [scale, oddity] : cases) {
    SCOPED_TRACE(scale);
    std::size_t contacts = 0;
    for (int scene = 0; scene < 300 && !HasFailure(); ++scene) {
      std::vector<CPhysicsBody> bodies(static_cast<std::size_t>(maker.Uniform(2.0F, 40.0F)));
      for (CPhysicsBody& body : bodies) {
        body = maker.MakeBody(scale, oddity);
      }
      contacts += Compare(bodies);
    }
    EXPECT_GT(contacts, 1000U);
  }
}

// What is kept from step to step must not outlive a change of any one field.
TEST_F(CGeneratorTest, SeesEachFieldChangeAlone) {
  CSceneMaker maker;
  std::vector<CPhysicsBody> bodies(30);
  for (CPhysicsBody& body : bodies) {
    body = maker.MakeBody(5.0F, 0);
  }
  for (float CPhysicsBody::*const field :
       {&CPhysicsBody::x, &CPhysicsBody::y, &CPhysicsBody::halfWidth, &CPhysicsBody::halfHeight,
        &CPhysicsBody::angle}) {
    Compare(bodies);
    for (CPhysicsBody& body : bodies) {
      body.*field = maker.MakeBody(5.0F, 0).*field;
    }
    EXPECT_GT(Compare(bodies), 10U);
  }
}

// Boxes in one place bring two contacts each, the circle among them one: the limit is passed by
// one.
TEST_F(CGeneratorTest, StopsAtTheLimitButFinishesThePair) {
  std::vector<CPhysicsBody> bodies(144);
  for (CPhysicsBody& body : bodies) {
    body.shape = &body == &bodies[0] ? kCircle : kBox;
    body.halfWidth = body.halfHeight = 1.0F;
  }
  EXPECT_EQ(Compare(bodies), kMaxContacts + 1);
}

}  // namespace
}  // namespace brumble
