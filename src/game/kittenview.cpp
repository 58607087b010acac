#include "game/kittenview.h"

#include "game/gamerules.h"
#include "game/physics/arena.h"
#include "game/physics/physicsworld.h"
#include "game/physics/screentransform.h"

namespace brumble {
namespace {

int HairOf(float health) {
  if (health < kBaldHealth) {
    return 3;
  }
  return health < kThinHealth ? 2 : 1;
}

}  // namespace

std::vector<SKittenView> KittensIn(const CPhysicsWorld& world) {
  std::vector<SKittenView> kittens;
  const std::vector<CPhysicsBody>& bodies = world.GetBodies();
  for (std::size_t index = kFirstKittenIndex; index < bodies.size(); ++index) {
    const CPhysicsBody& body = bodies[index];
    if (body.bridge != nullptr) {
      const float health = body.bridge->myHealth;
      kittens.push_back({body.bridge.get(), ToScreen({body.x, body.y}), HairOf(health), health});
    }
  }
  return kittens;
}

bool IsAboveScreen(const SKittenView& kitten) { return kitten.position.y < -kKittenPictureHalf; }

}  // namespace brumble
