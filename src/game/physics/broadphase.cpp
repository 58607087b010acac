#include "game/physics/broadphase.h"

#include <algorithm>
#include <bit>

namespace brumble {
namespace {

constexpr std::size_t kWordBits = 64;

}  // namespace

bool CBroadPhase::Reserve(std::size_t boxes) {
  if (boxes <= myBoxes.size()) {
    return false;
  }
  myWords = (boxes + kWordBits - 1) / kWordBits;
  myBoxes.resize(myWords * kWordBits);
  myMeeting.resize(myWords * kWordBits);
  myStrips.assign(myWords * kWordBits, {});
  for (Set* const set : {&myBegunX, &myNotEndedX, &myBegunY, &myNotEndedY}) {
    set->assign(kStrips * myWords, 0);
  }
  return true;
}

void CBroadPhase::Move(std::size_t index, const SStrips& strips) {
  SStrips& known = myStrips[index];
  MoveBegin(index, myBegunX, known.left, strips.left);
  MoveEnd(index, myNotEndedX, known.right, strips.right);
  MoveBegin(index, myBegunY, known.top, strips.top);
  MoveEnd(index, myNotEndedY, known.bottom, strips.bottom);
}

// A box is in the rows from the strip in which it begins on.
void CBroadPhase::MoveBegin(std::size_t index, Set& set, std::int32_t& strip, std::int32_t to) {
  std::uint64_t* const words = &set[index / kWordBits];
  const std::uint64_t bit = std::uint64_t{1} << index % kWordBits;
  for (; strip > to; --strip) {
    words[static_cast<std::size_t>(strip - 1) * myWords] |= bit;
  }
  for (; strip < to; ++strip) {
    words[static_cast<std::size_t>(strip) * myWords] &= ~bit;
  }
}

// A box is in the rows up to the strip in which it ends.
void CBroadPhase::MoveEnd(std::size_t index, Set& set, std::int32_t& strip, std::int32_t to) {
  std::uint64_t* const words = &set[index / kWordBits];
  const std::uint64_t bit = std::uint64_t{1} << index % kWordBits;
  for (; strip < to; ++strip) {
    words[static_cast<std::size_t>(strip + 1) * myWords] |= bit;
  }
  for (; strip > to; --strip) {
    words[static_cast<std::size_t>(strip) * myWords] &= ~bit;
  }
}

const std::uint64_t* CBroadPhase::Row(const Set& set, std::int32_t strip) const {
  return &set[static_cast<std::size_t>(strip) * myWords];
}

// Bitwise: most of those that are asked about meet, but which do can't be foretold.
bool CBroadPhase::AreApart(const SBox& a, const SBox& b) {
  return (a.left > b.right) | (a.right < b.left) | (a.top > b.bottom) | (a.bottom < b.top);
}

std::span<const std::uint32_t> CBroadPhase::FindMeeting(std::size_t first, std::size_t count) {
  const SBox box = myBoxes[first];
  const SStrips& strips = myStrips[first];
  const std::uint64_t* const begunX = Row(myBegunX, strips.right);
  const std::uint64_t* const notEndedX = Row(myNotEndedX, strips.left);
  const std::uint64_t* const begunY = Row(myBegunY, strips.bottom);
  const std::uint64_t* const notEndedY = Row(myNotEndedY, strips.top);
  std::size_t found = 0;
  std::uint64_t wanted = ~std::uint64_t{1} << first % kWordBits;
  for (std::size_t word = first / kWordBits; word * kWordBits < count; ++word) {
    std::uint64_t bits = wanted & begunX[word] & notEndedX[word] & begunY[word] & notEndedY[word];
    wanted = ~std::uint64_t{0};
    for (; bits != 0; bits &= bits - 1) {
      const std::size_t other = word * kWordBits + static_cast<std::size_t>(std::countr_zero(bits));
      myMeeting[found] = static_cast<std::uint32_t>(other);
      found += AreApart(box, myBoxes[other]) ? 0 : 1;
    }
  }
  while (found > 0 && myMeeting[found - 1] >= count) {
    --found;
  }
  return {myMeeting.data(), found};
}

}  // namespace brumble
