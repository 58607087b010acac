#pragma once

#include "game/physics/geometry.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace brumble {

// Finds out which of many axis-aligned bounding boxes (AABBs) meet. Each axis is cut into strips,
// and for each strip there are two sets of boxes: those that begin no later, and those that end no
// earlier. A box can only meet those that begin no later than it ends, and end no earlier than it
// begins, on both axes: what four sets have in common. A set is a row of bits by index, so that
// they come out sorted; a box that moves changes few bits, and most often none.
class CBroadPhase {
 public:
  // Allocates for that many boxes, so that nothing else need. Returns whether all have to be put
  // anew.
  bool Reserve(std::size_t boxes);
  // The box around `centre` with these half extents, all finite. The index must have been reserved.
  void Put(std::size_t index, SVec2 centre, SVec2 half);
  // The indices above `first` and below `count` whose boxes meet that of `first`, sorted. Good
  // until the next call.
  std::span<const std::uint32_t> FindMeeting(std::size_t first, std::size_t count);

 private:
  // The arena lies between the first strip and the last, which also take what is beyond.
  static constexpr std::int32_t kStrips = 128;
  static constexpr float kStripWidth = 4.0F;

  using Set = std::vector<std::uint64_t>;  // a row of bits for each strip, by the index of the box

  struct SBox {
    float left = 0.0F;
    float right = 0.0F;
    float top = 0.0F;  // y points downward
    float bottom = 0.0F;
  };
  struct SStrips {
    std::int32_t left = kStrips;  // at first in no set
    std::int32_t right = -1;
    std::int32_t top = kStrips;
    std::int32_t bottom = -1;
    bool operator==(const SStrips&) const = default;
  };

  static std::int32_t StripOf(float place);
  static bool AreApart(const SBox& a, const SBox& b);
  void Move(std::size_t index, const SStrips& strips);
  void MoveBegin(std::size_t index, Set& set, std::int32_t& strip, std::int32_t to);
  void MoveEnd(std::size_t index, Set& set, std::int32_t& strip, std::int32_t to);
  const std::uint64_t* Row(const Set& set, std::int32_t strip) const;

  std::size_t myWords = 0;  // in a row
  std::vector<SBox> myBoxes;
  std::vector<SStrips> myStrips;
  Set myBegunX;     // whose left side lies in the strip or before
  Set myNotEndedX;  // whose right side lies in the strip or after
  Set myBegunY;     // the same of the top and the bottom
  Set myNotEndedY;
  std::vector<std::uint32_t> myMeeting;
};

inline std::int32_t CBroadPhase::StripOf(float place) {
  constexpr float kMiddle = 0.5F * kStrips;
  const float strip = place / kStripWidth + kMiddle;
  return static_cast<std::int32_t>(std::min(std::max(strip, 0.0F), kStrips - 1.0F));
}

inline void CBroadPhase::Put(std::size_t index, SVec2 centre, SVec2 half) {
  // Rounding can't part two that meet: no sum is rounded past a greater one.
  const float left = centre.x - half.x;
  const float right = centre.x + half.x;
  const float top = centre.y - half.y;
  const float bottom = centre.y + half.y;
  myBoxes[index] = {left, right, top, bottom};
  const SStrips strips = {StripOf(left), StripOf(right), StripOf(top), StripOf(bottom)};
  if (strips != myStrips[index]) {
    Move(index, strips);
  }
}

}  // namespace brumble
