#pragma once

#include "game/physics/collision.h"
#include "game/physics/contact.h"
#include "game/physics/physicsbody.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace brumble {

// Finds the contacts of all pairs of bodies, in index order. The broad phase rejects pairs whose
// axis-aligned bounding boxes (AABBs) are apart; it works on packed copies of the positions, which
// the compiler can compare several at a time. The narrow phase of collision.h tests the others. A
// body's axes are computed once, when it has turned, and not once per pair. The result is bit for
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
  void MarkOverlaps(std::size_t first);
  std::size_t NextOverlap(std::size_t from) const;
  void TestPair(std::vector<CPhysicsBody>& bodies, std::size_t i, std::size_t j,
                CContactBuffer& contacts) const;

  // What the packed copies of a body were made from.
  struct SShape {
    std::int32_t shape = -1;  // none yet
    float halfWidth = 0.0F;
    float halfHeight = 0.0F;
    float x = 0.0F;
    float y = 0.0F;
    float angle = 0.0F;
  };

  std::size_t myCount = 0;
  std::vector<SShape> myShapes;
  std::vector<SOrientedBox> myBoxes;  // of the bodies that are boxes
  std::vector<float> myX;
  std::vector<float> myY;
  std::vector<float> myHalfX;  // half extents of the AABB with its margin
  std::vector<float> myHalfY;
  std::vector<unsigned char> myOverlaps;  // not 0 where the AABB meets that of the body in question
};

}  // namespace brumble
