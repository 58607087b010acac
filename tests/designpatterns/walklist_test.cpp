#include "designpatterns/walklist.h"

#include "designpatterns/walkset.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>

namespace vask {
namespace {

using List = CWalkList<const char>;

const char* Item(int index) { return &"abcde"[index]; }

// clang-format off
const struct {
  const char* what;
  std::function<void(std::unique_ptr<List>&)> change;  // made when the walk stands on "b" of "abcd"
  const char* walked;
  const char* present;  // by ForEachPresent
} kCases[] = {
    {"nothing", [](auto&) {}, "abcd", "abcd"},
    {"removes itself", [](auto& l) { l->Remove(Item(1)); }, "abcd", "abcd"},
    {"removes the one before", [](auto& l) { l->Remove(Item(0)); }, "abcd", "abcd"},
    {"removes the next", [](auto& l) { l->Remove(Item(2)); }, "abd", "abd"},
    {"inserts before itself", [](auto& l) { l->Insert(1, Item(4)); }, "abcd", "abcd"},
    {"inserts behind itself", [](auto& l) { l->Insert(2, Item(4)); }, "abecd", "abcd"},
    {"goes to the end", [](auto& l) { l->Remove(Item(1)), l->Append(Item(1)); }, "abcdb", "abcd"},
    {"the next goes and comes", [](auto& l) { l->Remove(Item(2)), l->Append(Item(2)); }, "abdc", "abd"},
    {"clears and refills", [](auto& l) { l->Clear(), l->Append(Item(4)); }, "abe", "ab"},
    {"deletes the list", [](auto& l) { l.reset(); }, "ab", "ab"},
};
// clang-format on

TEST(WalkList, WalksSurviveEveryChange) {
  for (const auto& c : kCases) {
    for (const bool onlyPresent : {false, true}) {
      auto list = std::make_unique<List>();
      for (int i = 0; i < 4; ++i) {
        list->Append(Item(i));
      }
      std::string walked;
      const auto visit = [&](const char* item) {
        walked += *item;
        walked == "ab" ? c.change(list) : void();
      };
      List::CWalk walk(*list);
      onlyPresent ? list->ForEachPresent(visit) : void();
      while (const char* item = onlyPresent ? nullptr : walk.Next()) {
        visit(item);
      }
      EXPECT_EQ(walked, onlyPresent ? c.present : c.walked) << c.what;
    }
  }
}

// The plain list tells what the one for very many has to do.
TEST(WalkSet, BehavesLikeASortedWalkList) {
  struct SByRank {
    bool operator()(const char* a, const char* b) const { return *a < *b; }
  };
  using Set = CWalkSet<const char, SByRank>;
  std::mt19937 random;
  std::string ranks(3000, 'a');
  std::ranges::generate(ranks, [&] { return static_cast<char>('a' + random() % 10); });
  List list;
  auto set = std::make_unique<Set>();
  auto listWalk = std::make_unique<List::CWalk>(list);
  auto setWalk = std::make_unique<Set::CWalk>(*set);
  for (int step = 0; step < 30'000; ++step) {
    const char* item = &ranks[random() % ranks.size()];
    if (list.Contains(item)) {
      list.Remove(item);
      EXPECT_TRUE(set->Remove(item));
    } else if (step < 10'000) {  // from then on they only go
      const auto [begin, end] = std::ranges::equal_range(list.Items(), item, SByRank());
      const bool isFirst = step % 2 == 0;
      list.Insert(static_cast<std::size_t>((isFirst ? begin : end) - list.Items().begin()), item);
      isFirst ? set->Prepend(item) : set->Append(item);
    }
    const char* next = listWalk->Next();
    ASSERT_EQ(setWalk->Next(), next) << "step " << step;
    ASSERT_EQ(set->Front(), list.IsEmpty() ? nullptr : list.Front()) << "step " << step;
    if (next == nullptr) {
      listWalk = std::make_unique<List::CWalk>(list);
      setWalk = std::make_unique<Set::CWalk>(*set);
    }
  }
  EXPECT_EQ(set->Items(), list.Items());
  set.reset();
  EXPECT_EQ(setWalk->Next(), nullptr);
}

}  // namespace
}  // namespace vask
