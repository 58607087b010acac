#include "game/physics/contactsolver.h"

#include <cmath>

#include "game/physics/physics_support.h"

namespace brumble {
namespace {

CPhysicsBody MakeBody(float x, float vx, float invMass) {
  CPhysicsBody body;
  body.x = x;
  body.vx = vx;
  body.invMass = invMass;
  return body;
}

class CSolverTest : public testing::Test {
 protected:
  void Touch(CPhysicsBody& a, CPhysicsBody& b, CVec2 point, CVec2 normal) {
    myContacts->Append({&a, &b, point, point, normal, point});
  }
  const std::vector<CLoggingBridge::CImpact>& Watch(CPhysicsBody& body) {
    auto bridge = std::make_unique<CLoggingBridge>(0, myLog);
    bridge->myBody = &body;
    const auto& impacts = bridge->myImpacts;
    body.bridge = std::move(bridge);
    return impacts;
  }

  CLoggingBridge::Log myLog;
  std::unique_ptr<CContactBuffer> myContacts = std::make_unique<CContactBuffer>();
};

TEST_F(CSolverTest, HeadOnHitGivesTheSecondBodyLess) {
  CPhysicsBody a = MakeBody(-1.0F, 2.0F, 1.0F);
  CPhysicsBody b = MakeBody(1.0F, -1.0F, 1.0F);
  const auto& hitsA = Watch(a);
  const auto& hitsB = Watch(b);
  Touch(a, b, {0, 0}, {-1, 0});
  ResolveContacts(*myContacts);
  EXPECT_FLOAT_EQ(a.vx, 2.0F - 0.9F * 3.0F);
  EXPECT_FLOAT_EQ(b.vx, -1.0F + 0.81F * 3.0F);
  ASSERT_TRUE(hitsA.size() == 1 && hitsB.size() == 1);
  EXPECT_FLOAT_EQ(hitsA[0].impulseSquared, 2.7F * 2.7F);
  EXPECT_FLOAT_EQ(hitsB[0].impulseSquared, 2.43F * 2.43F);
  EXPECT_TRUE(hitsA[0].other == b.bridge.get() && hitsB[0].other == a.bridge.get());
  // Each is told before its own velocity changes.
  EXPECT_TRUE(hitsA[0].vx == 2.0F && hitsB[0].vx == -1.0F);
}

// The point of a spinning body may approach though its centre rests.
TEST_F(CSolverTest, OnlyAnApproachAtThePointCounts) {
  // clang-format off
  const struct { float vx, spin; CVec2 normal; bool isHit; } cases[] = {
      {1, 0, {-1, 0}, true}, {-1, 0, {-1, 0}, false}, {0, 0, {-1, 0}, false},
      {1, 0, {0, 0}, false}, {0, -1, {-1, 0}, true},  {0, 1, {-1, 0}, false}};
  // clang-format on
  for (const auto& c : cases) {
    CPhysicsBody body = MakeBody(0.0F, c.vx, 1.0F);
    body.angularVelocity = c.spin;
    CPhysicsBody wall = MakeBody(2.0F, 0.0F, 0.0F);
    myContacts->Clear();
    Touch(body, wall, {1, 1}, c.normal);
    ResolveContacts(*myContacts);
    EXPECT_EQ(body.vx != c.vx, c.isHit) << c.vx << " " << c.spin;
  }
}

TEST_F(CSolverTest, TheBudgetOfVisitsEndsTheStep) {
  CPhysicsBody wall = MakeBody(0.0F, 0.0F, 0.0F);
  {  // Between two walls a body is thrown to and fro, at 0.8 of its speed each time.
    CPhysicsBody body = MakeBody(0.0F, 1.0F, 1.0F);
    Touch(body, wall, {0, 0}, {-1, 0});
    Touch(body, wall, {0, 0}, {1, 0});
    ResolveContacts(*myContacts);
    EXPECT_NEAR(body.vx / std::pow(0.8F, 200.0F), 1.0F, 1.0e-3F);
  }
  std::vector<CPhysicsBody> bodies(201);
  myContacts->Clear();
  for (CPhysicsBody& body : bodies) {
    body = MakeBody(0.0F, 1.0F, 1.0F);
    Touch(body, wall, {0, 0}, {-1, 0});
  }
  ResolveContacts(*myContacts);
  EXPECT_LT(bodies[199].vx, 0.0F);
  EXPECT_EQ(bodies[200].vx, 1.0F);
}

}  // namespace
}  // namespace brumble
