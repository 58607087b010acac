#include "utils/assert.h"

#include "support/logcapture.h"

#include <gtest/gtest.h>

namespace vask {
namespace {

// Keeps what it is told, and writes 9 into every variable.
struct CWriter : IAssertHandler {
  CWriter() { SetAssertHandler(this); }
  ~CWriter() override { SetAssertHandler(nullptr); }
  void OnAssertFailed(const CAssertion& assertion) override {
    myTold += assertion.GetMessage() + "|" + assertion.GetExpression();
    for (const auto& variable : assertion.GetVariables()) {
      myTold += " " + variable->GetName() + "=" + variable->GetString();
      variable->SetString("9");
    }
  }
  std::string myTold;
};

TEST(Assert, EvaluatesOnceAndReportsOnlyFailures) {
  CWriter writer;
  int calls = 0;
  VASK_ASSERT(++calls == 1);
  VASK_ASSERT_WATCHING(++calls == 2, calls);
  EXPECT_EQ(writer.myTold, "");
  VASK_ASSERT(++calls == 0, "call " + std::to_string(calls));
  BanAsserts(true);
  VASK_ASSERT(++calls == 0);
  BanAsserts(false);
  EXPECT_EQ(writer.myTold, "call 3|++calls == 0");
  EXPECT_EQ(calls, 4);
}

TEST(Assert, TheHandlerMayChangeWhatIsWatched) {
  CWriter writer;
  int index = 3;
  const int count = 2;
  VASK_ASSERT_WATCHING(index < count, index, count);
  EXPECT_EQ(writer.myTold, "index < count|index < count index=3 count=2");
  EXPECT_EQ(index, 9);
  EXPECT_EQ(count, 2);
}

TEST(Assert, LogsWithoutAHandlerAlsoWhenTheLogItselfFails) {
  struct CFailing : ILogListener {
    void OnLog(const std::string&, int) override { VASK_ASSERT(false, "inside"); }
  } failing;
  const test::CLogCapture log;
  Log().AddListener(&failing);
  VASK_ASSERT(1 > 2);
  Log().RemoveListener(&failing);
  ASSERT_EQ(log.Lines().size(), 1U);
  EXPECT_TRUE(log.Has("Assertion failed: 1 > 2 (" __FILE__ ":"));
  VASK_ASSERT(1 > 2, "a message");
  EXPECT_TRUE(log.Text().ends_with("): a message\n"));
}

}  // namespace
}  // namespace vask
