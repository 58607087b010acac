#include "game/abovemarkers.h"

#include "game/gamefiles.h"
#include "game/gfxfactory.h"

#include <algorithm>
#include <string>

namespace brumble {
namespace {

constexpr int kSizes = 4;
constexpr float kHighest = 810.0F;  // pixels above the screen: the ceiling of the shaft

// 1 is the largest, just above the screen.
int SizeOf(const SKittenView& kitten) {
  const float height = -kKittenPictureHalf - kitten.position.y;
  return 1 + std::clamp(static_cast<int>(height * kSizes / kHighest), 0, kSizes - 1);
}

}  // namespace

void CAboveMarkers::Update(const std::vector<SKittenView>& kittens) {
  std::size_t used = 0;
  for (const SKittenView& kitten : kittens) {
    if (IsAboveScreen(kitten)) {
      if (used == myMarkers.size()) {
        myMarkers.emplace_back();
      }
      Place(myMarkers[used++], kitten);
    }
  }
  myMarkers.resize(used);
}

void CAboveMarkers::Place(SMarker& marker, const SKittenView& kitten) {
  if (marker.hair != kitten.hair) {
    marker.sprite = CGfxFactory::GetSingletonPtr()->LoadSprite(AboveMarkerFile(kitten.hair));
    marker.hair = kitten.hair;
    marker.size = 0;
  }
  if (!marker.sprite) {
    return;
  }
  const int size = SizeOf(kitten);
  if (marker.size != size) {
    marker.sprite->PlayAnimation("size_" + std::to_string(size));
    marker.size = size;
  }
  marker.sprite->SetPosition(static_cast<int>(kitten.position.x) - marker.sprite->GetRect().w / 2,
                             0);
}

}  // namespace brumble
