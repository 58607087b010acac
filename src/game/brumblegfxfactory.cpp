#include "game/brumblegfxfactory.h"

#include "game/brumblegfx.h"

namespace brumble {

std::unique_ptr<IPhysicsGfxBridge> CBrumbleGfxFactory::Create() {
  return std::make_unique<CBrumbleGfx>(myGameLogic);
}

}  // namespace brumble
