#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace vask {

// The order of a set that is not sorted: all are equal.
struct SInOrderOfComing {
  bool operator()(const void*, const void*) const { return false; }
};

// A CWalkList for what there may be very many of: each pointer (not owned) is in it once, and it
// costs about the same to come, to go and to be looked for however many the others are. Sorted by
// `Order`, as it is when an element comes.
//
//   CWalkSet<CTask, SRunsEarlier>::CWalk walk(myTasks);
//   while (CTask* task = walk.Next()) task->Update();
//
// An element that goes moves the open walks to its successor; who comes to stand behind a walk's
// current element is still visited, who comes to stand before it is not.
template <typename T, typename Order = SInOrderOfComing>
class CWalkSet {
  struct SPlace {
    std::size_t block;
    std::size_t index;
  };

 public:
  class CWalk {
   public:
    explicit CWalk(CWalkSet& set) : mySet(&set), myNext(set.Front()), myChanges(set.myChanges) {
      set.myWalks.push_back(this);
    }
    ~CWalk() {
      if (mySet != nullptr) {
        std::erase(mySet->myWalks, this);
      }
    }
    CWalk(const CWalk&) = delete;
    CWalk& operator=(const CWalk&) = delete;

    // The next element; null at the end, and after the set itself has died.
    T* Next() {
      if (mySet == nullptr || myNext == nullptr) {
        return nullptr;
      }
      if (myChanges != mySet->myChanges) {
        myPlace = mySet->Find(myNext);
        myChanges = mySet->myChanges;
      }
      myPlace = mySet->Behind(myPlace);
      return std::exchange(myNext, mySet->At(myPlace));
    }

   private:
    friend class CWalkSet;
    CWalkSet* mySet;
    T* myNext;
    SPlace myPlace{};       // of myNext, after so many
    std::size_t myChanges;  // of the set
  };

  CWalkSet() = default;
  ~CWalkSet() {
    for (CWalk* walk : myWalks) {
      walk->mySet = nullptr;
    }
  }
  CWalkSet(const CWalkSet&) = delete;
  CWalkSet& operator=(const CWalkSet&) = delete;

  bool IsEmpty() const { return myBlocks.empty(); }
  std::size_t Size() const { return myBlockOf.size(); }
  // Null when there is none.
  T* Front() const { return At({}); }
  bool Contains(const T* item) const { return myBlockOf.contains(item); }

  // All in their order, gathered anew after each change.
  const std::vector<T*>& Items() const {
    if (std::exchange(myGatheredChanges, myChanges) != myChanges) {
      myGathered.clear();
      for (const auto& block : myBlocks) {
        myGathered.insert(myGathered.end(), block->items.begin(), block->items.end());
      }
    }
    return myGathered;
  }

  // Before and behind all others or, in a sorted set, all its equals. Nothing for what is in the
  // set already.
  void Prepend(T* item) {
    Insert(item, [=](const T* other) { return Order()(other, item); });
  }
  void Append(T* item) {
    Insert(item, [=](const T* other) { return !Order()(item, other); });
  }

  // Answers whether it was there.
  bool Remove(const T* item) {
    const auto entry = myBlockOf.find(item);
    if (entry == myBlockOf.end()) {
      return false;
    }
    const SPlace place = PlaceIn(*entry->second, item);
    myBlockOf.erase(entry);
    Redirect(item, At(Behind(place)));
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
  // What is moved at once when an element comes or goes; never empty.
  struct SBlock {
    std::size_t number = 0;
    std::vector<T*> items;
  };
  static constexpr std::size_t kFullBlock = 256;

  T* At(SPlace place) const {
    return place.block < myBlocks.size() ? myBlocks[place.block]->items[place.index] : nullptr;
  }

  SPlace Behind(SPlace place) const {
    return place.index + 1 < myBlocks[place.block]->items.size()
               ? SPlace{place.block, place.index + 1}
               : SPlace{place.block + 1, 0};
  }

  SPlace Find(const T* item) const { return PlaceIn(*myBlockOf.at(item), item); }

  static SPlace PlaceIn(const SBlock& block, const T* item) {
    const auto found = std::find(block.items.begin(), block.items.end(), item);
    return {block.number, static_cast<std::size_t>(found - block.items.begin())};
  }

  // Puts the item behind all for which `isBefore` is true.
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
    if (!myWalks.empty()) {
      Redirect(At(Behind(Find(item))), item);
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

  // The walks that come to the one element next come to the other instead.
  void Redirect(const T* from, T* to) {
    for (CWalk* walk : myWalks) {
      if (walk->myNext == from) {
        walk->myNext = to;
      }
    }
  }

  std::vector<std::unique_ptr<SBlock>> myBlocks;
  std::unordered_map<const T*, SBlock*> myBlockOf;
  std::vector<CWalk*> myWalks;
  std::size_t myChanges = 1;
  mutable std::vector<T*> myGathered;
  mutable std::size_t myGatheredChanges = 0;
};

}  // namespace vask
