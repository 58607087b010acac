#include "designpatterns/walklist.h"

#include "designpatterns/walkset.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>
#include <sstream>

namespace vask {
namespace {

using List = CWalkList<const char>;

const char* Item(char letter) { return &"abcde"[letter - 'a']; }

// Each act is a verb and a letter, with "@" and a position for an insertion.
void Change(std::unique_ptr<List>& list, const std::string& acts) {
  std::istringstream words(acts);
  for (std::string verb, item; words >> verb >> item;) {
    if (verb == "remove") {
      EXPECT_TRUE(list->Remove(Item(item[0])));
    } else if (verb == "insert") {
      list->Insert(static_cast<std::size_t>(item[2] - '0'), Item(item[0]));
    } else if (verb == "append") {
      list->Append(Item(item[0]));
    } else if (verb == "clear") {
      list->Clear();
    } else {
      list.reset();
    }
  }
}

TEST(WalkList, WalksSurviveEveryChange) {
  // Changes that are made when a walk over "abcd" is at "b", and what the two kinds of walk visit.
  const struct {
    std::string change, walked, present;
  } cases[] = {
      {.change = "", .walked = "abcd", .present = "abcd"},
      {.change = "remove b", .walked = "abcd", .present = "abcd"},
      {.change = "remove a", .walked = "abcd", .present = "abcd"},
      {.change = "remove c", .walked = "abd", .present = "abd"},
      {.change = "insert e@1", .walked = "abcd", .present = "abcd"},
      {.change = "insert e@2", .walked = "abecd", .present = "abcd"},
      {.change = "remove b append b", .walked = "abcdb", .present = "abcd"},
      {.change = "remove c append c", .walked = "abdc", .present = "abd"},
      {.change = "append d remove d", .walked = "abcd", .present = "abcd"},  // is in it still
      {.change = "clear all append e", .walked = "abe", .present = "ab"},
      {.change = "delete list", .walked = "ab", .present = "ab"},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.change);
    std::string visited;
    std::unique_ptr<List> list;
    const auto visit = [&](const char* item) {
      visited += *item;
      if (visited == "ab") {
        Change(list, row.change);
      }
    };
    list = std::make_unique<List>();
    Change(list, "append a append b append c append d");
    List::CWalk walk(*list);
    while (const char* item = walk.Next()) {
      visit(item);
    }
    EXPECT_EQ(std::exchange(visited, {}), row.walked);

    list = std::make_unique<List>();
    Change(list, "append a append b append c append d");
    list->ForEachPresent(visit);
    EXPECT_EQ(visited, row.present);
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
    EXPECT_EQ(set->Contains(item), list.Contains(item));
    if (list.Remove(item)) {
      EXPECT_TRUE(set->Remove(item));
    } else if (step < 10'000) {  // from then on they only go
      const auto [begin, end] = std::ranges::equal_range(list.Items(), item, SByRank());
      const bool isFirst = step % 2 == 0;
      list.Insert(static_cast<std::size_t>((isFirst ? begin : end) - list.Items().begin()), item);
      (set.get()->*(isFirst ? &Set::Prepend : &Set::Append))(item);
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
