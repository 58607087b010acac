#include "game/physics/contactsolver.h"

#include <gtest/gtest.h>

#include <cmath>
#include <memory>
#include <vector>

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
  CLoggingBridge* GiveBridge(CPhysicsBody& body) {
    body.bridge = std::make_unique<CLoggingBridge>(0, myLog);
    auto* const bridge = static_cast<CLoggingBridge*>(body.bridge.get());
    bridge->myBody = &body;
    return bridge;
  }

  EventLog myLog;
  std::unique_ptr<CContactBuffer> myContacts = std::make_unique<CContactBuffer>();
};

TEST_F(CSolverTest, HeadOnHitGivesTheSecondBodyLess) {
  CPhysicsBody a = MakeBody(-1.0F, 2.0F, 1.0F);
  CPhysicsBody b = MakeBody(1.0F, -1.0F, 1.0F);
  const CLoggingBridge* const bridgeA = GiveBridge(a);
  const CLoggingBridge* const bridgeB = GiveBridge(b);
  Touch(a, b, {0, 0}, {-1, 0});
  ResolveContacts(*myContacts);
  EXPECT_FLOAT_EQ(a.vx, 2.0F - 0.9F * 3.0F);
  EXPECT_FLOAT_EQ(b.vx, -1.0F + 0.81F * 3.0F);
  ASSERT_EQ(bridgeA->myImpulsesSquared.size(), 1U);
  ASSERT_EQ(bridgeB->myImpulsesSquared.size(), 1U);
  EXPECT_FLOAT_EQ(bridgeA->myImpulsesSquared[0], 2.7F * 2.7F);
  EXPECT_FLOAT_EQ(bridgeB->myImpulsesSquared[0], 2.43F * 2.43F);
  EXPECT_EQ(bridgeA->myOther, bridgeB);
  EXPECT_EQ(bridgeB->myOther, bridgeA);
  // Each is told before its own velocity changes.
  EXPECT_FLOAT_EQ(bridgeA->mySpeedAtImpact, 2.0F);
  EXPECT_FLOAT_EQ(bridgeB->mySpeedAtImpact, -1.0F);
}

TEST_F(CSolverTest, OffCentreHitOnAWallTurnsTheBody) {
  CPhysicsBody body = MakeBody(0.0F, 0.0F, 1.0F);
  body.vy = 1.0F;
  body.invInertia = 0.5F;
  CPhysicsBody wall = MakeBody(0.0F, 0.0F, 0.0F);
  const CLoggingBridge* const bridge = GiveBridge(wall);
  Touch(body, wall, {1, 1}, {0, -1});
  ResolveContacts(*myContacts);
  EXPECT_FLOAT_EQ(body.vy, 1.0F - 1.2F);
  EXPECT_FLOAT_EQ(body.angularVelocity, -0.6F);
  EXPECT_EQ(wall.vy, 0.0F);
  EXPECT_EQ(wall.angularVelocity, 0.0F);
  ASSERT_EQ(bridge->myImpulsesSquared.size(), 1U);
  EXPECT_FLOAT_EQ(bridge->myImpulsesSquared[0], 1.08F * 1.08F);
  EXPECT_EQ(bridge->myOther, nullptr);
}

// The point of a spinning body may approach though its centre rests.
TEST_F(CSolverTest, OnlyAnApproachAtThePointCounts) {
  struct CCase {
    const char* name;
    float vx, angularVelocity;
    CVec2 normal;
    bool isHit;
  };
  const CCase cases[] = {
      {"approaching", 1, 0, {-1, 0}, true},       {"leaving", -1, 0, {-1, 0}, false},
      {"resting", 0, 0, {-1, 0}, false},          {"no direction", 1, 0, {0, 0}, false},
      {"spinning towards", 0, -1, {-1, 0}, true}, {"spinning away", 0, 1, {-1, 0}, false}};
  for (const CCase& c : cases) {
    CPhysicsBody body = MakeBody(0.0F, c.vx, 1.0F);
    body.angularVelocity = c.angularVelocity;
    CPhysicsBody wall = MakeBody(2.0F, 0.0F, 0.0F);
    const CLoggingBridge* const bridge = GiveBridge(body);
    myContacts->Clear();
    Touch(body, wall, {1, 1}, c.normal);
    ResolveContacts(*myContacts);
    EXPECT_EQ(bridge->myImpulsesSquared.size(), c.isHit ? 1U : 0U) << c.name;
  }
}

// Between two walls a body is thrown to and fro within the step, at 0.8 of its speed each time.
TEST_F(CSolverTest, PassesGoOnUntilTheBudgetIsSpent) {
  CPhysicsBody body = MakeBody(0.0F, 1.0F, 1.0F);
  CPhysicsBody wall = MakeBody(0.0F, 0.0F, 0.0F);
  const CLoggingBridge* const bridge = GiveBridge(body);
  Touch(body, wall, {0, 0}, {-1, 0});
  Touch(body, wall, {0, 0}, {1, 0});
  ResolveContacts(*myContacts);
  EXPECT_EQ(bridge->myImpulsesSquared.size(), 200U);
  EXPECT_NEAR(body.vx / std::pow(0.8F, 200.0F), 1.0F, 1.0e-3F);
}

TEST_F(CSolverTest, ContactsBeyondTheBudgetAreNotTreated) {
  std::vector<CPhysicsBody> bodies(201);
  CPhysicsBody wall = MakeBody(0.0F, 0.0F, 0.0F);
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
