#include "kernel/consolebridge.h"
#include "turns.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <lua.hpp>
#include <memory>
#include <random>
#include <string>
#include <utility>
#include <vector>

// A line that sets a variable, executed by the application's kind of console with its commands,
// against the same line in Lua. The variables are there already, and are set in another order than
// that in which they came, so that with very many of them each comes from memory.

namespace vask {
namespace {

constexpr double kGoal = 0.35;
constexpr std::size_t kTimes = 1000;  // in one pass: a single time is too short for the clock

std::vector<std::string> MakeLines(std::int64_t count) {
  std::vector<std::string> lines;
  for (std::int64_t i = 0; i < count; ++i) {
    lines.push_back("variable" + std::to_string(i) + " = " + std::to_string(i % 1000));
  }
  return lines;
}

// So many lines in each call, going on from where the last call stopped.
template <typename Execute>
auto InTurn(std::vector<std::string> lines, Execute execute) {
  return [lines = std::move(lines), execute, next = std::size_t{0}]() mutable {
    for (std::size_t i = 0; i < kTimes; ++i) {
      execute(lines[next]);
      next = next + 1 == lines.size() ? 0 : next + 1;
    }
  };
}

// From none that leaves the cache to many that do.
void WithVariables(benchmark::internal::Benchmark* bench) {
  bench->Arg(1)->Arg(100)->Arg(10'000)->Arg(100'000);
  bench->UseManualTime()->Unit(benchmark::kMicrosecond);
}

void BM_Assignment(benchmark::State& state) {
  CConsoleBridge console;
  CConsoleBridge::LoadLibraries(&console);
  const auto ours = [&](const std::string& line) {
    benchmark::DoNotOptimize(console.Execute(line, false));
  };
  const std::unique_ptr<lua_State, decltype(&lua_close)> lua(luaL_newstate(), &lua_close);
  const auto peer = [&](const std::string& line) {
    benchmark::DoNotOptimize(luaL_dostring(lua.get(), line.c_str()));
  };
  std::vector<std::string> lines = MakeLines(state.range(0));
  std::for_each(lines.begin(), lines.end(), ours);
  std::for_each(lines.begin(), lines.end(), peer);
  std::shuffle(lines.begin(), lines.end(), std::minstd_rand());
  MeasureInTurns(state, kGoal, InTurn(lines, ours), InTurn(lines, peer));
}
BENCHMARK(BM_Assignment)->Apply(&WithVariables);

// The least that a line has to read when nothing of it is in a cache: the line, the place of a
// table that holds a name and a pointer, and the variable, each of which tells where the next one
// is.
void BM_AssignmentReads(benchmark::State& state) {
  struct SVariable {
    std::array<char, 88> content{};
  };
  struct SPlace {
    std::string key;
    std::unique_ptr<SVariable> variable;
  };
  const std::unique_ptr<lua_State, decltype(&lua_close)> lua(luaL_newstate(), &lua_close);
  const auto peer = [&](const std::string& line) {
    benchmark::DoNotOptimize(luaL_dostring(lua.get(), line.c_str()));
  };
  std::vector<std::string> lines = MakeLines(state.range(0));
  std::for_each(lines.begin(), lines.end(), peer);
  std::vector<SPlace> places(lines.size() * 5 / 4);
  for (SPlace& place : places) {
    place = {"VARIABLE", std::make_unique<SVariable>()};
  }
  std::shuffle(places.begin(), places.end(), std::minstd_rand());
  std::shuffle(lines.begin(), lines.end(), std::minstd_rand());
  std::size_t read = 0;
  const auto ours = [&](const std::string& line) {
    const std::size_t hash = std::hash<std::string>()(line) + (read & 1);
    SVariable& variable = *places[hash % places.size()].variable;
    read += static_cast<std::size_t>(places[hash % places.size()].key[0]);
    read += static_cast<std::size_t>(variable.content[8] + ++variable.content[80]);
  };
  MeasureInTurns(state, kGoal, InTurn(lines, ours), InTurn(lines, peer));
  benchmark::DoNotOptimize(read);
}
BENCHMARK(BM_AssignmentReads)->Apply(&WithVariables);

}  // namespace
}  // namespace vask
