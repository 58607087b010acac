#pragma once

namespace brumble {

// What the rules of the game hear from the physics while the world reports a step. Installed with
// CPhysicsWorld::SetGameLogicReceiver; without one nobody is told, and the world runs on all the
// same. A callback may add bodies to the world; those are reported in the same step.
class IGameLogicReceiver {
 public:
  virtual ~IGameLogicReceiver() = default;

  virtual void OnDoorOpened() = 0;
  virtual void OnDoorClosed() = 0;
  // `index` is the kitten's body index at this moment; its bridge still lives during the call.
  virtual void OnKittenInOven(int index) = 0;
  virtual void OnKittenInHell(int index) = 0;
};

}  // namespace brumble
