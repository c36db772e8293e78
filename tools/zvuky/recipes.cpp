// How each sound of the game is made. They share a few bodies that are struck: stone, crate, glass, bar and bell.

#include "recipes.h"

#include <cmath>
#include <cstddef>

#include "loudness.h"

namespace {

using synth::Add;
using synth::Curve;
using synth::Filtered;
using synth::Grains;
using synth::Mode;
using synth::Noise;
using synth::Pass;
using synth::Plucked;
using synth::Shaped;
using synth::Silence;
using synth::Sound;
using synth::Struck;
using synth::Tone;
using synth::Warmed;

// --- Bodies: frequencies as multiples of the lowest --------------------

const std::vector<Mode> kStone = {{1, 1, 0.030}, {1.71, 0.6, 0.022}, {2.63, 0.35, 0.015}, {3.92, 0.18, 0.009}};
const std::vector<Mode> kCrate = {
    {1, 1, 0.032}, {1.47, 0.7, 0.026}, {2.09, 0.5, 0.020}, {2.76, 0.35, 0.014}, {3.90, 0.2, 0.008}};
const std::vector<Mode> kGlass = {{1, 1, 0.060}, {2.32, 0.5, 0.040}, {4.25, 0.2, 0.022}, {6.63, 0.06, 0.010}};
const std::vector<Mode> kBar = {{1, 1, 0.045}, {3.93, 0.25, 0.016}, {9.2, 0.05, 0.006}};  // of wood, tuned and hollowed
const std::vector<Mode> kBell = {{0.5, 0.3, 0.25}, {1, 1, 0.20}, {2, 0.4, 0.13}, {3.01, 0.2, 0.07}, {4.1, 0.08, 0.04}};

/// The pitch of a note, in half tones from the A of 440 Hz.
double Note(double halfTones) { return 440 * std::exp2(halfTones / 12); }

// --- The cave --------------------

// Two paws in soft earth, and the crumbs they throw.
Sound Hlina() {
  Sound sound = Silence(0.12);
  const Curve sinking = {{0, 1100}, {0.05, 520}};
  Add(sound, 0.000, 1.0, Plucked(Filtered(Noise(0.06, 1), Pass::kBand, sinking, 0.9), 0.006, 0.010));
  Add(sound, 0.048, 0.9, Plucked(Filtered(Noise(0.07, 2), Pass::kBand, sinking, 0.9), 0.006, 0.011));
  Add(sound, 0.000, 0.25, Plucked(Tone(0.08, {{0, 190}, {0.05, 120}}), 0.004, 0.014));
  Add(sound, 0.010, 0.5, Filtered(Grains(0.09, 250, 3), Pass::kBand, 1300, 1.0));
  return Filtered(sound, Pass::kLow, 2600);
}

// A gem touches the ground: glass over a small thud.
Sound DrahokamBum() {
  Sound sound = Silence(0.34);
  Add(sound, 0.000, 1.0, Struck(0.34, Note(17), kGlass));
  Add(sound, 0.075, 0.4, Struck(0.26, Note(20), kGlass));  // it bounces once
  Add(sound, 0.000, 0.6, Plucked(Tone(0.10, {{0, 300}, {0.06, 190}}, {1, 0.3}), 0.002, 0.018));
  Add(sound, 0.000, 0.25, Plucked(Filtered(Noise(0.03, 11), Pass::kBand, 2400, 0.8), 0.001, 0.004));
  return sound;
}

// A gem is swallowed: a small pop, then two happy steps up on a wooden bar.
Sound DrahokamHam() {
  Sound sound = Silence(0.36);
  Add(sound, 0.000, 0.6, Plucked(Tone(0.05, {{0, 260}, {0.04, 620}}, {1, 0.3, 0.1}), 0.004, 0.012));
  Add(sound, 0.040, 0.7, Struck(0.30, Note(7), kBar));
  Add(sound, 0.105, 1.0, Struck(0.25, Note(12), kBar));
  Add(sound, 0.105, 0.1, Struck(0.25, Note(24), kGlass));
  return sound;
}

// A rock hits the ground: weight below, stone above.
Sound KamenBum() {
  Sound sound = Silence(0.28);
  Add(sound, 0.000, 0.7, Plucked(Tone(0.26, {{0, 200}, {0.07, 100}}, {1, 0.6, 0.3}), 0.003, 0.034));
  Add(sound, 0.000, 0.9, Struck(0.20, 310, kStone));
  Add(sound, 0.000, 0.8, Plucked(Filtered(Noise(0.10, 21), Pass::kLow, {{0, 1800}, {0.06, 400}}), 0.001, 0.014));
  Add(sound, 0.050, 0.12, Filtered(Grains(0.14, 160, 22), Pass::kBand, 900, 1.0));
  return sound;
}

// A rock is pushed: stone grinds over stone in uneven jerks.
Sound KamenSun() {
  const double length = 0.34;
  Sound grit = Noise(length, 31);
  Add(grit, 0, 4, Grains(length, 700, 32));
  Sound sound = Silence(length);
  Add(sound, 0, 1.0, Filtered(grit, Pass::kBand, {{0, 330}, {0.16, 470}, {length, 350}}, 1.8));
  Add(sound, 0, 0.5, Filtered(grit, Pass::kBand, {{0, 800}, {0.16, 1100}, {length, 850}}, 2.0));
  Add(sound, 0, 0.4, Filtered(Noise(length, 33), Pass::kBand, 160, 1.2));
  const Curve jerks = {{0, 0},       {0.03, 1},    {0.07, 0.35}, {0.10, 0.95}, {0.15, 0.3},
                       {0.18, 0.85}, {0.23, 0.25}, {0.26, 0.5},  {length, 0}};
  return Filtered(Shaped(sound, jerks), Pass::kLow, 2400);
}

// A blast: a blow, a rolling boom that darkens, and what rains down afterwards.
Sound Exploze() {
  const double length = 1.15;
  Sound sound = Silence(length);
  Add(sound, 0.00, 0.8, Plucked(Tone(length, {{0, 160}, {0.25, 66}, {length, 45}}, {1, 0.6, 0.4, 0.2}), 0.002, 0.13));
  const Curve darkening = {{0, 3600}, {0.12, 1300}, {0.5, 420}, {length, 200}};
  Add(sound, 0.00, 1.0, Plucked(Filtered(Noise(length, 41), Pass::kLow, darkening), 0.002, 0.14));
  const Curve rolling = {{0, 0}, {0.05, 1}, {0.14, 0.6}, {0.24, 0.9}, {0.4, 0.5}, {0.5, 0.6}, {length, 0}};
  Add(sound, 0.04, 0.7, Plucked(Shaped(Filtered(Noise(length, 42), Pass::kBand, 260, 1.0), rolling), 0.01, 0.30));
  sound = Warmed(sound, 1.0);
  const Sound debris = Filtered(Grains(0.8, 110, 43), Pass::kBand, {{0, 1500}, {0.7, 700}}, 1.4);
  Add(sound, 0.22, 0.12, Shaped(debris, {{0, 0}, {0.1, 1}, {0.8, 0}}));
  return sound;
}

// A crate is pushed: it knocks, creaks along and knocks again.
Sound BednaSun() {
  Sound sound = Silence(0.32);
  Add(sound, 0.000, 1.0, Struck(0.25, 215, kCrate));
  Add(sound, 0.165, 0.6, Struck(0.15, 195, kCrate));
  const Sound creak = Filtered(Grains(0.16, 420, 51), Pass::kBand, {{0, 560}, {0.15, 760}}, 3.0);
  Add(sound, 0.020, 0.25, Shaped(creak, {{0, 0}, {0.04, 1}, {0.12, 0.8}, {0.16, 0}}));
  Add(sound, 0.000, 0.15, Plucked(Filtered(Noise(0.25, 52), Pass::kBand, 480, 0.8), 0.02, 0.05));
  return Filtered(sound, Pass::kLow, 5000);
}

// A small dog barks once: a voice that jumps up and falls, through the throat and the opening mouth.
Sound ZorbikPrep() {
  const double length = 0.17;
  const std::vector<double> voice = {1, 0.85, 0.7, 0.6, 0.5, 0.4, 0.3, 0.25, 0.2, 0.15, 0.12, 0.1};
  Sound throat = Tone(length, {{0, 340}, {0.025, 600}, {0.07, 540}, {length, 290}}, voice);
  Add(throat, 0, 1.1, Shaped(Noise(length, 61), {{0, 1}, {0.04, 0.7}, {length, 0.3}}));
  Sound sound = Silence(length);
  Add(sound, 0, 0.7, Filtered(throat, Pass::kBand, {{0, 420}, {0.03, 680}, {length, 400}}, 2.0));
  Add(sound, 0, 1.0, Filtered(throat, Pass::kBand, {{0, 750}, {0.035, 1250}, {length, 700}}, 3.0));
  Add(sound, 0, 0.4, Filtered(throat, Pass::kBand, {{0, 1900}, {0.035, 2600}, {length, 1800}}, 4.0));
  return Shaped(sound, {{0, 0}, {0.010, 1}, {0.06, 0.8}, {0.11, 0.2}, {length, 0}});
}

// The exit opens: a chord runs up on bells and stays in the air.
Sound CilOtvr() {
  const double length = 1.15;
  Sound sound = Silence(length);
  const double steps[] = {3, 7, 10, 15, 19};  // C major from C5 up
  for (std::size_t i = 0; i < std::size(steps); ++i) {
    const double start = 0.075 * static_cast<double>(i);
    const double level = 1.0 - 0.08 * static_cast<double>(i);
    Add(sound, start, 0.8 * level, Struck(length, Note(steps[i]), kBell));
    Add(sound, start, 0.3 * level, Struck(0.4, Note(steps[i]), kBar));
    Add(sound, start, 0.5 * level, Struck(length, Note(steps[i] + 12) * 1.003, kBell));
  }
  const Sound air = Filtered(Noise(0.6, 71), Pass::kBand, {{0, 900}, {0.4, 4200}}, 1.5);
  Add(sound, 0, 0.06, Shaped(air, {{0, 0}, {0.3, 1}, {0.6, 0}}));
  return Shaped(sound, {{0, 1}, {0.6, 1}, {length, 0}});
}

// Something falls through the magic wall: a scatter of small bells that trembles.
Sound KouzZed() {
  const double length = 0.40;
  Sound sound = Silence(length);
  const double notes[] = {15, 22, 19, 27, 24, 31, 22, 27};
  for (std::size_t i = 0; i < std::size(notes); ++i) {
    const double start = 0.030 * static_cast<double>(i);
    const double level = 0.9 - 0.06 * static_cast<double>(i);
    Add(sound, start, level, Struck(length, Note(notes[i]), kGlass));
    Add(sound, start, 0.7 * level, Struck(length, Note(notes[i]) * 1.008, kGlass));  // beside it: the two beat
  }
  Add(sound, 0, 0.2, Shaped(Tone(length, {{0, 330}, {length, 520}}, {1, 0.3}), {{0, 0}, {0.1, 1}, {length, 0}}));
  return Shaped(sound, {{0, 0}, {0.015, 1}, {0.25, 0.9}, {length, 0}});
}

// --- The clock --------------------

/// One stroke of the clock: a wooden bar with a dry knock.
Sound Stroke(double pitch) {
  Sound sound = Struck(0.20, pitch, kBar);
  Add(sound, 0, 0.4, Struck(0.10, pitch / 2, kCrate));
  return sound;
}

// From second to second the clock climbs; from the fifth on it strikes ever more often.
Sound Countdown(int seconds) {
  const double climb[] = {0, 12, 10, 9, 7, 5, 3, 2, 0, -2, -3};  // half tones at 1 to 10 seconds
  const int strokes = seconds > 5 ? 1 : seconds > 3 ? 2 : seconds > 1 ? 3 : 4;
  const double gap = strokes == 2 ? 0.13 : strokes == 3 ? 0.09 : 0.065;
  const double pitch = Note(climb[seconds]);
  Sound sound = Silence(0.20 + gap * (strokes - 1));
  for (int i = 0; i < strokes; ++i) Add(sound, gap * i, i + 1 == strokes ? 1.0 : 0.75, Stroke(pitch));
  return sound;
}

// The time is out: three steps down to a low bell.
Sound TimeOut() {
  const double length = 0.70;
  Sound sound = Silence(length);
  Add(sound, 0.00, 0.8, Stroke(Note(0)));
  Add(sound, 0.12, 0.8, Stroke(Note(-4)));
  Add(sound, 0.24, 0.8, Struck(length, Note(-9), kBell));
  Add(sound, 0.24, 0.8, Stroke(Note(-9)));
  return Shaped(sound, {{0, 1}, {0.35, 1}, {length, 0}});
}

// --- Levels, LUFS --------------------

constexpr double kCave = -18;
constexpr double kBlast = -16.5;
constexpr double kDigging = -26;  // at every step: it must not tire
constexpr double kClock = -19;

Recipe Kept(std::string name, double loudness, std::function<Sound()> recipe) {
  return {std::move(name), [recipe = std::move(recipe), loudness] { return synth::Mastered(recipe(), loudness); }};
}

std::vector<Recipe> All() {
  std::vector<Recipe> all = {
      Kept("Hlina", kDigging, Hlina),          Kept("DrahokamBum", kCave, DrahokamBum),
      Kept("DrahokamHam", kCave, DrahokamHam), Kept("KamenBum", kCave, KamenBum),
      Kept("KamenSun", kCave, KamenSun),       Kept("Exploze", kBlast, Exploze),
      Kept("BednaSun", kCave, BednaSun),       Kept("ZorbikPrep", kCave, ZorbikPrep),
      Kept("CilOtvr", kCave, CilOtvr),         Kept("KouzZed", kCave, KouzZed),
  };
  for (int seconds = 10; seconds > 0; --seconds) {
    all.push_back(Kept("O" + std::to_string(seconds), kClock, [seconds] { return Countdown(seconds); }));
  }
  all.push_back(Kept("O0", kClock, TimeOut));
  return all;
}

}  // namespace

const std::vector<Recipe>& Recipes() {
  static const std::vector<Recipe> recipes = All();
  return recipes;
}
