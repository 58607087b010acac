#include "game/faterow.h"

#include "game/gamefiles.h"
#include "game/gamerules.h"
#include "game/gfxfactory.h"

namespace brumble {

void CFateRow::Begin(SScreenPoint place, int step, int depth) {
  myPlace = place;
  myStep = step;
  myDepth = depth;
  myShown = 0;
  myPictures.assign(kKittensPerGame, {});
  for (std::size_t number = 0; number < myPictures.size(); ++number) {
    Show(number, kFateLeftFile);
  }
}

void CFateRow::Update(const std::vector<EFate>& fates) {
  for (; myShown < fates.size() && myShown < myPictures.size(); ++myShown) {
    Show(myShown, fates[myShown] == EFate::kServed ? kFatePlateFile : kFateGhostFile);
  }
}

void CFateRow::Show(std::size_t number, const char* file) {
  const vask::CSpritePtr picture = CGfxFactory::GetSingletonPtr()->LoadSprite(file);
  if (picture) {
    picture->SetPosition(myPlace.x + static_cast<int>(number) * myStep, myPlace.y);
    picture->SetZ(myDepth);
  }
  myPictures[number] = picture;
}

}  // namespace brumble
