#include "utils/containers/autolist.h"
#include "utils/containers/container.h"
#include "utils/containers/varref.h"
#include "utils/rect.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <vector>

namespace vask {
namespace {

template <typename T>
struct CReadCase {
  const char* text;
  T value;  // what the variable holds then
};

template <typename T>
void ExpectReads(T start, const std::vector<CReadCase<T>>& cases) {
  for (const auto& c : cases) {
    T variable = start;
    CVarRef<T>(&variable, "v").SetString(c.text);
    EXPECT_EQ(variable, c.value) << "\"" << c.text << "\"";
  }
}

TEST(VarRef, ReadsItsTypeOrKeepsTheValue) {
  ExpectReads<int>(
      7,
      {{"5", 5}, {" -5 x", -5}, {"2147483647", 2147483647}, {"2147483648", 7}, {"", 7}, {"x1", 7}});
  ExpectReads<unsigned>(
      7,
      {{"5", 5}, {"4294967295", 4294967295U}, {"4294967296", 7}, {"-1", 7}, {" -1", 7}, {" ", 7}});
  ExpectReads<bool>(true, {{"0", false}, {"1", true}, {"2", true}, {"false", true}, {"", true}});
  ExpectReads<bool>(false, {{"1", true}, {"2", false}, {"true", false}});
  ExpectReads<float>(7, {{"0.5", 0.5F}, {"-2e3", -2000}, {"1e99", 7}, {"x", 7}});
  ExpectReads<std::string>("old", {{" two words ", " two words "}, {"", ""}});
}

TEST(VarRef, ConstReferencesShowButNeverWrite) {
  int value = 3;
  CVarRefConst<int> shown(&value, "n");
  shown.SetString("4");
  EXPECT_EQ(value, 3);
  value = 5;
  EXPECT_EQ(shown.GetString(), "5");
  EXPECT_TRUE(shown.IsReadOnly());
  EXPECT_FALSE(CVarRef<int>(&value, "n").IsReadOnly());
  CVarRefEmpty<std::string> own("o");
  own.SetString(" kept as it is ");
  EXPECT_EQ(own.GetString(), " kept as it is ");
}

TEST(AnyContainer, AnswersTheExactTypeOnly) {
  const std::string text = "text";
  const CAnyContainer held[] = {text, "text", text.c_str(), std::string_view(text)};
  for (const CAnyContainer& value : held) {
    ASSERT_NE(value.Get<std::string>(), nullptr);
    EXPECT_EQ(*value.Get<std::string>(), "text");
    EXPECT_EQ(value.Get<int>(), nullptr);
  }
  CAnyContainer number(1.5F);
  const CAnyContainer copy = number;
  number = 2;
  EXPECT_EQ(copy.ToString(), "1.5");
  EXPECT_EQ(number.ToString(), "2");
  EXPECT_EQ(number.Get<unsigned>(), nullptr);
  EXPECT_EQ(CAnyContainer().GetType(), typeid(void));
  EXPECT_EQ(CAnyContainer().Get<int>(), nullptr);
  EXPECT_EQ(CAnyContainer().ToString(), "");
}

class CListed : public CAutoList<CListed> {
 public:
  virtual ~CListed() = default;
};

TEST(AutoList, WalksSurviveBirthsAndDeaths) {
  EXPECT_EQ(CListed::PeekList(), nullptr);
  auto first = std::make_unique<CListed>();
  auto second = std::make_unique<CListed>();
  auto third = std::make_unique<CListed>(*first);
  std::unique_ptr<CListed> born;
  std::vector<CListed*> seen;
  CListed::List::CWalk walk(CListed::GetList());
  while (CListed* listed = walk.Next()) {
    seen.push_back(listed);
    if (listed == first.get()) {
      first.reset();
      second.reset();
      born = std::make_unique<CListed>();
    }
  }
  ASSERT_EQ(seen.size(), 3U);
  EXPECT_EQ(seen[1], third.get());
  EXPECT_EQ(seen[2], born.get());
  third.reset();
  born.reset();
  EXPECT_EQ(CListed::PeekList(), nullptr) << "the list outlives the last object";
  EXPECT_EQ(walk.Next(), nullptr);
}

TEST(Rect, Intersections) {
  const int most = std::numeric_limits<int>::max();
  const struct {
    CRect<int> a, b, both;
  } cases[] = {
      {{0, 0, 10, 10}, {5, 6, 10, 10}, {5, 6, 5, 4}},
      {{0, 0, 10, 10}, {10, 0, 5, 5}, {}},
      {{0, 0, 10, 10}, {2, 3, 4, 5}, {2, 3, 4, 5}},
      {{0, 0, 10, 10}, {2, 3, 0, 5}, {}},
      {{0, 0, 10, 10}, {5, 5, -3, -3}, {}},
      {{-5, -5, most, most}, {10, 10, most, most}, {10, 10, most - 15, most - 15}},
  };
  for (const auto& c : cases) {
    EXPECT_EQ(c.a.Intersection(c.b), c.both);
    EXPECT_EQ(c.b.Intersection(c.a), c.both);
    EXPECT_EQ(c.a.Intersects(c.b), !c.both.IsEmpty());
  }
  const CRect<int> huge{most - 1, 0, most, 1};
  EXPECT_TRUE(huge.Contains(most, 0));
  EXPECT_FALSE(huge.Contains(most, 1));
}

}  // namespace
}  // namespace vask
