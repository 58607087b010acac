#pragma once

#include <vector>

namespace vask {

// What a list that may change while it is walked knows of its open walks. `List` holds one of
// these, and its `Walk` derives from CLink; the list adjusts the walks at each change.
template <typename List, typename Walk>
class COpenWalks {
 public:
  // A walk's link to its list.
  class CLink {
   public:
    CLink(const CLink&) = delete;
    CLink& operator=(const CLink&) = delete;

    bool IsListAlive() const { return myList != nullptr; }

   protected:
    CLink(List& list, COpenWalks& walks) : myList(&list), myWalks(walks) {
      walks.myLinks.push_back(this);
    }
    ~CLink() {
      if (IsListAlive()) {
        std::erase(myWalks.myLinks, this);
      }
    }

    List* myList;  // null once the list has died

   private:
    friend class COpenWalks;
    COpenWalks& myWalks;
  };

  COpenWalks() = default;
  ~COpenWalks() {
    for (CLink* link : myLinks) {
      link->myList = nullptr;
    }
  }
  COpenWalks(const COpenWalks&) = delete;
  COpenWalks& operator=(const COpenWalks&) = delete;

  bool IsEmpty() const { return myLinks.empty(); }

  template <typename Adjust>
  void ForEach(Adjust adjust) {
    for (CLink* link : myLinks) {
      adjust(static_cast<Walk&>(*link));
    }
  }

 private:
  std::vector<CLink*> myLinks;
};

}  // namespace vask
