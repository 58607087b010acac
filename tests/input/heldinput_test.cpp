#include <gtest/gtest.h>

#include "input/heldinput.h"

namespace vask {
namespace {

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
