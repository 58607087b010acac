#include "utils/smartptr/smartptr.h"

#include <gtest/gtest.h>

namespace vask {
namespace {

struct CNode {
  explicit CNode(int& itsDeaths) : deaths(itsDeaths) {}
  ~CNode() { ++deaths; }
  int& deaths;
  CSmartPtr<CNode> next;
};

TEST(SmartPtr, TheLastPointerDeletesWhatIsNotForgotten) {
  int deaths = 0;
  CSmartPtr<CNode> pointer(new CNode(deaths));
  {
    const CSmartPtr<CNode> again(pointer.Get());  // held once more from its plain pointer
    pointer = CSmartPtr<CNode>(new CNode(deaths));
    EXPECT_EQ(deaths, 0);
  }
  pointer->next = CSmartPtr<CNode>(new CNode(deaths));
  pointer = pointer->next;  // the object that holds its successor dies, the successor does not
  EXPECT_EQ(deaths, 2);
  CNode local(deaths);
  pointer = CSmartPtr<CNode>(&local);
  CSmartPtrManager<CNode>::GetSingletonPtr()->Forget(&local);
  pointer.Reset();
  EXPECT_EQ(deaths, 3) << "deleted what dies by itself";
}

}  // namespace
}  // namespace vask
