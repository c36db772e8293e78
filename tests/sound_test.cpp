// Sound as it is heard: SDL writes what would come out of the loudspeakers to a file, and the waves are looked for in
// it.

#include "platform/sound.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <numbers>
#include <optional>
#include <string>
#include <thread>
#include <vector>

#include "base/files.h"
#include "kit/temp_folder.h"
#include "platform/application.h"
#include "platform/samples.h"
#include "platform/testing.h"
#include "platform/voice.h"
#include "view/form_hra.h"
#include "view/sounds.h"

using platform::kChannels;
using platform::kSampleRate;
using platform::PlayWave;
using platform::Samples;
using platform::StopSound;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr std::size_t kFade = 256;  // frames in which the rest of a wave that was cut fades
const std::string kData = ZORBIK_DATA;

std::string DataFile(const std::string& name) { return kData + "/" + name; }

/// The left and right levels of a frame.
struct Frame {
  float left;
  float right;

  bool operator==(const Frame&) const = default;
  bool silent() const { return left == 0 && right == 0; }
};

/// Number of bytes little endian.
std::string Bytes(std::uint32_t value, int count) {
  std::string bytes;
  for (int i = 0; i < count; ++i) bytes += static_cast<char>(value >> (8 * i) & 0xFF);
  return bytes;
}

/// A wave file of plain samples.
std::string WaveFile(std::uint32_t rate, std::uint32_t channels, std::uint32_t bits, const std::string& data) {
  const std::uint32_t frame = channels * bits / 8;
  return "RIFF" + Bytes(static_cast<std::uint32_t>(36 + data.size()), 4) + "WAVEfmt " + Bytes(16, 4) + Bytes(1, 2) +
         Bytes(channels, 2) + Bytes(rate, 4) + Bytes(rate * frame, 4) + Bytes(frame, 2) + Bytes(bits, 2) + "data" +
         Bytes(static_cast<std::uint32_t>(data.size()), 4) + data;
}

/// The frames of a kept wave file: 16 bits, mono, behind the usual header.
std::vector<Frame> Expected(const std::string& path) {
  const std::string bytes = ReadFile(path);
  std::vector<Frame> frames;
  for (std::size_t i = 44; i + 1 < bytes.size(); i += 2) {
    std::int16_t value = 0;
    std::memcpy(&value, bytes.data() + i, sizeof value);
    const auto level = static_cast<float>(value) / 32768.0F;
    frames.push_back({level, level});
  }
  return frames;
}

/// The first frames of a wave.
std::vector<Frame> Start(const std::vector<Frame>& wave, std::ptrdiff_t count) {
  return {wave.begin(), wave.begin() + count};
}

/// Where a wave is heard exactly, from its frame `skipped` on.
std::vector<std::size_t> Places(const std::vector<Frame>& heard, const std::vector<Frame>& wave,
                                std::size_t skipped = 0) {
  const auto from = wave.begin() + static_cast<std::ptrdiff_t>(skipped);
  std::vector<std::size_t> places;
  for (auto at = heard.begin(); (at = std::search(at, heard.end(), from, wave.end())) != heard.end(); ++at) {
    places.push_back(static_cast<std::size_t>(at - heard.begin()) - skipped);
  }
  return places;
}

bool AllSilent(const std::vector<Frame>& heard, std::size_t from, std::size_t to) {
  return std::all_of(heard.begin() + static_cast<std::ptrdiff_t>(from), heard.begin() + static_cast<std::ptrdiff_t>(to),
                     [](const Frame& frame) { return frame.silent(); });
}

/// SDL's driver that writes to a file, and what it has written. It takes as long as a loudspeaker would.
class SoundTest : public testing::Test {
 protected:
  SoundTest() { Listen(folder_.Path("heard")); }
  ~SoundTest() override {
    StopSound();
    setenv("SDL_AUDIODRIVER", "dummy", 1);
  }

