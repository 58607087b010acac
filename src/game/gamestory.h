#pragma once

#include <cstdint>
#include <vector>

namespace brumble {

enum class EFate : std::uint8_t { kBurnt, kServed };

// Points by what earned them.
struct SEarnings {
  int spins = 0;
  int walls = 0;
  int oven = 0;     // for going into the oven, with what the walls did to the kitten
  int bonuses = 0;  // the named ones

  SEarnings& operator+=(const SEarnings& other) {
    spins += other.spins;
    walls += other.walls;
    oven += other.oven;
    bonuses += other.bonuses;
    return *this;
  }
};

// What has happened in a game so far: for whoever shows it, and changes nothing in the rules.
struct SGameStory {
  std::vector<EFate> fates;  // of the kittens that are gone, in their order
  SEarnings banked;          // their sum is the score
  int doorOpenings = 0;
  bool isDoorOpen = false;
};

}  // namespace brumble
