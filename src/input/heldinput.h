#pragma once

#include <optional>
#include <vector>

namespace vask {

// Which keys, or which buttons, are down, so that whoever stops hearing of them can let them go:
// what is given up counts as released, and its own release, should it come later, no longer counts.
//
// A thing is known by its place or, where that is 0, by its code; it goes down and comes up under
// one and the same name, whatever is known of it by then. Name 0 is nothing that is
// held.
class CHeldInput {
 public:
  void Press(int code, int place, int name);
  // The name to release; none when it was given up. What never
  // went down comes up as `name`.
  std::optional<int> Release(int code, int place, int name);
  // Gives one up that is held, and answers its name; none when nothing is held any more.
  std::optional<int> GiveUpOne();

 private:
  struct SHeld {
    int code;
    int place;
    int name;
    bool isGivenUp;
  };

  // Takes it out, if it is there.
  std::optional<SHeld> Take(int code, int place);

  std::vector<SHeld> myHeld;
};

}  // namespace vask
