#include <gtest/gtest.h>

#include "input/heldinput.h"
#include "input/keyplaces.h"

namespace vask {
namespace {

TEST(KeyPlacesTest, OnlyKeysWithoutALatinNameGoByTheirPlace) {
  constexpr int kWorld = 218;
  const struct {
    const char* what;
    int key, place, expected;
  } cases[] = {
      {"Russian P", kWorld, 33, 'p'},        {"Russian M", kWorld, 58, 'm'},
      {"Greek A", kWorld, 38, 'a'},          {"French A, which types q", 'q', 38, 'q'},
      {"beside P", kWorld, 34, kWorld},      {"beside L", kWorld, 47, kWorld},
      {"no known place", kWorld, 0, kWorld}, {"under Escape", '\'', 49, '`'},
      {"under Escape, dead", 0, 49, '`'},
  };
  for (const auto& [what, key, place, expected] : cases) {
    EXPECT_EQ(KeyByPlace(key, place), expected) << what;
  }
}

// SDL may forget the place by then, or have two keys of one code.
TEST(HeldInputTest, AKeyComesUpUnderTheNameThatItWentDownWith) {
  CHeldInput held;
  held.Press(218, 33, 'p');
  EXPECT_EQ(held.Release(218, 0, 218), 'p');
  held.Press(0, 49, '`');
  EXPECT_EQ(held.Release(0, 21, 0), 0);
  EXPECT_EQ(held.Release(0, 49, 0), '`');
  EXPECT_EQ(held.Release(9, 23, 9), 9) << "it went down before anybody listened";
}

}  // namespace
}  // namespace vask
