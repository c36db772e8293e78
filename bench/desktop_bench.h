#pragma once

#include <benchmark/benchmark.h>

#include <string>

#include "platform/application.h"
#include "platform/testing.h"

/// Runs the benchmarks of a program whose forms are shown offscreen.
inline void RunDesktopBenchmarks(int& argc, char** argv) {
  platform::user::UseOffscreen();
  platform::Application application(argc, argv, "Zorbik");
  benchmark::Initialize(&argc, argv);
  benchmark::AddCustomContext("pixel ratio", std::to_string(platform::Application::PixelRatio()));
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
}
