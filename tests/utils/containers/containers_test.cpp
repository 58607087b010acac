#include "utils/containers/autolist.h"
#include "utils/containers/varref.h"
#include "utils/rect.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace vask {
namespace {

// Texts, and what a variable of that start value holds after each.
template <typename T>
void ExpectReads(T start, const std::vector<std::pair<const char*, T>>& cases) {
  for (const auto& [text, value] : cases) {
    T variable = start;
    CVarRef<T>(&variable, "v").SetString(text);
    EXPECT_EQ(variable, value) << "\"" << text << "\"";
    CVarRefConst<T>(&variable, "v").SetString("1");
    EXPECT_EQ(variable, value) << "written through a const reference";
  }
}

// clang-format off
TEST(VarRef, ReadsItsTypeOrKeepsTheValue) {
  ExpectReads<int>(7, {{"5", 5}, {" -5 x", -5}, {"2147483647", 2147483647}, {"2147483648", 7}, {"", 7}, {"x1", 7}});
  ExpectReads<unsigned>(7, {{"5", 5}, {"4294967295", 4294967295U}, {"4294967296", 7}, {"-1", 7}, {" -1", 7}, {" ", 7}});
  ExpectReads<bool>(true, {{"0", false}, {"1", true}, {"2", true}, {"false", true}, {"", true}});
  ExpectReads<bool>(false, {{"1", true}, {"2", false}, {"true", false}});
  ExpectReads<float>(7, {{"0.5", 0.5F}, {"-2e3", -2000}, {"1e99", 7}, {"x", 7}});
  ExpectReads<std::string>("old", {{" two words ", " two words "}, {"", ""}});
}
// clang-format on

struct CListed : CAutoList<CListed> {};

TEST(AutoList, HoldsTheLiveObjectsInTheOrderOfTheirMaking) {
  auto first = std::make_unique<CListed>();
  auto second = std::make_unique<CListed>();
  {
    CListed copy(*first);
    second.reset();
    EXPECT_EQ(CListed::GetList().Items(), (std::vector<CListed*>{first.get(), &copy}));
  }
  first.reset();
  EXPECT_EQ(CListed::PeekList(), nullptr) << "the list outlives the last object";
}

TEST(Rect, Intersections) {
  const int most = std::numeric_limits<int>::max();
  // clang-format off
  const struct { CRect<int> a, b, both; } cases[] = {
      {{0, 0, 10, 10}, {5, 6, 10, 10}, {5, 6, 5, 4}}, {{0, 0, 10, 10}, {10, 0, 5, 5}, {}},
      {{0, 0, 10, 10}, {2, 3, 0, 5}, {}}, {{0, 0, 10, 10}, {5, 5, -3, -3}, {}},
      {{-5, -5, most, most}, {10, 10, most, most}, {10, 10, most - 15, most - 15}},
  };
  // clang-format on
  for (const auto& c : cases) {
    EXPECT_EQ(c.a.Intersection(c.b), c.both);
    EXPECT_EQ(c.b.Intersection(c.a), c.both);
  }
  const CRect<int> huge{most - 1, 0, most, 1};
  EXPECT_TRUE(huge.Contains(most, 0) && !huge.Contains(most, 1));
}

}  // namespace
}  // namespace vask