  void Listen(const std::string& file) {
    StopSound();
    file_ = file;
    setenv("SDL_AUDIODRIVER", "disk", 1);
    setenv("SDL_DISKAUDIOFILE", file.c_str(), 1);
  }

  /// What has sounded so far.
  std::vector<Frame> SoFar() const {
    if (!std::filesystem::exists(file_)) return {};
    const std::string bytes = ReadFile(file_);
    std::vector<Frame> frames(bytes.size() / sizeof(Frame));
    if (!frames.empty()) std::memcpy(frames.data(), bytes.data(), frames.size() * sizeof(Frame));
    return frames;
  }

  /// Everything that has sounded; the device is closed then.
  std::vector<Frame> Heard() {
    StopSound();
    return SoFar();
  }

  /// Waits until what has sounded fulfils a condition.
  template <class Condition>
  void HearUntil(Condition condition) {
    const auto late = std::chrono::steady_clock::now() + std::chrono::seconds(10);
    while (!condition(SoFar())) {
      ASSERT_LT(std::chrono::steady_clock::now(), late) << "is not heard";
      std::this_thread::sleep_for(std::chrono::milliseconds(5));
    }
  }

  /// Waits until a wave has sounded, from its frame `skipped` on.
  void Hear(const std::vector<Frame>& wave, std::size_t skipped = 0) {
    HearUntil([&](const std::vector<Frame>& heard) { return !Places(heard, wave, skipped).empty(); });
  }

  /// Waits until some more frames have sounded.
  void HearMore(std::size_t frames) {
    const std::size_t end = SoFar().size() + frames;
    HearUntil([&](const std::vector<Frame>& heard) { return heard.size() >= end; });
  }

  TempFolder folder_;
  std::string file_;
};

/// From a frame on the rest of a wave fades, over what sounds next.
void ExpectFade(const std::vector<Frame>& heard, std::size_t from, const std::vector<Frame>& rest,
                const std::vector<Frame>& next) {
  ASSERT_GE(heard.size(), from + kFade);
  for (std::size_t i = 0; i < kFade; ++i) {
    const float level = 1 - static_cast<float>(i + 1) / kFade;
    ASSERT_NEAR(heard[from + i].left, next[i].left + level * rest[i].left, 1e-5) << i;
  }
}

// --- What is heard --------------------

TEST_F(SoundTest, PlaysAWaveOnBothSidesAndThenNothing) {
  const std::vector<Frame> wave = Expected(DataFile("Zvuk/DrahokamBum.wav"));
  PlayWave(DataFile("zvuk/DRAHOKAMBUM.WAV"));  // names are found regardless of case
  Hear(wave);
  HearMore(4000);
  const std::vector<Frame> heard = Heard();
  ASSERT_THAT(Places(heard, wave), testing::SizeIs(1));
  const std::size_t start = Places(heard, wave).front();
  EXPECT_TRUE(AllSilent(heard, 0, start));
  EXPECT_TRUE(AllSilent(heard, start + wave.size(), heard.size()));
}

TEST_F(SoundTest, NewSoundCutsTheOldOneWithinMilliseconds) {
  const std::vector<Frame> blast = Expected(DataFile("Zvuk/Exploze.wav"));
  const std::vector<Frame> rock = Expected(DataFile("Zvuk/KamenBum.wav"));
  PlayWave(DataFile("Zvuk/Exploze.wav"));
  Hear(Start(blast, 4000));
  PlayWave(DataFile("Zvuk/KamenBum.wav"));
  Hear(rock, kFade);
  HearMore(4000);
  const std::vector<Frame> heard = Heard();
  const std::vector<std::size_t> starts = Places(heard, Start(blast, 4000));
  const std::vector<std::size_t> cuts = Places(heard, rock, kFade);
  ASSERT_THAT(starts, testing::SizeIs(1));
  ASSERT_THAT(cuts, testing::SizeIs(1));
  const auto played = static_cast<std::ptrdiff_t>(cuts[0] - starts[0]);
  ASSERT_LT(static_cast<std::size_t>(played) + kFade, blast.size());
  EXPECT_THAT(Places(heard, Start(blast, played)), ElementsAre(starts[0]));
  ExpectFade(heard, cuts[0], {blast.begin() + played, blast.end()}, rock);
  EXPECT_TRUE(AllSilent(heard, cuts[0] + rock.size(), heard.size()));
}

