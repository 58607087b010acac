#include "utils/smartptr/smartptr.h"

#include <gtest/gtest.h>

#include <utility>

namespace vask {
namespace {

struct CNode {
  explicit CNode(int& deaths) : myDeaths(deaths) {}
  ~CNode() { ++myDeaths; }
  int& myDeaths;
  CSmartPtr<CNode> next;
};

TEST(SmartPtr, TheLastPointerDeletesWhatIsNotForgotten) {
  int deaths = 0;
  CSmartPtr<CNode> first(new CNode(deaths));
  const CSmartPtr<CNode> again(first.Get());  // held once more from its plain pointer
  CSmartPtr<CNode>& self = first;
  first = self;
  CSmartPtr<CNode> moved = std::move(first);
  EXPECT_EQ(CSmartPtrManager<CNode>::GetSingletonPtr()->Count(again.Get()), 2U);
  moved = CSmartPtr<CNode>(new CNode(deaths));
  EXPECT_EQ(deaths, 0);
  moved->next = CSmartPtr<CNode>(new CNode(deaths));
  moved = moved->next;  // the object that holds its successor dies, the successor does not
  EXPECT_EQ(deaths, 1);
  moved.Reset();
  EXPECT_EQ(deaths, 2);
  CNode local(deaths);
  moved = CSmartPtr<CNode>(&local);
  CSmartPtrManager<CNode>::GetSingletonPtr()->Forget(&local);
  moved.Reset();
  EXPECT_EQ(deaths, 2) << "deleted what dies by itself";
}

}  // namespace
}  // namespace vask
