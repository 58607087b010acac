#include "ui/widget.h"

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <limits>
#include <string>

// A resize through very many widgets with layouts, all texts different, against one through as many
// that only scale: moving and sizing a widget can't be spared, so that is the part that no layout
// does without. The sides take turns, and the fastest pass of each counts.

namespace vask::ui {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kWidgets = 10'000;
constexpr CRect<int> kRect{10, 20, 800, 600};
constexpr double kLongest = std::numeric_limits<double>::infinity();

void AddChildren(CWidget& parent, bool hasLayout) {
  for (int i = 0; i < kWidgets; ++i) {
    auto* child = new CWidget(nullptr, {i, i, 100, 50}, false, {}, {});
    parent.AddChild(child);
    if (hasLayout) {
      const std::string number = std::to_string(i);
      child->SetLayout("parent.x + " + number, "parent.y + parent.h - " + number,
                       "parent.w - ( this.h + " + number + " ) / 2", "parent.h * 0." + number);
    }
  }
}

// Seconds for a widget; each call gives the parent another size.
double Resize(CWidget& parent) {
  const int change = parent.GetRect().w == kRect.w ? 100 : 0;
  const Clock::time_point start = Clock::now();
  parent.Resize(kRect.w + change, kRect.h + change);
  return std::chrono::duration<double>(Clock::now() - start).count() / kWidgets;
}

void BM_ResizeLayouts(benchmark::State& state) {
  std::filesystem::current_path(std::filesystem::temp_directory_path());  // for the log
  CWidget layouts(nullptr, kRect, false, {}, {});
  CWidget scaled(nullptr, kRect, false, {}, {});
  AddChildren(layouts, true);
  AddChildren(scaled, false);
  double ours = kLongest;
  double plain = kLongest;
  for ([[maybe_unused]] auto _ : state) {
    ours = std::min(ours, Resize(layouts));
    plain = std::min(plain, Resize(scaled));
  }
  state.counters["layout_us"] = ours * 1e6;
  state.counters["scale_us"] = plain * 1e6;
  state.counters["ratio"] = ours / plain;
  state.counters["limit"] = 6;
}
BENCHMARK(BM_ResizeLayouts)->Iterations(100)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace vask::ui