TEST_F(SoundTest, DiggingGivesWayAndOthersDoNot) {
  const std::vector<Frame> dirt = Expected(DataFile("Zvuk/Hlina.wav"));
  const std::vector<Frame> blast = Expected(DataFile("Zvuk/Exploze.wav"));
  PlayWave(DataFile("Zvuk/Exploze.wav"));
  PlayWave(DataFile("Zvuk/Hlina.wav"), true);
  Hear(Start(blast, 2000));
  PlayWave(DataFile("Zvuk/Hlina.wav"), true);
  Hear(blast);
  PlayWave(DataFile("Zvuk/Hlina.wav"), true);
  Hear(dirt);
  const std::vector<Frame> heard = Heard();
  ASSERT_THAT(Places(heard, blast), testing::SizeIs(1));
  ASSERT_THAT(Places(heard, dirt), testing::SizeIs(1)) << "alone, when nothing sounds any more";
  EXPECT_GE(Places(heard, dirt).front(), Places(heard, blast).front() + blast.size());
}

TEST_F(SoundTest, ConvertsRatesSizesAndChannels) {
  std::string left;  // 8 bits, 22.05 kHz: a tone on the left, nothing on the right
  const double step = 2 * std::numbers::pi * 500 / 22050;
  for (int i = 0; i < 11025; ++i) {
    left += static_cast<char>(std::lround(128 + 100 * std::sin(step * i)));
    left += static_cast<char>(128);
  }
  PlayWave(folder_.Make("left.wav", WaveFile(22050, 2, 8, left)));
  HearUntil([](const std::vector<Frame>& heard) { return !AllSilent(heard, 0, heard.size()); });
  HearMore(21000);
  const std::vector<Frame> heard = Heard();
  const auto start = std::find_if(heard.begin(), heard.end(), [](const Frame& frame) { return !frame.silent(); });
  ASSERT_GT(heard.end() - start, 20000);
  // The tone at the played rate, of any phase.
  double sine = 0;
  double cosine = 0;
  double power = 0;
  for (int i = 0; i < 20000; ++i) {
    const Frame& frame = start[i];
    ASSERT_NEAR(frame.right, 0, 0.001);
    sine += frame.left * std::sin(step / 2 * i);
    cosine += frame.left * std::cos(step / 2 * i);
    power += frame.left * frame.left;
  }
  EXPECT_NEAR(std::sqrt(power / 20000), 100 / 128.0 / std::numbers::sqrt2, 0.01);
  EXPECT_GT((sine * sine + cosine * cosine) / (power * 20000 / 2), 0.99) << "its power is all in one tone";
}

// --- Silence --------------------

