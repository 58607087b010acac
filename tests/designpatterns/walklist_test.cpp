#include "designpatterns/walklist.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace vask {
namespace {

using List = CWalkList<const char>;

const char* const kNames = "abcdefgh";

const char* Item(char name) { return kNames + (name - 'a'); }

std::unique_ptr<List> MakeList(const std::string& names) {
  auto list = std::make_unique<List>();
  for (const char name : names) {
    list->Append(Item(name));
  }
  return list;
}

struct CCase {
  const char* what;
  std::function<void(std::unique_ptr<List>&)> change;  // made when the walk stands on "b" of "abcd"
  const char* walked;
  const char* present;  // by ForEachPresent
};

const std::vector<CCase> kCases = {
    {"nothing", [](auto&) {}, "abcd", "abcd"},
    {"removes itself", [](auto& l) { l->Remove(Item('b')); }, "abcd", "abcd"},
    {"removes the one before", [](auto& l) { l->Remove(Item('a')); }, "abcd", "abcd"},
    {"removes the next", [](auto& l) { l->Remove(Item('c')); }, "abd", "abd"},
    {"removes itself and the next", [](auto& l) { l->Remove(Item('b')), l->Remove(Item('c')); },
     "abd", "abd"},
    {"removes the last", [](auto& l) { l->Remove(Item('d')); }, "abc", "abc"},
    {"inserts before itself", [](auto& l) { l->Insert(1, Item('e')); }, "abcd", "abcd"},
    {"inserts behind itself", [](auto& l) { l->Insert(2, Item('e')); }, "abecd", "abcd"},
    {"appends", [](auto& l) { l->Append(Item('e')); }, "abcde", "abcd"},
    {"goes to the end", [](auto& l) { l->Remove(Item('b')), l->Append(Item('b')); }, "abcdb",
     "abcd"},
    {"clears", [](auto& l) { l->Clear(); }, "ab", "ab"},
    {"clears and refills", [](auto& l) { l->Clear(), l->Append(Item('e')); }, "abe", "ab"},
    {"deletes the list", [](auto& l) { l.reset(); }, "ab", "ab"},
};

TEST(WalkList, WalksSurviveEveryChange) {
  for (const CCase& c : kCases) {
    auto list = MakeList("abcd");
    std::string walked;
    bool isChanged = false;
    List::CWalk outer(*list);
    outer.Next();
    List::CWalk walk(*list);
    while (const char* item = walk.Next()) {
      walked += *item;
      if (*item == 'b' && !std::exchange(isChanged, true)) {
        c.change(list);
      }
    }
    EXPECT_EQ(walked, c.walked) << c.what;
    std::string rest = "a";
    while (const char* item = outer.Next()) {
      rest += *item;
    }
    // The outer walk, still on "a", sees the list as it has become.
    std::string now = "a";
    for (const char* item : list != nullptr ? list->Items() : std::vector<const char*>()) {
      now += *item == 'a' ? "" : std::string(1, *item);
    }
    EXPECT_EQ(rest, now) << c.what;
  }
}

TEST(WalkList, VisitsWhoWasThereAndStillIs) {
  for (const CCase& c : kCases) {
    auto list = MakeList("abcd");
    std::string visited;
    list->ForEachPresent([&](const char* item) {
      visited += *item;
      if (*item == 'b') {
        c.change(list);
      }
    });
    EXPECT_EQ(visited, c.present) << c.what;
  }
}

}  // namespace
}  // namespace vask
