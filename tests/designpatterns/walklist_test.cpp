#include "designpatterns/walklist.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>

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

void SendToEnd(std::unique_ptr<List>& list) {
  list->Remove(Item('c'));
  list->AppendOnce(Item('c'));
}

TEST(WalkList, WalksSurviveEveryChange) {
  // Changes that are made when a walk over "abcd" is at "b", and what the two kinds of walk visit.
  const char *a = Item('a'), *b = Item('b'), *c = Item('c'), *e = Item('e');
  const struct {
    std::function<void(std::unique_ptr<List>&)> change;
    std::string walked, present;
  } cases[] = {
      {.change = [=](auto& list) { list->Remove(b); }, .walked = "abcd", .present = "abcd"},
      {.change = [=](auto& list) { list->Remove(a); }, .walked = "abcd", .present = "abcd"},
      {.change = [=](auto& list) { list->Remove(c); }, .walked = "abd", .present = "abd"},
      {.change = [=](auto& list) { list->Insert(1, e); }, .walked = "abcd", .present = "abcd"},
      {.change = [=](auto& list) { list->Insert(2, e); }, .walked = "abecd", .present = "abcd"},
      {.change = [=](auto& list) { list->Clear(); }, .walked = "ab", .present = "ab"},
      {.change = [=](auto& list) { list.reset(); }, .walked = "ab", .present = "ab"},
      {.change = &SendToEnd, .walked = "abdc", .present = "abd"}};
  for (const auto& row : cases) {
    SCOPED_TRACE("row " + std::to_string(&row - cases));
    std::unique_ptr<List> list = NewList("abcd");
    std::string visited;
    const auto visit = [&](const char* item) {
      visited += *item;
      if (visited == "ab") {
        row.change(list);
      }
    };
    List::CWalk walk(*list);
    while (const char* item = walk.Next()) {
      visit(item);
    }
    EXPECT_EQ(std::exchange(visited, {}), row.walked);
    list = NewList("abcd");
    list->ForEachPresent(visit);
    EXPECT_EQ(visited, row.present);
  }
}

}  // namespace
}  // namespace vask
