// The kept wave files: they are what the recipes make, and fit to be heard together.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <map>
#include <numbers>
#include <string>
#include <vector>

#include "base/files.h"
#include "kit/fault_check.h"
#include "loudness.h"
#include "recipes.h"
#include "synth.h"
#include "wave_file.h"

namespace {

using synth::kRate;
using synth::Loudness;
using synth::Sound;
using testing::AllOf;
using testing::DoubleNear;
using testing::Ge;
using testing::Le;

const std::string kFolder = ZORBIK_SOUNDS "/";

const std::map<std::string, Sound>& Kept() {
  static const auto kept = [] {
    std::map<std::string, Sound> sounds;
    for (const std::string& name : ListFiles(kFolder, ".wav")) {
      sounds[name.substr(0, name.size() - 4)] = WaveSound(ReadFile(kFolder + name), name);
    }
    return sounds;
  }();
  return kept;
}

double Seconds(const Sound& sound) { return static_cast<double>(sound.size()) / kRate; }

/// A sine at full scale.
Sound Sine(double hertz, double seconds) { return synth::Tone(seconds, hertz); }

TEST(Waves, AreExactlyWhatTheRecipesMake) {
  std::vector<std::string> made;
  for (const Recipe& recipe : Recipes()) {
    made.push_back(recipe.name + ".wav");
    EXPECT_TRUE(ReadFile(kFolder + made.back()) == WaveBytes(recipe.make()))
        << made.back() << " differs: if the recipe was meant to change, make the files again with zvuky";
  }
  EXPECT_THAT(ListFiles(kFolder, ""), testing::UnorderedElementsAreArray(made));
}

TEST(Waves, NeitherClipNorClick) {
  for (const auto& [name, sound] : Kept()) {
    SCOPED_TRACE(name);
    EXPECT_LE(synth::Decibels(synth::Peak(sound)), -1.0);
    EXPECT_EQ(sound.front(), 0);
    EXPECT_EQ(sound.back(), 0);
    for (std::size_t i = 0; i < 4; ++i) {
      EXPECT_LE(std::abs(sound[i]), 0.005);
      EXPECT_LE(std::abs(sound[sound.size() - 1 - i]), 0.001);
    }
    double sum = 0;
    for (const double sample : sound) sum += sample;
    EXPECT_NEAR(sum / static_cast<double>(sound.size()), 0, 0.002) << "an offset clicks where it begins and ends";
  }
}

TEST(Waves, AreShort) {
  const std::map<std::string, double> longer = {{"Exploze", 1.2}, {"CilOtvr", 1.2}, {"O0", 0.7}};
  for (const auto& [name, sound] : Kept()) {
    const auto limit = longer.find(name);
    EXPECT_THAT(Seconds(sound), AllOf(Ge(0.1), Le(limit == longer.end() ? 0.4 : limit->second))) << name;
  }
}

TEST(Waves, AreOfOneLoudnessAndDiggingIsSofter) {
  for (const auto& [name, sound] : Kept()) {
    if (name == "Hlina") {
      EXPECT_THAT(Loudness(sound), AllOf(Ge(-28), Le(-24)));
    } else {
      EXPECT_THAT(Loudness(sound), AllOf(Ge(-19.5), Le(-16))) << name;
    }
  }
}

// What rises is the pitch, told by how often the sound crosses zero just after its last stroke, its loudest.
TEST(Waves, ClockClimbsFromSecondToSecond) {
  const auto crossings = [](const Sound& sound) {
    const auto loudest = std::max_element(sound.begin(), sound.end());
    const auto end = loudest + std::min<std::ptrdiff_t>(kRate / 10, sound.end() - loudest);
    int count = 0;
    for (auto i = loudest + 1; i < end; ++i) count += (*i < 0) != (i[-1] < 0) ? 1 : 0;
    return count;
  };
  for (int seconds = 10; seconds > 1; --seconds) {
    EXPECT_LT(crossings(Kept().at("O" + std::to_string(seconds))),
              crossings(Kept().at("O" + std::to_string(seconds - 1))))
        << seconds;
  }
  EXPECT_LT(crossings(Kept().at("O0")), crossings(Kept().at("O1"))) << "the end falls";
}

// The reference of the weighting: a full sine of 997 Hz has -3.01.
TEST(Loudness, IsThatOfTheStandard) {
  EXPECT_NEAR(Loudness(Sine(997, 1)), -3.01, 0.05);
  EXPECT_NEAR(Loudness(Sine(997, 0.1)), -6.02, 0.1) << "half the time over which the ear adds up";
  EXPECT_NEAR(Loudness(Sine(8000, 1)), 0.3, 0.2);
  EXPECT_LT(Loudness(Sine(40, 1)), -7);
  EXPECT_EQ(Loudness(synth::Silence(1)), synth::kUnheard);
}

TEST(WaveFile, TakesItsOwnKindAlone) {
  const std::string bytes = WaveBytes({0, 1, -1, 0.5, 2});
  EXPECT_THAT(WaveSound(bytes, "a.wav"), testing::ElementsAre(0, 1, -1, DoubleNear(0.5, 1.0 / 32767), 1));
  std::string stereo = bytes;
  stereo[22] = 2;
  for (const std::string& other : {bytes.substr(0, bytes.size() - 2), stereo, std::string("RIFF"), std::string()}) {
    ExpectFault([&] { WaveSound(other, "a.wav"); }, "a.wav", "no wave file");
  }
}

}  // namespace
