#include "designpatterns/walklist.h"

#include "designpatterns/walkset.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <memory>
#include <random>
#include <string>

namespace vask {
namespace {

using List = CWalkList<const char>;

const char* Item(char letter) { return &"abcde"[letter - 'a']; }

std::unique_ptr<List> NewList(const std::string& letters) {
  auto list = std::make_unique<List>();
  for (const char letter : letters) {
    list->Append(Item(letter));
  }
  return list;
}

TEST(WalkList, WalksSurviveEveryChange) {
  // Whom the two kinds of walk over "abcd" visit when the list changes so at "b".
  const auto visited = [](const std::function<void(std::unique_ptr<List>&)>& change) {
    std::unique_ptr<List> list = NewList("abcd");
    std::string items;
    const auto visit = [&](const char* item) {
      items += *item;
      if (items.ends_with("ab")) {
        change(list);
      }
    };
    List::CWalk walk(*list);
    while (const char* item = walk.Next()) {
      visit(item);
    }
    items += " ";
    list = NewList("abcd");
    list->ForEachPresent(visit);
    return items;
  };
  const char *a = Item('a'), *b = Item('b'), *c = Item('c'), *e = Item('e');
  const auto sendToEnd = [=](auto& list) {
    list->Remove(c);
    list->AppendOnce(c);
  };
  EXPECT_EQ(visited([=](auto& list) { list->Remove(b); }), "abcd abcd");
  EXPECT_EQ(visited([=](auto& list) { list->Remove(a); }), "abcd abcd");
  EXPECT_EQ(visited([=](auto& list) { list->Remove(c); }), "abd abd");
  EXPECT_EQ(visited([=](auto& list) { list->Insert(1, e); }), "abcd abcd");
  EXPECT_EQ(visited([=](auto& list) { list->Insert(2, e); }), "abecd abcd");
  EXPECT_EQ(visited([](auto& list) { list->Clear(); }), "ab ab");
  EXPECT_EQ(visited([](auto& list) { list.reset(); }), "ab ab");
  EXPECT_EQ(visited(sendToEnd), "abdc abd");
}

// The plain list tells what the one for very many has to do.
TEST(WalkSet, BehavesLikeASortedWalkList) {
  struct SByRank {
    bool operator()(const char* a, const char* b) const { return *a < *b; }
  };
  std::mt19937 random;
  std::string ranks(3000, 'a');
  std::ranges::generate(ranks, [&] { return static_cast<char>('a' + random() % 10); });
  List list;
  CWalkSet<const char, SByRank> set;
  auto listWalk = std::make_unique<List::CWalk>(list);
  auto setWalk = std::make_unique<decltype(set)::CWalk>(set);
  for (int step = 0; step < 30'000; ++step) {
    const char* item = &ranks[random() % ranks.size()];
    EXPECT_EQ(set.Contains(item), list.Contains(item));
    if (list.Remove(item)) {
      EXPECT_TRUE(set.Remove(item));
    } else if (step < 10'000) {  // from then on they only go
      const auto [begin, end] = std::ranges::equal_range(list.Items(), item, SByRank());
      const bool isFirst = step % 2 == 0;
      list.Insert(static_cast<std::size_t>((isFirst ? begin : end) - list.Items().begin()), item);
      (set.*(isFirst ? &decltype(set)::Prepend : &decltype(set)::Append))(item);
    }
    const char* next = listWalk->Next();
    ASSERT_EQ(setWalk->Next(), next) << "step " << step;
    if (next == nullptr) {
      listWalk = std::make_unique<List::CWalk>(list);
      setWalk = std::make_unique<decltype(set)::CWalk>(set);
    }
  }
  EXPECT_EQ(set.Items(), list.Items());
}

}  // namespace
}  // namespace vask
