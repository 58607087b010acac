#include "kernel/fakethread.h"
#include "kernel/kernel.h"
#include "kernel/taskfactory.h"
#include "utils/timer/globaltimerimpl.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <climits>
#include <cstddef>
#include <ctime>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <utility>
#include <vector>

// What the kernel takes for each of very many tasks from the start to the end, and for cooperative
// threads. 10,000 and 100,000 take turns: a cost that grows with the number of the others shows as
// a ratio towards 10. Each counter is a median.

namespace vask {
namespace {

using Costs = std::map<std::string, double>;  // seconds for one, by the step

constexpr int kFew = 10'000;
constexpr int kMany = 100'000;
constexpr int kPriorities = 10;
constexpr unsigned kInterval = 100;  // milliseconds

// Moves only from frame to frame.
struct CStoppedClock : IGlobalTimerImpl {
  unsigned GetTicks() override { return now; }
  static inline unsigned now = 1;
};

struct CPlainTask : CTask {
  void Update() override {}
};

struct CParkedTask : CPlainTask {
  using CTask::Start;
  bool Start() override { return false; }
};

struct CTimedTask : CPlainTask {
  CTimedTask() { SetTimedInterval(kInterval); }
};

// The last of a frame.
struct CDriver : CTask {
  explicit CDriver(std::function<void()> action) : onFrame(std::move(action)) {
    SetPriority(INT_MAX);
  }
  void Update() override { onFrame(); }
  std::function<void()> onFrame;
};

struct CIdleThread : CFakeThread {
  CIdleThread() { CFakeThread::Start(); }
  void Update() override {}
};

// In time of the processor: on a busy machine the long runs would be interrupted more often than
// the short ones.
class CLaps {
 public:
  // Seconds since the last call for each of so many.
  double Each(int count) {
    const std::clock_t begin = std::exchange(myBegin, std::clock());
    return static_cast<double>(myBegin - begin) / CLOCKS_PER_SEC / count;
  }

 private:
  std::clock_t myBegin = std::clock();
};

void StartTasks(const std::vector<std::string>& names) {
  int priority = 0;
  for (const std::string& name : names) {
    priority = (priority + 7) % kPriorities;
    CTaskFactory::GetSingletonPtr()->StartTask("task", name, priority, nullptr);
  }
}

// Two frames: the second updates all, then one task in ten is stopped by its name, and the rest end
// with the program.
template <typename Task>
Costs MeasureTasks(int count) {
  CTaskFactory::GetSingletonPtr()->GetPlugFactory().Register<Task>("task");
  std::vector<std::string> names;
  for (int i = 0; i < count; ++i) {
    names.push_back("task" + std::to_string(i));
  }
  Costs costs;
  CLaps laps;
  StartTasks(names);
  costs["start"] = laps.Each(count);
  const auto onFrame = [&, frame = 0]() mutable {
    costs["round"] = laps.Each(count);
    CStoppedClock::now += kInterval + 1;
    if (frame++ == 0) {
      return;
    }
    for (int i = 0; i < count; i += 10) {
      CTaskFactory::GetSingletonPtr()->StopTask(names[static_cast<std::size_t>(i)]);
    }
    costs["stop"] = laps.Each(count / 10);
    CKernel::GetSingletonPtr()->Quit();
  };
  {
    CDriver driver(onFrame);
    CKernel::GetSingletonPtr()->StartTask(&driver, nullptr);
    CKernel::GetSingletonPtr()->Run();
    costs["end"] = laps.Each(count);
  }
  CTaskFactory::DeleteSingleton();
  costs["delete"] = laps.Each(count);
  CKernel::DeleteSingleton();
  return costs;
}

Costs MeasureThreads(int count) {
  Costs costs;
  CLaps laps;
  std::vector<CFakeThread*> threads;
  for (int i = 0; i < count; ++i) {
    threads.push_back(new CIdleThread);
  }
  costs["start"] = laps.Each(count);
  CFakeThread::RunThreads(0);
  costs["round"] = laps.Each(count);
  for (CFakeThread* thread : threads) {
    thread->Kill();
  }
  CFakeThread::RunThreads(0);
  costs["end"] = laps.Each(count);
  return costs;
}

double Median(std::vector<double> values) {
  const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
  std::nth_element(values.begin(), middle, values.end());
  return *middle;
}

void BM_Kernel(benchmark::State& state, Costs (*measure)(int count)) {
  std::filesystem::current_path(std::filesystem::temp_directory_path());  // for the log
  SetGlobalTimerImpl(CSmartPtr<IGlobalTimerImpl>(new CStoppedClock));
  std::map<std::string, std::vector<double>> few;
  std::map<std::string, std::vector<double>> many;
  for ([[maybe_unused]] auto _ : state) {
    for (int i = 0; i < kMany / kFew; ++i) {
      for (const auto& [step, seconds] : measure(kFew)) {
        few[step].push_back(seconds);
      }
    }
    const Costs costs = measure(kMany);
    for (const auto& [step, seconds] : costs) {
      many[step].push_back(seconds);
    }
    state.SetIterationTime(costs.at("end") * kMany);
  }
  for (const auto& [step, seconds] : many) {
    state.counters[step + "_ns"] = Median(seconds) * 1e9;
    state.counters[step + "_growth_ratio"] = Median(seconds) / Median(few[step]);
    state.counters[step + "_growth_limit"] = 5;
  }
  state.counters["end_to_start_ratio"] = Median(many["end"]) / Median(many["start"]);
  state.counters["end_to_start_limit"] = 1;
}
BENCHMARK_CAPTURE(BM_Kernel, plain, &MeasureTasks<CPlainTask>)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Kernel, parked, &MeasureTasks<CParkedTask>)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Kernel, timed, &MeasureTasks<CTimedTask>)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(BM_Kernel, threads, &MeasureThreads)
    ->UseManualTime()
    ->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vask
