#include "designpatterns/walklist.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

namespace vask {
namespace {

using List = CWalkList<const char>;

const char* Item(char name) {
  static const char* const names = "abcde";
  return names + (name - 'a');
}

// clang-format off
const struct {
  const char* what;
  std::function<void(std::unique_ptr<List>&)> change;  // made when the walk stands on "b" of "abcd"
  const char* walked;
  const char* present;  // by ForEachPresent
} kCases[] = {
    {"nothing", [](auto&) {}, "abcd", "abcd"},
    {"removes itself", [](auto& l) { l->Remove(Item('b')); }, "abcd", "abcd"},
    {"removes the one before", [](auto& l) { l->Remove(Item('a')); }, "abcd", "abcd"},
    {"removes the next", [](auto& l) { l->Remove(Item('c')); }, "abd", "abd"},
    {"removes the last", [](auto& l) { l->Remove(Item('d')); }, "abc", "abc"},
    {"inserts before itself", [](auto& l) { l->Insert(1, Item('e')); }, "abcd", "abcd"},
    {"inserts behind itself", [](auto& l) { l->Insert(2, Item('e')); }, "abecd", "abcd"},
    {"goes to the end", [](auto& l) { l->Remove(Item('b')), l->Append(Item('b')); }, "abcdb", "abcd"},
    {"clears and refills", [](auto& l) { l->Clear(), l->Append(Item('e')); }, "abe", "ab"},
    {"deletes the list", [](auto& l) { l.reset(); }, "ab", "ab"},
};
// clang-format on

TEST(WalkList, WalksSurviveEveryChange) {
  for (const auto& c : kCases) {
    for (const bool onlyPresent : {false, true}) {
      auto list = std::make_unique<List>();
      for (const char name : {'a', 'b', 'c', 'd'}) {
        list->Append(Item(name));
      }
      std::string walked;
      const auto visit = [&](const char* item) {
        walked += *item;
        if (walked == "ab") {
          c.change(list);
        }
      };
      List::CWalk outer(*list);  // stands still on the front meanwhile
      if (onlyPresent) {
        list->ForEachPresent(visit);
      } else {
        for (List::CWalk walk(*list); const char* item = walk.Next();) {
          visit(item);
        }
      }
      EXPECT_EQ(walked, onlyPresent ? c.present : c.walked) << c.what;
      EXPECT_EQ(outer.Next(), list == nullptr ? nullptr : list->Front()) << c.what;
    }
  }
}

}  // namespace
}  // namespace vask