TEST_F(SoundTest, WhatIsNoWaveIsSilentAndCutsNothing) {
  const std::vector<Frame> blast = Expected(DataFile("Zvuk/Exploze.wav"));
  const std::string wave = ReadFile(DataFile("Zvuk/O10.wav"));
  std::string unpaired = wave;
  unpaired[34] = 13;  // bits a sample
  mkfifo(folder_.Path("pipe.wav").c_str(), 0600);
  folder_.Make("large.wav", wave);
  std::filesystem::resize_file(folder_.Path("large.wav"), (16 << 20) + 1);
  folder_.Make("locked.wav", wave);
  std::filesystem::permissions(folder_.Path("locked.wav"), std::filesystem::perms::none);
  const std::vector<std::string> silent = {
      folder_.Path("missing.wav"),
      folder_.Path("no folder/O1.wav"),
      folder_.path(),
      folder_.Path("pipe.wav"),
      folder_.Path("large.wav"),
      folder_.Make("empty.wav"),
      folder_.Make("text.wav", "This is no sound."),
      folder_.Make("header.wav", wave.substr(0, 44)),
      folder_.Make("half a header.wav", wave.substr(0, 30)),
      folder_.Make("bits.wav", unpaired),
      folder_.Make("no rate.wav", WaveFile(0, 1, 16, std::string(2000, 'a'))),
      folder_.Make("slow.wav", WaveFile(1, 1, 16, std::string(20, 'a'))),
      folder_.Make("fast.wav", WaveFile(4000000000, 1, 16, std::string(2000, 'a'))),
      folder_.Make("no channels.wav", WaveFile(44100, 0, 16, std::string(2000, 'a'))),
      folder_.Make("channels.wav", WaveFile(44100, 60000, 16, std::string(200000, 'a'))),
      folder_.Make("one sample.wav", WaveFile(192000, 1, 8, "a")),  // less than one of ours
      folder_.Make("long.wav", WaveFile(1000, 1, 8, std::string(61000, 'a'))),
      folder_.Make("wide.wav", WaveFile(1000, 8, 32, std::string(1900000, 'a'))),
  };
  for (const std::string& path : silent) EXPECT_THAT(platform::LoadWave(path), IsEmpty()) << path;
  PlayWave(DataFile("Zvuk/Exploze.wav"));
  Hear(Start(blast, 2000));
  for (const std::string& path : silent) PlayWave(path);
  Hear(blast);
  EXPECT_THAT(Places(Heard(), blast), testing::SizeIs(1));
}

TEST_F(SoundTest, CutFileSoundsAsFarAsItGoes) {
  const std::string whole = ReadFile(DataFile("Zvuk/O10.wav"));
  const Samples wave = platform::LoadWave(DataFile("Zvuk/O10.wav"));
  const Samples cut = platform::LoadWave(folder_.Make("cut.wav", whole.substr(0, 2045)));
  ASSERT_THAT(cut, testing::SizeIs(kChannels * 1000));
  EXPECT_TRUE(std::equal(cut.begin(), cut.end(), wave.begin()));
}

TEST_F(SoundTest, WithoutADeviceNothingHappensAndItIsNotTriedAllTheTime) {
  const std::string wave = DataFile("Zvuk/O10.wav");
  Listen(folder_.Path("later/heard"));  // opening it fails
  PlayWave(wave);
  std::this_thread::sleep_for(std::chrono::milliseconds(500));
  std::filesystem::create_directory(folder_.Path("later"));
  PlayWave(wave);
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  EXPECT_FALSE(std::filesystem::exists(file_)) << "was tried again";
  EXPECT_THAT(Heard(), IsEmpty());
  PlayWave(wave);  // a new start looks for a device again
  Hear(Expected(wave));
  StopSound();
  for (const char* driver : {"no such driver", "dummy"}) {
    setenv("SDL_AUDIODRIVER", driver, 1);
    PlayWave(wave);
    PlayWave(wave, true);
    StopSound();
  }
}

// --- The end --------------------

/// The blast was heard from its start and faded before its end.
void ExpectStoppedBlast(const std::vector<Frame>& heard) {
  const std::vector<Frame> blast = Expected(DataFile("Zvuk/Exploze.wav"));
  const std::vector<std::size_t> starts = Places(heard, Start(blast, 2000));
  ASSERT_THAT(starts, testing::SizeIs(1));
  const auto start = heard.begin() + static_cast<std::ptrdiff_t>(starts.front());
  const auto [last, rest] = std::mismatch(start, heard.end(), blast.begin(), blast.end());
  ASSERT_LT(rest - blast.begin(), 40000) << "goes on and on";
  const auto from = static_cast<std::size_t>(last - heard.begin());
  ExpectFade(heard, from, {rest, blast.end()}, std::vector<Frame>(kFade));
  EXPECT_TRUE(AllSilent(heard, from + kFade, heard.size()));
}

