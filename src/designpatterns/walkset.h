#pragma once

#include "designpatterns/openwalks.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vask {

// The order of a set that is not sorted: all elements are equal.
struct SInOrderOfComing {
  bool operator()(const void*, const void*) const { return false; }
};

// A CWalkList for very many elements: each pointer (not owned) is in it at most once, and
// inserting, removing and finding one cost about the same however many there are. Sorted by
// `Order`, which is evaluated when an element is inserted.
//
// A removal moves the open walks to the successor; what is inserted after a walk's current element
// is still visited, what is inserted before it is not.
template <typename T, typename Order = SInOrderOfComing>
class CWalkSet {
  struct SPlace {
    std::size_t block;
    std::size_t index;
  };

 public:
  class CWalk;
  using Walks = COpenWalks<CWalkSet, CWalk>;

  class CWalk : public Walks::CLink {
   public:
    explicit CWalk(CWalkSet& set)
        : Walks::CLink(set, set.myWalks), myNext(set.Front()), myChanges(set.myChanges) {}

    // The next element; null at the end, and after the set itself has died.
    T* Next() {
      if (!this->IsListAlive() || myNext == nullptr) {
        return nullptr;
      }
      CWalkSet& set = *this->myList;
      if (myChanges != set.myChanges) {
        myPlace = set.Find(myNext);
        myChanges = set.myChanges;
      }
      myPlace = set.Successor(myPlace);
      return std::exchange(myNext, set.At(myPlace));
    }

   private:
    friend class CWalkSet;
    T* myNext;
    SPlace myPlace{};  // of myNext, when the set had changed myChanges times
    std::size_t myChanges;
  };

  bool IsEmpty() const { return myBlocks.empty(); }
  std::size_t Size() const { return myBlockOf.size(); }
  // Null when there is none.
  T* Front() const { return At({}); }
  bool Contains(const T* item) const { return myBlockOf.contains(item); }

  // All elements in their order; the vector is made anew after each change.
  const std::vector<T*>& Items() const {
    if (std::exchange(myGatheredChanges, myChanges) != myChanges) {
      myGathered.clear();
      for (const auto& block : myBlocks) {
        myGathered.insert(myGathered.end(), block->items.begin(), block->items.end());
      }
    }
    return myGathered;
  }

  // Inserts before or after all others or, in a sorted set, all equals; does nothing for an element
  // that is in the set already.
  void Prepend(T* item) {
    Insert(item, [=](const T* other) { return Order()(other, item); });
  }
  void Append(T* item) {
    Insert(item, [=](const T* other) { return !Order()(item, other); });
  }

  // Returns whether it was there.
  bool Remove(const T* item) {
    const auto entry = myBlockOf.find(item);
    if (entry == myBlockOf.end()) {
      return false;
    }
    const SPlace place = PlaceIn(*entry->second, item);
    myBlockOf.erase(entry);
    Redirect(item, At(Successor(place)));
    std::vector<T*>& items = myBlocks[place.block]->items;
    items.erase(items.begin() + static_cast<std::ptrdiff_t>(place.index));
    if (items.empty()) {
      myBlocks.erase(myBlocks.begin() + static_cast<std::ptrdiff_t>(place.block));
      NumberBlocks(place.block);
    }
    ++myChanges;
    return true;
  }

  template <typename Condition>
  void RemoveIf(Condition condition) {
    for (const T* item : std::vector<T*>(Items())) {
      if (condition(item)) {
        Remove(item);
      }
    }
  }

 private:
  // An insertion or removal moves the elements of one block only. Never empty.
  struct SBlock {
    std::size_t number = 0;
    std::vector<T*> items;
  };
  static constexpr std::size_t kFullBlock = 256;

  T* At(SPlace place) const {
    return place.block < myBlocks.size() ? myBlocks[place.block]->items[place.index] : nullptr;
  }

  SPlace Successor(SPlace place) const {
    return place.index + 1 < myBlocks[place.block]->items.size()
               ? SPlace{place.block, place.index + 1}
               : SPlace{place.block + 1, 0};
  }

  SPlace Find(const T* item) const { return PlaceIn(*myBlockOf.at(item), item); }

  static SPlace PlaceIn(const SBlock& block, const T* item) {
    const auto found = std::find(block.items.begin(), block.items.end(), item);
    return {block.number, static_cast<std::size_t>(found - block.items.begin())};
  }

  // Inserts the item after all for which `isBefore` is true.
  template <typename Condition>
  void Insert(T* item, Condition isBefore) {
    if (Contains(item)) {
      return;
    }
    if (myBlocks.empty()) {
      myBlocks.push_back(std::make_unique<SBlock>());
    }
    const auto found =
        std::partition_point(myBlocks.begin(), std::prev(myBlocks.end()),
                             [&](const auto& block) { return isBefore(block->items.back()); });
    SBlock& block = **found;
    block.items.insert(std::partition_point(block.items.begin(), block.items.end(), isBefore),
                       item);
    myBlockOf[item] = &block;
    if (block.items.size() == kFullBlock) {
      Split(block);
    }
    ++myChanges;
    if (!myWalks.IsEmpty()) {
      Redirect(At(Successor(Find(item))), item);
    }
  }

  void Split(SBlock& block) {
    auto half = std::make_unique<SBlock>();
    const auto middle = block.items.begin() + kFullBlock / 2;
    half->items.assign(middle, block.items.end());
    block.items.erase(middle, block.items.end());
    for (const T* item : half->items) {
      myBlockOf[item] = half.get();
    }
    myBlocks.insert(myBlocks.begin() + static_cast<std::ptrdiff_t>(block.number) + 1,
                    std::move(half));
    NumberBlocks(block.number);
  }

  void NumberBlocks(std::size_t first) {
    for (std::size_t number = first; number < myBlocks.size(); ++number) {
      myBlocks[number]->number = number;
    }
  }

  // Sends the walks that would come to the one element next to the other instead.
  void Redirect(const T* from, T* to) {
    myWalks.ForEach([=](CWalk& walk) { walk.myNext = walk.myNext == from ? to : walk.myNext; });
  }

  std::vector<std::unique_ptr<SBlock>> myBlocks;
  std::unordered_map<const T*, SBlock*> myBlockOf;
  Walks myWalks;
  std::size_t myChanges = 1;
  mutable std::vector<T*> myGathered;
  mutable std::size_t myGatheredChanges = 0;
};

}  // namespace vask
