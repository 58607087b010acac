#include "stage.h"
#include "ui/console/consolewindow.h"
#include "ui/console/loglistenerforconsole.h"
#include "ui/desktopwidget.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <functional>
#include <limits>
#include <string>

// The console window over a long log, opened, and made wider or narrower by a pixel. The other side
// is a loop that only adds up the widths of all characters, which an opening can't do without: each
// console has a font of its own. The sides take turns, and the fastest pass of each counts.

namespace vask {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kLines = 100'000;
constexpr double kLongest = std::numeric_limits<double>::infinity();

class CConsoleStage : public CStage {
 public:
  CConsoleStage() : CStage(BRUMBLE_RUNTIME_FOLDER) {}
  ~CConsoleStage() { ui::CDesktopWidget::DeleteSingleton(); }
};

// Of 20 to 60 characters, which fit into the window; one in ten is three times as long.
std::string Line(int number) {
  std::string line = "( ) line " + std::to_string(number) + " tells";
  const int length = (20 + number * 7 % 41) * (number % 10 == 0 ? 3 : 1);
  while (static_cast<int>(line.size()) < length) {
    line += " some word"[line.size() * 7 % 10];
  }
  return line + "\n";
}

void FillLog() {
  ui::CLogListenerForConsole& log = ui::CLogListenerForConsole::GetSingleton();
  for (int i = static_cast<int>(log.GetLines().lines.size()); i < kLines; ++i) {
    log.OnLog(Line(i), kLogNormal);
  }
}

long SumOfWidths() {
  static const std::array<int, 256> widths = [] {
    std::array<int, 256> table;
    table.fill(6);
    return table;
  }();
  long sum = 0;
  for (const auto& line : ui::CLogListenerForConsole::GetSingleton().GetLines().lines) {
    for (const char character : line.text) {
      sum += widths[static_cast<unsigned char>(character)];
    }
  }
  return sum;
}

void Time(double& best, const std::function<void()>& action) {
  const Clock::time_point start = Clock::now();
  action();
  best = std::min(best, std::chrono::duration<double>(Clock::now() - start).count());
}

void Compare(benchmark::State& state, const std::function<void()>& action, double limit) {
  double ours = kLongest;
  double plain = kLongest;
  for ([[maybe_unused]] auto _ : state) {
    Time(ours, action);
    Time(plain, [] { benchmark::DoNotOptimize(SumOfWidths()); });
  }
  state.counters["ours_ms"] = ours * 1e3;
  state.counters["sum_ms"] = plain * 1e3;
  state.counters["ratio"] = ours / plain;
  state.counters["limit"] = limit;
}

void BM_Open(benchmark::State& state) {
  const CConsoleStage stage;
  FillLog();
  Compare(
      state, [] { const CConsoleWindow console; }, 4.5);
}
BENCHMARK(BM_Open)->Iterations(40)->Unit(benchmark::kMillisecond);

void BM_StepOfWidth(benchmark::State& state) {
  const CConsoleStage stage;
  FillLog();
  const CConsoleWindow console;
  ui::CWidget& window = *ui::CDesktopWidget::GetSingleton().GetChildren().front();
  int step = 1;
  Compare(
      state,
      [&] {
        window.Resize(window.GetRect().w + step, window.GetRect().h);
        step = -step;
      },
      2);
}
BENCHMARK(BM_StepOfWidth)->Iterations(40)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vask
