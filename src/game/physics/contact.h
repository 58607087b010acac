#pragma once

#include "game/physics/geometry.h"
#include "game/physics/physicsbody.h"

#include <array>
#include <cstddef>

namespace brumble {

// Where two bodies touch in the current step. The pointers must not outlive the step.
struct CContact {
  CPhysicsBody* bodyA = nullptr;
  CPhysicsBody* bodyB = nullptr;
  SVec2 pointA;
  SVec2 pointB;
  SVec2 normal;  // unit length, from B towards A; zero when no direction can be told
  SVec2 point;   // midway between pointA and pointB, where impulses act
};

// No pair is examined in a step once so many contacts exist.
inline constexpr std::size_t kMaxContacts = 20000;

// The contacts of one step, in the order in which they were found. The last pair that is examined
// may add two contacts, so the capacity is one more than the limit.
class CContactBuffer {
 public:
  void Clear() { myCount = 0; }
  bool IsFull() const { return myCount >= kMaxContacts; }
  std::size_t GetCount() const { return myCount; }

  void Append(const CContact& contact) { myContacts[myCount++] = contact; }

  CContact* begin() { return myContacts.data(); }
  CContact* end() { return myContacts.data() + myCount; }
  const CContact* begin() const { return myContacts.data(); }
  const CContact* end() const { return myContacts.data() + myCount; }

 private:
  std::array<CContact, kMaxContacts + 1> myContacts;
  std::size_t myCount = 0;
};

}  // namespace brumble
