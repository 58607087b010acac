#pragma once

#include "game/physics/broadphase.h"
#include "game/physics/collision.h"
#include "game/physics/contact.h"
#include "game/physics/physicsbody.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace brumble {

// Finds the contacts of all pairs of bodies, in index order. The broad phase rejects pairs whose
// axis-aligned bounding boxes (AABBs) are apart; the narrow phase of collision.h tests the others.
// A body's axes are computed once, when it has turned, and not once per pair. The result is bit for
// bit that of a plain loop over all pairs.
class CContactGenerator {
 public:
  // Allocates for that many bodies, so that Generate need not.
  void Reserve(std::size_t bodies);
  // Replaces the content of `contacts`. The bodies must stay where they are while it is in use.
  void Generate(std::vector<CPhysicsBody>& bodies, CContactBuffer& contacts);

 private:
  void Prepare(const std::vector<CPhysicsBody>& bodies);
  void PrepareBody(std::size_t index, const CPhysicsBody& body);
  void TestPair(std::vector<CPhysicsBody>& bodies, std::size_t i, std::size_t j,
                CContactBuffer& contacts) const;

  // What the boxes of a body were made from, beside the place and extents that they hold.
  struct SShape {
    std::int32_t shape = -1;  // none yet
    float angle = 0.0F;
    SVec2 aabbHalf;
  };

  std::vector<SShape> myShapes;
  std::vector<SOrientedBox> myBoxes;  // a circle has one, too, for what it remembers
  CBroadPhase myBroadPhase;
};

}  // namespace brumble
