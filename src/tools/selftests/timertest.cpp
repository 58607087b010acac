#include "tools/selftests/standinclock.h"
#include "tools/tester.h"
#include "utils/timer/timer.h"

#include <string>

namespace vask::tester {
namespace {

bool TestTimers(STest& test) {
  CStandInClock clock(0);
  CTimer timer;
  CTimer chained(&timer);
  clock.Advance(1000);
  VASK_TEST_ASSERT(test, timer.GetTime() == 1000, std::to_string(timer.GetTime()));
  timer.Pause();
  clock.Advance(500);
  VASK_TEST_ASSERT(test, timer.GetTime() == 1000, std::to_string(timer.GetTime()));
  VASK_TEST_ASSERT(test, chained.GetTime() == 1000, std::to_string(chained.GetTime()));
  timer.Resume();
  clock.Advance(250);
  VASK_TEST_ASSERT(test, chained.GetTime() == 1250, std::to_string(chained.GetTime()));
  timer.Reset();
  VASK_TEST_ASSERT(test, timer.GetTime() == 0, std::to_string(timer.GetTime()));
  return false;
}

const CTestRegistrar theRegistrar(&TestTimers, "Timers", __FILE__);

}  // namespace
}  // namespace vask::tester
