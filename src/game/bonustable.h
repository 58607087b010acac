#pragma once

#include <array>
#include <cstddef>

namespace brumble {

// The named bonuses. Their numbers also appear in the log.
enum EBonus : int {
  kGrilledKitten = 0,
  kLongShot = 1,
  kWallBounce = 2,
  kBashing = 5,
  kOneTouch = 6,
  kExpertSpinner = 7,
  kMasterSpinner = 8,
  kGuruSpinner = 9,
};

struct SBonus {
  int points = 0;                  // 0: what the caller offers
  const char* signFile = nullptr;  // null: no sign
};

inline constexpr std::array<SBonus, 10> kBonuses = {{
    {0, "data/gfx/b_grilled_kitten.xml"},
    {3000, "data/gfx/b_long_shot.xml"},
    {4500, "data/gfx/b_wall_bounce.xml"},
    {},
    {},
    {2000, "data/gfx/b_bashing.xml"},
    {7000, "data/gfx/b_one_touch.xml"},
    {750, "data/gfx/b_expert_spinner.xml"},
    {2000, "data/gfx/b_master_spinner.xml"},
    {5000, "data/gfx/b_guru_spinner.xml"},
}};

// The bonus of the number; for a number outside the table one without points and sign.
constexpr SBonus FindBonus(int number) {
  return number >= 0 && number < static_cast<int>(kBonuses.size())
             ? kBonuses[static_cast<std::size_t>(number)]
             : SBonus{};
}

}  // namespace brumble