TEST_F(SoundTest, StopsAtOnceWithoutAClick) {
  PlayWave(DataFile("Zvuk/Exploze.wav"));
  Hear(Start(Expected(DataFile("Zvuk/Exploze.wav")), 2000));
  ExpectStoppedBlast(Heard());
}

// Each program here ends while its sound thread is at work: cleanly, without a click, and with Ctrl+C as ever. It is
// this test started anew, and plays into the file of the one that started it.
using SoundDeathTest = SoundTest;

TEST_F(SoundDeathTest, ProgramMayEndWhileASoundIsHeard) {
  if (const char* starters = std::getenv("ZORBIK_HEARD")) Listen(starters);
  setenv("ZORBIK_HEARD", file_.c_str(), 1);
  const auto start = [this] {
    std::filesystem::remove(file_);
    std::filesystem::remove_all(folder_.path());  // the one of this program: it will not get there
    PlayWave(DataFile("Zvuk/Exploze.wav"));
  };
  const auto sounding = [&](auto end) {
    start();
    Hear(Start(Expected(DataFile("Zvuk/Exploze.wav")), 2000));
    end();
  };
  EXPECT_EXIT(sounding([] { platform::Application::Quit(3); }), testing::ExitedWithCode(3), "");
  ExpectStoppedBlast(Heard());
  EXPECT_EXIT(sounding([] { std::exit(4); }), testing::ExitedWithCode(4), "");
  ExpectStoppedBlast(Heard());
  EXPECT_EXIT(sounding([] { std::raise(SIGINT); }), testing::KilledBySignal(SIGINT), "");
  EXPECT_EXIT((start(), platform::Application::Quit(5)), testing::ExitedWithCode(5), "");
  unsetenv("ZORBIK_HEARD");
}

// --- One voice --------------------

TEST(Voice, CutsNeverJump) {
  Samples loud;  // 300 Hz at full scale: no step of more than 0.043; three may overlap
  for (int i = 0; i < kSampleRate; ++i) {
    const auto level = static_cast<float>(std::sin(2 * std::numbers::pi * 300 * i / kSampleRate));
    loud.insert(loud.end(), {level, -level});
  }
  const Samples quiet(static_cast<std::size_t>(kSampleRate), 0.0F);
  platform::Voice voice;
  std::vector<float> left;
  const auto render = [&](std::size_t frames) {
    std::vector<float> out(frames * kChannels);
    voice.Render(out);
    for (std::size_t i = 0; i < out.size(); i += kChannels) {
      left.push_back(out[i]);
      ASSERT_EQ(out[i], -out[i + 1]);
    }
  };
  for (const std::size_t frames : {37U, 1000U, 110U, 30U, 700U}) {  // also while an earlier rest still fades
    voice.Start(loud);
    render(frames);
    voice.Start(quiet);
    render(frames / 3);
  }
  voice.Cut();
  EXPECT_FALSE(voice.sounding());
  render(kFade);
  EXPECT_TRUE(voice.silent());
  for (std::size_t i = 1; i < left.size(); ++i) ASSERT_LT(std::abs(left[i] - left[i - 1]), 0.15) << i;
  EXPECT_GT(*std::max_element(left.begin(), left.end()), 0.99);
}

TEST(Voice, EndsByItself) {
  const Samples wave(6, 0.5F);
  platform::Voice voice;
  voice.Start(wave);
  std::vector<float> out(8, 9.0F);
  voice.Render(out);
  EXPECT_THAT(out, ElementsAre(0.5F, 0.5F, 0.5F, 0.5F, 0.5F, 0.5F, 0.0F, 0.0F));
  EXPECT_TRUE(voice.silent());
  voice.Start({});
  EXPECT_FALSE(voice.sounding());
}

// --- Which sound --------------------

