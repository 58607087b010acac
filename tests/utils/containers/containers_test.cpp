#include "utils/containers/varref.h"
#include "utils/smartptr/smartptr.h"

#include <gtest/gtest.h>

namespace vask {
namespace {

// Texts, and what a variable of that start value holds after each.
template <typename T>
void ExpectReads(T start, const std::vector<std::pair<const char*, T>>& cases) {
  for (const auto& [text, value] : cases) {
    T variable = start;
    CVarRef<T>(&variable, "v").SetString(text);
    EXPECT_EQ(variable, value) << "\"" << text << "\"";
  }
}

// clang-format off
TEST(VarRef, ReadsItsTypeOrKeepsTheValue) {
  ExpectReads<int>(7, {{"5", 5}, {" -5 x", -5}, {"2147483647", 2147483647}, {"2147483648", 7}, {"x1", 7}});
  ExpectReads<unsigned>(7, {{"5", 5}, {"4294967295", 4294967295U}, {"4294967296", 7}, {" -1", 7}, {" ", 7}});
  ExpectReads<bool>(true, {{"0", false}, {"1", true}, {"2", true}, {"false", true}, {"", true}});
  ExpectReads<bool>(false, {{"1", true}, {"2", false}, {"true", false}});
  ExpectReads<float>(7, {{"0.5", 0.5F}, {"-2e3", -2000}, {"1e99", 7}, {"x", 7}});
  ExpectReads<std::string>("old", {{" two words ", " two words "}, {"", ""}});
}
// clang-format on

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
