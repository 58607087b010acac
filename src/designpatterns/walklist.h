#pragma once

#include "designpatterns/openwalks.h"

#include <algorithm>
#include <cstddef>
#include <vector>

namespace vask {

// A list of pointers (not owned) that may change, or die, while it is being walked. Every list
// whose elements are called while it is walked is one of these:
//
//     using List = CWalkList<const char>;
//
//     List::CWalk walk(*list);
//     while (const char* item = walk.Next()) {
//       visit(item);
//     }
//
// A removal moves the open walks to the successor; what is inserted after a walk's current element
// is still visited, what is inserted before it is not.
template <typename T>
class CWalkList {
 public:
  class CWalk;
  using Walks = COpenWalks<CWalkList, CWalk>;

  class CWalk : public Walks::CLink {
   public:
    explicit CWalk(CWalkList& list) : Walks::CLink(list, list.myWalks) {}

    // The next element; null at the end, and after the list itself has died.
    T* Next() {
      if (!this->IsListAlive() || myNext >= this->myList->myItems.size()) {
        return nullptr;
      }
      return this->myList->myItems[myNext++];
    }

   private:
    friend class CWalkList;
    std::size_t myNext = 0;
  };

  bool IsEmpty() const { return myItems.empty(); }
  std::size_t Size() const { return myItems.size(); }
  T* Front() const { return myItems.front(); }
  const std::vector<T*>& Items() const { return myItems; }

  bool Contains(const T* item) const {
    return std::find(myItems.begin(), myItems.end(), item) != myItems.end();
  }

  void Append(T* item) { Insert(myItems.size(), item); }

  void AppendOnce(T* item) {
    if (!Contains(item)) {
      Append(item);
    }
  }

  // Puts the item before the element at `position`; at the end when there is none.
  void Insert(std::size_t position, T* item) {
    myItems.insert(myItems.begin() + static_cast<std::ptrdiff_t>(position), item);
    myWalks.ForEach([=](CWalk& walk) { walk.myNext += position < walk.myNext ? 1 : 0; });
  }

  // Removes the first entry equal to the item; returns whether there was one.
  bool Remove(const T* item) {
    const auto found = std::find(myItems.begin(), myItems.end(), item);
    if (found == myItems.end()) {
      return false;
    }
    const auto position = static_cast<std::size_t>(found - myItems.begin());
    myItems.erase(found);
    myWalks.ForEach([=](CWalk& walk) { walk.myNext -= position < walk.myNext ? 1 : 0; });
    Strike(item);
    return true;
  }

  void Clear() {
    myItems.clear();
    for (std::vector<T*>* snapshot : mySnapshots) {
      std::fill(snapshot->begin(), snapshot->end(), nullptr);
    }
    myWalks.ForEach([](CWalk& walk) { walk.myNext = 0; });
  }

  // Calls `visit` for each element that was there when the walk began and is still there when its
  // turn comes. What is added meanwhile waits for the next walk, even at the address of an element
  // that has died. Safe when the list dies meanwhile.
  template <typename Visit>
  void ForEachPresent(Visit visit) {
    const CWalk alive(*this);
    std::vector<T*> present = myItems;
    mySnapshots.push_back(&present);
    for (std::size_t i = 0; i < present.size(); ++i) {
      if (present[i] != nullptr) {
        visit(present[i]);
      }
      if (!alive.IsListAlive()) {
        return;
      }
    }
    std::erase(mySnapshots, &present);
  }

 private:
  // Takes a removed element out of the walks that have not come to it yet.
  void Strike(const T* item) {
    if (!Contains(item)) {
      for (std::vector<T*>* snapshot : mySnapshots) {
        std::replace(snapshot->begin(), snapshot->end(), const_cast<T*>(item),
                     static_cast<T*>(nullptr));
      }
    }
  }

  std::vector<T*> myItems;
  Walks myWalks;
  std::vector<std::vector<T*>*> mySnapshots;  // of the walks of ForEachPresent
};

}  // namespace vask
