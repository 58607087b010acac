#pragma once

namespace brumble {

// Grows with every change after which a recorded game would take another course: of the physics,
// the rules, their random numbers or the clocks. A test ties it to the courses of the physics and
// of a game. docs/replays.md tells how to record the games of the tests anew.
inline constexpr unsigned kRulesVersion = 1;

}  // namespace brumble
