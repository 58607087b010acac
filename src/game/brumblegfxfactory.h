#pragma once

#include "game/physics/physicsgfxbridge.h"

namespace brumble {

class CGameLogic;

// Makes the bridges between the physics and the screen, and gives each of them the rules.
class CBrumbleGfxFactory : public IPhysicsGfxBridgeFactory {
 public:
  // Not owned; null makes bridges without rules.
  void SetGameLogic(CGameLogic* gameLogic) { myGameLogic = gameLogic; }
  std::unique_ptr<IPhysicsGfxBridge> Create() override;

 private:
  CGameLogic* myGameLogic = nullptr;
};

}  // namespace brumble
