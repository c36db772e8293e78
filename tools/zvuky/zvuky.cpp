// Makes the wave files of the game, or tells how loud they are.

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "base/fault.h"
#include "base/files.h"
#include "base/tool.h"
#include "loudness.h"
#include "recipes.h"
#include "wave_file.h"

namespace {

constexpr const char* kUsage =
    "zvuky FOLDER            make all wave files of the game in a folder\n"
    "zvuky --levels FOLDER   tell length, peak, effective value and loudness of the wave files in a folder\n";

void Make(const std::filesystem::path& folder) {
  std::filesystem::create_directories(folder);
  for (const Recipe& recipe : Recipes()) WriteFile(folder / (recipe.name + ".wav"), WaveBytes(recipe.make()));
}

double Effective(const synth::Sound& sound) {
  double sum = 0;
  for (const double sample : sound) sum += sample * sample;
  return sound.empty() ? 0 : std::sqrt(sum / static_cast<double>(sound.size()));
}

void PrintLevels(const std::filesystem::path& folder) {
  const std::vector<std::string> names = ListFiles(folder, ".wav");
  if (names.empty()) throw Fault("There are no wave files here.", folder);
  std::printf("%-16s %8s %8s %8s %9s\n", "file", "seconds", "peak dB", "eff. dB", "LUFS");
  for (const std::string& name : names) {
    const std::string path = folder / name;
    const synth::Sound sound = WaveSound(ReadFile(path), path);
    std::printf("%-16s %8.3f %8.1f %8.1f %9.1f\n", Visible(name).c_str(),
                static_cast<double>(sound.size()) / synth::kRate, synth::Decibels(synth::Peak(sound)),
                synth::Decibels(Effective(sound)), synth::Loudness(sound));
  }
}

int Run(int count, char** words) {
  const std::string_view first = count > 1 ? words[1] : "";
  if (count == 2 && first == "--help") {
    std::fputs(kUsage, stdout);
  } else if (count == 2 && !first.starts_with("-")) {
    Make(words[1]);
  } else if (count == 3 && first == "--levels") {
    PrintLevels(words[2]);
  } else {
    std::fputs(kUsage, stderr);
    return 2;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  return RunTool("zvuky", [&] { return Run(argc, argv); });
}
