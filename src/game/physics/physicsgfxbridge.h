#pragma once

#include <cstdint>
#include <memory>

namespace brumble {

// The observer of one physics body: after every step the world tells it where the body is, and
// during a step what has hit it. Each body owns at most one bridge.
class IPhysicsGfxBridge {
 public:
  virtual ~IPhysicsGfxBridge() = default;

  // The body's state after a step: world units and radians; `shape` and `look` as in CPhysicsBody.
  virtual void Update(float x, float y, float angle, float halfWidth, float halfHeight,
                      std::int32_t shape, std::int32_t look) = 0;
  // Comes first in every report, because a removal may have moved the body. Returns the old index.
  virtual int SetIndex(int index) = 0;
  // `impulseSquared` is the squared length of the impulse this body is about to receive; `other` is
  // the bridge of the body on the other side, null when that has none.
  virtual void OnImpact(float impulseSquared, IPhysicsGfxBridge* other) = 0;
  virtual int GetIndex() const = 0;
  // Radians per second.
  virtual void SetAngularVelocity(float angularVelocity) = 0;
  // The body spins so fast that it loses health; `myHealth` has been lowered already.
  virtual void OnDamaged() = 0;

  // Read and lowered by the world; the door opens when it reaches 0.
  float myHealth = 0.0F;
};

// Makes the bridge of each body that the world creates or resets.
class IPhysicsGfxBridgeFactory {
 public:
  virtual ~IPhysicsGfxBridgeFactory() = default;
  virtual std::unique_ptr<IPhysicsGfxBridge> Create() = 0;
};

}  // namespace brumble
