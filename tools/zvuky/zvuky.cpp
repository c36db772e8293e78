// Makes the wave files of the game, or tells how loud they are.

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <string>
#include <vector>

#include "base/fault.h"
#include "base/files.h"
#include "loudness.h"
#include "recipes.h"
#include "tools/command_line.h"
#include "wave_file.h"

namespace {

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

}  // namespace

int main(int argc, char** argv) {
  CLI::App app("Makes all wave files of the game in a folder.", "zvuky");
  bool levels = false;
  std::string folder;
  app.add_flag("--levels", levels, "tell length, peak, effective value and loudness of the wave files there instead");
  app.add_option("FOLDER", folder)->required();
  return RunCommand(app, argc, argv, [&] {
    levels ? PrintLevels(folder) : Make(folder);
    return 0;
  });
}
