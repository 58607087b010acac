#include "utils/assert.h"

#include "support/logcapture.h"

#include <gtest/gtest.h>

namespace vask {
namespace {

// Keeps what it is told, and writes 9 into every variable.
struct CWriter : IAssertHandler, ILogListener {
  void OnAssertFailed(const CAssertion& assertion) override {
    told += assertion.GetMessage() + "|" + assertion.GetExpression();
    for (const auto& variable : assertion.GetVariables()) {
      told += " " + variable->GetName() + "=" + variable->GetString();
      variable->SetString("9");
    }
    told += "\n";
  }
  void OnLog(const std::string&, int) override { VASK_ASSERT(false, "inside"); }
  std::string told;
};

TEST(Assert, TellsWhatFailedAndEvaluatesOnce) {
  CWriter writer;
  SetAssertHandler(&writer);
  int calls = 0;
  int count = 3;
  const int limit = 2;
  if (calls == 0)
    VASK_ASSERT(++calls == 1);
  else
    VASK_ASSERT(false);
  VASK_ASSERT_WATCHING(++calls == 2, count);
  VASK_ASSERT(++calls == 0);
  VASK_ASSERT(++calls == 0, "call " + std::to_string(calls));
  VASK_ASSERT_WATCHING(++calls == 0 && count < limit, count, limit);
  BanAsserts(true);
  VASK_ASSERT(++calls == 0);
  BanAsserts(false);
  SetAssertHandler(nullptr);
  EXPECT_EQ(writer.told,
            "++calls == 0|++calls == 0\ncall 4|++calls == 0\n"
            "++calls == 0 && count < limit|++calls == 0 && count < limit count=3 limit=2\n");
  EXPECT_EQ(std::to_string(calls) + std::to_string(count) + std::to_string(limit), "692");
}

TEST(Assert, LogsWithoutAHandlerAlsoWhenTheLogItselfFails) {
  CWriter bad;
  const test::CLogCapture log;
  CLog::GetSingletonPtr()->AddListener(&bad);
  VASK_ASSERT(1 > 2);
  CLog::GetSingletonPtr()->RemoveListener(&bad);
  EXPECT_EQ(log.Text().find("Assertion failed: 1 > 2 (" __FILE__ ":"), 0U);
  EXPECT_EQ(log.Lines().size(), 1U);
  LogErrors("a\rb");
  EXPECT_EQ(log.Lines().back().level, kLogError) << "in each line";
}

}  // namespace
}  // namespace vask
