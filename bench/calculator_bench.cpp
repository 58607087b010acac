#include "turns.h"
#include "utils/calculator/calculator.h"

#include <muParser.h>

#include <string>

// An expression parsed and evaluated once, against muParser, which also parses a text anew when it
// is set. The texts are those of layouts and animators once the numbers are in.

namespace vask {
namespace {

constexpr double kGoal = 0.25;
constexpr int kTimes = 1000;  // in one pass: a single time is too short for the clock

void BM_Expression(benchmark::State& state, const char* text) {
  CCalculator<double> calculator;
  const std::string expression = text;
  const auto ours = [&] {
    for (int i = 0; i < kTimes; ++i) {
      benchmark::DoNotOptimize(calculator.Calculate(expression));
    }
  };
  mu::Parser parser;
  const auto peer = [&] {
    for (int i = 0; i < kTimes; ++i) {
      parser.SetExpr(expression);
      benchmark::DoNotOptimize(parser.Eval());
    }
  };
  MeasureInTurns(state, kGoal, ours, peer);
}
BENCHMARK_CAPTURE(BM_Expression, layout, "120 + 640 - 25")
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Expression, share, "480 * 0.9 - (32 + 4) / 2")
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Expression, animator, "400 + 100 * sin(0.48 * 3.14159) - cos(1.25)")
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(BM_Expression, number, "0.333333")
    ->UseManualTime()
    ->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace vask
