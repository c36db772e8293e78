// What the rules cost without a screen. Each tick starts from a fixed state that is copied in outside the measured
// time, so that a cave does not come to rest while it is measured.

#include <benchmark/benchmark.h>

#include <string>

#include "cave/cave_text.h"
#include "caves.h"
#include "engine/hra.h"

namespace {

Hra Running(const CaveRecord& record, int ticks) {
  Hra game;
  game.random = Random(7);
  game.PaintCave(BuildCaveText(record));
  game.Command1_Click();
  for (int i = 0; i < ticks; ++i) game.tmrHra_Timer();
  return game;
}

/// The first five seconds of a cave, over and over; the copy back to the start is not measured.
void Tick(benchmark::State& state, const CaveRecord& record) {
  constexpr int kBatch = 50;
  const Hra start = Running(record, 0);
  Hra game = start;
  for ([[maybe_unused]] auto _ : state) {
    state.PauseTiming();
    game = start;
    state.ResumeTiming();
    for (int i = 0; i < kBatch; ++i) game.tmrHra_Timer();
  }
  state.counters["per tick"] =
      benchmark::Counter(kBatch, benchmark::Counter::kIsIterationInvariantRate | benchmark::Counter::kInvert);
}

void TickLargestBusyCave(benchmark::State& state) { Tick(state, BusyCave()); }
void TickUsualQuietCave(benchmark::State& state) { Tick(state, QuietCave()); }

void PaintCave(benchmark::State& state) {
  const std::string text = BuildCaveText(BusyCave());
  Hra game;
  for ([[maybe_unused]] auto _ : state) game.PaintCave(text);
}

void CopyState(benchmark::State& state) {
  const Hra start = Running(BusyCave(), 100);
  for ([[maybe_unused]] auto _ : state) {
    Hra copy = start;
    benchmark::DoNotOptimize(copy);
  }
}

BENCHMARK(TickLargestBusyCave)->Unit(benchmark::kMicrosecond);
BENCHMARK(TickUsualQuietCave)->Unit(benchmark::kMicrosecond);
BENCHMARK(PaintCave)->Unit(benchmark::kMicrosecond);
BENCHMARK(CopyState)->Unit(benchmark::kMicrosecond);

}  // namespace