TEST(Sounds, AllHaveTheirFiles) {
  std::vector<std::string> files;
  for (int sound = 0; sound <= 9; ++sound) files.push_back(SoundFile(sound));
  EXPECT_THAT(files, ElementsAre("Zvuk/Hlina.wav", "Zvuk/DrahokamBum.wav", "Zvuk/DrahokamHam.wav", "Zvuk/KamenBum.wav",
                                 "Zvuk/KamenSun.wav", "Zvuk/Exploze.wav", "Zvuk/BednaSun.wav", "Zvuk/ZorbikPrep.wav",
                                 "Zvuk/CilOtvr.wav", "Zvuk/KouzZed.wav"));
  for (int seconds = 0; seconds <= 10; ++seconds) files.push_back(CountdownFile(seconds));
  EXPECT_EQ(files.back(), "Zvuk/O10.wav");
  for (const std::string& file : files) EXPECT_TRUE(std::filesystem::exists(DataFile(file))) << file;
  for (const int none : {-1, 10, 255}) EXPECT_EQ(SoundFile(none), "") << none;
}

/// A game that notes the files it would play.
struct NotedGame {
  NotedGame() {
    hooks.playSound = [this](int sound, bool yielding) { asked += SoundFile(sound) + (yielding ? "?" : "") + " "; };
    hooks.playCountdown = [this](int seconds) { asked += CountdownFile(seconds) + " "; };
  }
  std::string Took() { return std::exchange(asked, {}); }

  std::string asked;
  Hooks hooks;
  Settings settings;
  Hra game{&hooks, &settings};
};

TEST(Sounds, BlastHoldsOffAllButTheClockUntilTheNextTickIsOver) {
  NotedGame noted;
  Hra& game = noted.game;
  game.PZvuk(0);
  game.PZvuk(3);
  EXPECT_EQ(noted.Took(), "Zvuk/Hlina.wav? Zvuk/KamenBum.wav ");
  game.PZvuk(5);
  game.PZvuk(3);
  game.PZvuk(5);
  game.PZvukTime(10);
  EXPECT_EQ(noted.Took(), "Zvuk/Exploze.wav Zvuk/O10.wav ");
  game.tmrHra_Timer();
  noted.Took();
  game.PZvuk(3);
  game.PZvukTime(9);
  EXPECT_EQ(noted.Took(), "Zvuk/O9.wav ") << "still held off in the tick that follows";
  game.tmrHra_Timer();
  noted.Took();
  game.PZvuk(3);
  EXPECT_EQ(noted.Took(), "Zvuk/KamenBum.wav ");
}

TEST(Sounds, OpeningExitAsksForNone) {
  NotedGame noted;
  noted.game.tmrHra_Timer();  // no gem is needed, so it opens at once
  EXPECT_TRUE(noted.game.ExitOpen);
  EXPECT_EQ(noted.Took(), "");
}

TEST(Sounds, SwitchedOffTheyAreNeitherPlayedNorHeldOff) {
  NotedGame noted;
  noted.settings.Zvuk = 0;
  noted.game.PZvuk(5);
  noted.game.PZvuk(3);
  noted.game.PZvukTime(1);
  EXPECT_EQ(noted.Took(), "");
  noted.settings.Zvuk = 1;
  noted.game.PZvuk(3);
  EXPECT_EQ(noted.Took(), "Zvuk/KamenBum.wav ");
}

TEST_F(SoundTest, GameIsHeardFromItsWindow) {
  const Settings settings;
  FormHra form(kData, settings);
  form.game.PZvuk(2);
  Hear(Expected(DataFile("Zvuk/DrahokamHam.wav")));
  form.game.PZvukTime(6);
  form.game.PZvuk(0);
  Hear(Expected(DataFile("Zvuk/O6.wav")));
  HearMore(8000);
  EXPECT_THAT(Places(Heard(), Expected(DataFile("Zvuk/Hlina.wav"))), IsEmpty()) << "gives way to the clock";
}

}  // namespace

int main(int argc, char** argv) {
  platform::user::UseOffscreen();
  testing::InitGoogleTest(&argc, argv);
  testing::FLAGS_gtest_death_test_style = "threadsafe";
  platform::Application application(argc, argv, "Zorb");
  return RUN_ALL_TESTS();
}
