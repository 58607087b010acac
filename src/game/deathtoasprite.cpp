#include "game/deathtoasprite.h"

#include <utility>

namespace brumble {

CDeathToASprite::CDeathToASprite(vask::CSpritePtr sprite, unsigned lifetimeMs)
    : mySprite(std::move(sprite)), myLifetime(lifetimeMs) {
  CFakeThread::Start();
}

void CDeathToASprite::Update() {
  if (GetTime() >= myLifetime) {
    Kill();
  }
}

void CDeathToASprite::TakeOver(vask::CSpritePtr sprite, unsigned lifetimeMs) {
  new CDeathToASprite(std::move(sprite), lifetimeMs);
}

void CDeathToASprite::DeleteAll() {
  while (Count() > 0) {
    delete CAutoList<CDeathToASprite>::GetList().Front();
  }
}

std::size_t CDeathToASprite::Count() {
  const auto* const list = CAutoList<CDeathToASprite>::PeekList();
  return list != nullptr ? list->Size() : 0;
}

}  // namespace brumble
