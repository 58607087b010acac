#include "utils/containers/varref.h"
#include "utils/smartptr/smartptr.h"

#include <gtest/gtest.h>

namespace vask {
namespace {

// What a variable of that value holds after it was set from the text.
template <typename T>
T Set(T variable, const char* text) {
  CVarRef<T>(&variable, "v").SetString(text);
  return variable;
}

TEST(VarRef, ReadsItsTypeOrKeepsTheValue) {
  EXPECT_EQ(Set<int>(7, " -5 x"), -5);
  EXPECT_EQ(Set<int>(7, "2147483648"), 7);
  EXPECT_EQ(Set<unsigned>(7, "4294967295"), 4294967295U);
  EXPECT_EQ(Set<unsigned>(7, " -1"), 7U);
  EXPECT_EQ(Set<bool>(true, "0"), false);
  EXPECT_EQ(Set<float>(7, "1e99"), 7);
  EXPECT_EQ(Set<std::string>("old", " two words "), " two words ");
}

struct CNode {
  explicit CNode(int& count) : deaths(count) {}
  ~CNode() { ++deaths; }
  int& deaths;
  CSmartPtr<CNode> next;
};

TEST(SmartPtr, TheLastPointerDeletesWhatIsNotForgotten) {
  int deaths = 0;
  CSmartPtr<CNode> pointer(new CNode(deaths));
  CSmartPtr<CNode> again(pointer.Get());  // held once more from its plain pointer
  pointer.Reset();
  EXPECT_EQ(deaths, 0);
  again->next = CSmartPtr<CNode>(new CNode(deaths));
  again = again->next;  // the object that holds its successor dies, the successor does not
  EXPECT_EQ(deaths, 1);
  CNode local(deaths);
  pointer = CSmartPtr<CNode>(&local);
  CSmartPtrManager<CNode>::GetSingletonPtr()->Forget(&local);
  pointer.Reset();
  EXPECT_EQ(deaths, 1) << "what was forgotten is not deleted";
}

}  // namespace
}  // namespace vask
