#include "game/physics/contactgenerator.h"
#include "game/physics/contactsolver.h"
#include "tools/tester.h"

#include <memory>
#include <string>
#include <vector>

namespace brumble {
namespace {

CPhysicsBody Ball(float x, float vx) {
  CPhysicsBody body;
  body.halfWidth = body.halfHeight = 1.0F;
  body.x = x;
  body.vx = vx;
  body.invMass = body.invInertia = 1.0F;
  return body;
}

// Two balls that meet head-on bounce off each other, slower than they came.
bool TestCollision(vask::tester::STest& test) {
  std::vector<CPhysicsBody> bodies;
  bodies.push_back(Ball(0.0F, 2.0F));
  bodies.push_back(Ball(1.5F, -2.0F));
  bodies.push_back(Ball(9.0F, 0.0F));  // out of reach
  CContactGenerator generator;
  generator.Reserve(bodies.size());
  const auto contacts = std::make_unique<CContactBuffer>();
  generator.Generate(bodies, *contacts);
  VASK_TEST_ASSERT(test, contacts->GetCount() == 1, std::to_string(contacts->GetCount()));
  const SVec2 normal = contacts->begin()->normal;
  VASK_TEST_ASSERT(test, normal.x == -1.0F && normal.y == 0.0F, std::to_string(normal.x));

  ResolveContacts(*contacts);
  const float left = bodies[0].vx;
  const float right = bodies[1].vx;
  VASK_TEST_ASSERT(test, left > -2.0F && left < 0.0F, std::to_string(left));
  VASK_TEST_ASSERT(test, right > 0.0F && right < 2.0F, std::to_string(right));
  VASK_TEST_ASSERT(test, bodies[2].vx == 0.0F, std::to_string(bodies[2].vx));
  return false;
}

const vask::tester::CTestRegistrar theRegistrar(&TestCollision, "Collision", __FILE__);

}  // namespace
}  // namespace brumble
