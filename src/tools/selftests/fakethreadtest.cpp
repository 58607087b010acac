#include "kernel/fakethread.h"
#include "tools/selftests/standinclock.h"
#include "tools/tester.h"
#include "utils/log/log.h"

#include <string>

namespace vask::tester {
namespace {

constexpr unsigned kSlice = 200;  // milliseconds
constexpr int kInterval = 20;

struct SCount {
  int updates = 0;
  bool isGone = false;
};

class CCountingThread : public CFakeThread {
 public:
  explicit CCountingThread(SCount& count) : myCount(count) {
    SetInterval(kInterval);
    Start();
  }
  ~CCountingThread() override { myCount.isGone = true; }
  void Update() override { ++myCount.updates; }

 private:
  SCount& myCount;
};

// With a slice, the passes repeat until it is over, so a thread gets through several intervals in
// one call. The clock goes on while it is read, as a real one does.
bool TestFakeThreads(STest& test) {
  if (CFakeThread::PeekList() != nullptr) {
    // A slice would run on the threads of the game, and they would hold ours back.
    *CLog::GetSingletonPtr() << "Not run, since threads of the program are at work\n";
    return false;
  }
  const CStandInClock clock(1);
  SCount count;
  auto* thread = new CCountingThread(count);
  const unsigned start = clock.Now();
  CFakeThread::RunThreads(kSlice);
  const unsigned taken = clock.Now() - start;
  thread->Kill();
  CFakeThread::RunThreads(0);  // deletes it
  VASK_TEST_ASSERT(test, count.isGone, "a killed thread lives on");
  VASK_TEST_ASSERT(test, taken >= kSlice, std::to_string(taken));
  VASK_TEST_ASSERT(test, count.updates > 1, std::to_string(count.updates));
  VASK_TEST_ASSERT(test, count.updates <= static_cast<int>(taken) / kInterval + 1,
                   std::to_string(count.updates));
  return false;
}

const CTestRegistrar theRegistrar(&TestFakeThreads, "Cooperative threads", __FILE__);

}  // namespace
}  // namespace vask::tester
