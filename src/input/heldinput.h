#pragma once

#include <optional>
#include <vector>

namespace vask {

// The keys or buttons that are down, so that an event source that stops can release them: what is
// given up counts as released, and its real release, when it comes later, does not count.
//
// An entry is found by its place or, where that is 0, by its code. It comes up under the name that
// it went down with, even if SDL gives another one by then. Name 0 is never held.
class CHeldInput {
 public:
  void Press(int code, int place, int name);
  // The name to release; none when it was given up. What never went down comes up as `name`.
  std::optional<int> Release(int code, int place, int name);
  // Gives one up that is held and returns its name; none when nothing is held any more.
  std::optional<int> GiveUpOne();

 private:
  struct SHeld {
    int code;
    int place;
    int name;
    bool isGivenUp;
  };

  // Removes and returns the entry, if there is one.
  std::optional<SHeld> Take(int code, int place);

  std::vector<SHeld> myHeld;
};

}  // namespace vask
