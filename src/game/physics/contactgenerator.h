#pragma once

#include "game/physics/collision.h"
#include "game/physics/contact.h"
#include "game/physics/physicsbody.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace brumble {

// Finds the contacts of all pairs of bodies, in index order. Most pairs are far apart: upright
// bounding boxes turn those away, over packed copies of the positions that the compiler can handle
// several at a time, and a body's axes are worked out once, when it has turned, instead of once per
// pair. What is found is bit for bit what a plain loop over all pairs finds.
class CContactGenerator {
 public:
  // Makes room for that many bodies, so that Generate need not allocate.
  void Reserve(std::size_t bodies);
  // Replaces the content of `contacts`. The bodies must stay where they are while it is in use.
  void Generate(std::vector<CPhysicsBody>& bodies, CContactBuffer& contacts);

 private:
  void Prepare(const std::vector<CPhysicsBody>& bodies);
  void PrepareBody(std::size_t index, const CPhysicsBody& body);
  void MarkNear(std::size_t first);
  std::size_t NextNear(std::size_t from) const;
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
  std::vector<float> myReachX;  // half extents of the upright bounding box with its margin
  std::vector<float> myReachY;
  std::vector<unsigned char> myNear;  // not 0 where the body may touch the one being examined
};

}  // namespace brumble
