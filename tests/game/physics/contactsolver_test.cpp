#include "game/physics/contactsolver.h"

#include "game/physics/physics_support.h"

namespace brumble {
namespace {

void SetMotion(CPhysicsBody& body, float vx, float spin, float invMass) {
  body.vx = vx;
  body.angularVelocity = spin;
  body.invMass = invMass;
}

class CSolverTest : public testing::Test {
 protected:
  void Touch(CPhysicsBody& a, CPhysicsBody& b, CVec2 point, CVec2 normal) {
    myContacts->Append({&a, &b, point, point, normal, point});
  }

  std::unique_ptr<CContactBuffer> myContacts = std::make_unique<CContactBuffer>();
};

// The second body gets less. The point of a spinning body may approach though its centre rests.
TEST_F(CSolverTest, WhatApproachesAtThePointIsThrownBack) {
  const CVec2 left = {-1.0F, 0.0F};
  // clang-format off
  const struct { float vxA, spinA, vxB, invMassB; CVec2 normal; float newA, newB; Log log; } cases[] = {
      {2, 0, -1, 1, left, -0.7F, 1.43F, {"0 hit by 1 with 270", "1 hit by 0 with 243"}},
      {1, 0, 0, 0, left, -0.8F, 0, {"0 hit by 1 with 180", "1 hit by 0 with 162"}},
      {0, -1, 0, 0, left, -1.8F, 0, {"0 hit by 1 with 180", "1 hit by 0 with 162"}},
      {-1, 0, 0, 0, left, -1, 0, {}}, {0, 0, 0, 0, left, 0, 0, {}}, {0, 1, 0, 0, left, 0, 0, {}},
      {1, 0, 0, 0, {0, 0}, 1, 0, {}}};
  // clang-format on
  for (const auto& c : cases) {
    Log log;
    std::vector<CPhysicsBody> bodies(2);
    SetMotion(bodies[0], c.vxA, c.spinA, 1.0F);
    SetMotion(bodies[1], c.vxB, 0.0F, c.invMassB);
    bodies[0].bridge = std::make_unique<CLoggingBridge>(0, log);
    bodies[1].bridge = std::make_unique<CLoggingBridge>(1, log);
    myContacts->Clear();
    Touch(bodies[0], bodies[1], {1, 1}, c.normal);
    ResolveContacts(*myContacts);
    EXPECT_NEAR(bodies[0].vx, c.newA, 1.0e-5F);
    EXPECT_NEAR(bodies[1].vx, c.newB, 1.0e-5F);
    EXPECT_EQ(log, c.log) << c.vxA << " " << c.spinA;
  }
}

// Between two walls a body is thrown to and fro, at 0.8 of its speed each time. The contact at rest
// takes every third visit.
TEST_F(CSolverTest, TwoHundredVisitsEndTheStep) {
  CPhysicsBody body, wall;
  SetMotion(body, 1.0F, 0.0F, 1.0F);
  Touch(body, wall, {0, 0}, {-1, 0});
  Touch(body, wall, {0, 0}, {1, 0});
  Touch(wall, wall, {0, 0}, {1, 0});
  ResolveContacts(*myContacts);
  EXPECT_NEAR(body.vx / std::pow(0.8F, 134.0F), 1.0F, 1.0e-3F);
}

}  // namespace
}  // namespace brumble
