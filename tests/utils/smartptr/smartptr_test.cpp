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

TEST(SmartPtr, TheLastPointerDeletes) {
  int deaths = 0;
  CSmartPtr<CNode> first(new CNode(deaths));
  CNode* plain = first.Get();
  {
    const CSmartPtr<CNode> copy = first;
    const CSmartPtr<CNode> again(plain);  // held once more from its plain pointer
    EXPECT_EQ(CSmartPtrManager<CNode>::GetSingletonPtr()->Count(plain), 3U);
    EXPECT_TRUE(copy == again);
  }
  CSmartPtr<CNode>& self = first;
  first = self;
  CSmartPtr<CNode> moved = std::move(first);
  EXPECT_EQ(CSmartPtrManager<CNode>::GetSingletonPtr()->Count(plain), 1U);
  EXPECT_EQ(deaths, 0);
  moved = CSmartPtr<CNode>(new CNode(deaths));
  EXPECT_EQ(deaths, 1);
  moved.Reset();
  moved.Reset();
  EXPECT_EQ(deaths, 2);
  EXPECT_FALSE(moved);
}

TEST(SmartPtr, AnObjectMayHoldOthersWhenItDies) {
  int deaths = 0;
  CSmartPtr<CNode> first(new CNode(deaths));
  first->next = CSmartPtr<CNode>(new CNode(deaths));
  first->next->next = CSmartPtr<CNode>(new CNode(deaths));
  first = first->next;
  EXPECT_EQ(deaths, 1);
  first.Reset();
  EXPECT_EQ(deaths, 3);
}

}  // namespace
}  // namespace vask
