// What a tick costs with all that it shows: the rules, the cells painted on the cave's surface, and the window painted
// by the desktop layer, on the offscreen platform. As in engine_bench, ticks start over from a fixed state again and
// again. "median" and "worst" are of single ticks, in seconds; "pixels" are those painted on the window in a tick.

#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <fstream>
#include <string>
#include <vector>

#include "cave/cave_text.h"
#include "caves.h"
#include "desktop_bench.h"
#include "platform/application.h"
#include "platform/keys.h"
#include "platform/testing.h"
#include "view/form_hra.h"

namespace {

constexpr int kBatch = 50;  // ticks from the fixed state on: five seconds of play

/// The game window on a cave, with its timer stopped: the benchmark makes the ticks itself.
class Window {
 public:
  explicit Window(const CaveRecord& record) {
    form_.PaintCave(BuildCaveText(record));
    form_.game.random = Random(7);
    form_.Show();
    form_.Command1_Click();
    form_.tmrHra.Stop();
    platform::user::Wait(50);
    start_ = form_.game;
    platform::user::PaintedPixels();
  }

  void Restart() { form_.game = start_; }
  FormHra& form() { return form_; }

 private:
  Settings settings_;
  FormHra form_{ZORBIK_PROGRAM_DATA, settings_};
  Hra start_;
};

/// One tick, and what it changed painted: seconds.
double TimedTick(FormHra& form) {
  const auto start = std::chrono::steady_clock::now();
  form.tmrHra_Timer();
  platform::Application::PaintAndSleep(0);
  return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

void Report(benchmark::State& state, std::vector<double>& ticks) {
  const auto middle = ticks.begin() + static_cast<std::ptrdiff_t>(ticks.size() / 2);
  std::nth_element(ticks.begin(), middle, ticks.end());
  state.counters["median"] = *middle;
  state.counters["worst"] = *std::max_element(ticks.begin(), ticks.end());
  state.counters["pixels"] = static_cast<double>(platform::user::PaintedPixels()) / static_cast<double>(ticks.size());
}

void Ticks(benchmark::State& state, Window& window) {
  std::vector<double> ticks;
  for ([[maybe_unused]] auto _ : state) {
    if (ticks.size() % kBatch == 0) window.Restart();
    ticks.push_back(TimedTick(window.form()));
    state.SetIterationTime(ticks.back());
  }
  Report(state, ticks);
}

void LargestBusyCave(benchmark::State& state) {
  Window window(BusyCave());
  Ticks(state, window);
}

void UsualQuietCave(benchmark::State& state) {
  Window window(QuietCave());
  Ticks(state, window);
}

/// The view moves by one and a half tiles in every tick: far more than a hero walks.
void ScrollingLargestBusyCave(benchmark::State& state) {
  Window window(BusyCave());
  window.form().game.FollowHero = false;
  std::vector<double> ticks;
  for ([[maybe_unused]] auto _ : state) {
    const std::size_t turn = ticks.size() % kBatch;
    if (turn == 0) {
      window.Restart();
      window.form().game.FollowHero = false;
      platform::user::PressKey(platform::kKeyRight);
    }
    if (turn == kBatch / 2) {
      platform::user::ReleaseKey(platform::kKeyRight);
      platform::user::PressKey(platform::kKeyLeft);
    }
    ticks.push_back(TimedTick(window.form()));
    state.SetIterationTime(ticks.back());
    if (turn == kBatch - 1) platform::user::ReleaseKey(platform::kKeyLeft);
  }
  platform::user::ReleaseKey(platform::kKeyRight);
  platform::user::ReleaseKey(platform::kKeyLeft);
  Report(state, ticks);
}

/// From the text of a cave to the window on the screen.
void OpenLargestCave(benchmark::State& state) {
  Window window(BusyCave());
  const std::string text = BuildCaveText(BusyCave());
  for ([[maybe_unused]] auto _ : state) {
    window.form().PaintCave(text);
    platform::Application::PaintAndSleep(0);
  }
}

/// Megabytes of memory that the process has used at most, as the system tells it.
double PeakMemory() {
  std::ifstream status("/proc/self/status");
  std::string word;
  double kilobytes = 0;
  while (status >> word) {
    if (word == "VmHWM:") status >> kilobytes;
  }
  return kilobytes / 1024;
}

BENCHMARK(LargestBusyCave)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(ScrollingLargestBusyCave)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(UsualQuietCave)->UseManualTime()->Unit(benchmark::kMicrosecond);
BENCHMARK(OpenLargestCave)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
  RunDesktopBenchmarks(argc, argv);
  std::printf("peak memory: %.0f MB\n", PeakMemory());
}
