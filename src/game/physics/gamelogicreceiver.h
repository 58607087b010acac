#pragma once

namespace brumble {

// The events that the world reports to the game's rules during a step. Installed with
// CPhysicsWorld::SetGameLogicReceiver; the world also runs without one. A callback may add bodies
// to the world; they are reported in the same step.
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
